#include "Pet/PetFrame.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace mimkins {

namespace {

// Odd constants that spread the bits of what they multiply; the first is 2^64 over the golden ratio.
constexpr std::uint64_t slotSpread = 0x9E3779B97F4A7C15;
constexpr std::uint64_t saltSpread = 0xD1B54A32D192ED03;
constexpr std::uint64_t mixSpread = 0xBF58476D1CE4E5B9;

std::int64_t slotOf(double t, double every) {
    const double slot = std::floor(t / every);
    constexpr double limit = 9.2e18; // just below 2^63
    if (!(std::fabs(slot) < limit)) {
        std::abort();
    }
    return static_cast<std::int64_t>(slot);
}

PetColors petColors(double hue, const PetLook& look) {
    const auto shade = [&](double saturation, double brightness) {
        return Color::hsb(
            hue, std::min(look.saturation * saturation, 1.0), std::min(look.brightness * brightness, 1.0)
        );
    };
    const double opposite = hue + 0.5;
    return {
        .top = shade(0.45, 0.97),
        .bottom = shade(0.6, 0.82),
        .limb = look.outline ? *look.outline : shade(0.6, 0.68),
        .hand = shade(0.35, 0.97),
        .accent = Color::hsb(opposite - std::floor(opposite), look.saturation * 0.6, 0.95),
        .ink = Color::grey(0.1),
        .paper = Color::grey(0.97),
    };
}

} // namespace

SlotChoice PetFrame::choose(int count, double every, std::uint64_t salt) const {
    if (count <= 0) {
        std::abort();
    }
    const std::int64_t slot = slotOf(t, every);
    std::uint64_t mixed = seed ^ (salt * saltSpread) ^ (static_cast<std::uint64_t>(slot) * slotSpread);
    mixed ^= mixed >> 31;
    mixed *= mixSpread;
    mixed ^= mixed >> 29;
    const auto index = mixed % static_cast<std::uint64_t>(count);
    return {static_cast<int>(index), t - every * static_cast<double>(slot)};
}

PetFrame petFrame(const Pet& pet, const PetLook& look, Date date) {
    PetFrame frame;
    frame.seed = (look.shuffle * slotSpread) ^ pet.seed;
    frame.t = (date.secondsSince1970 - animationReference) * look.speed +
              static_cast<double>(frame.seed % 997) / 97;
    frame.elapsed = date - pet.since;
    frame.blinkOffset = static_cast<double>(frame.seed % 40) / 10;
    frame.hue = look.hue ? *look.hue + static_cast<double>(frame.seed % 40) / 1000
                         : static_cast<double>(frame.seed % 360) / 360;
    frame.outline = look.outline;
    frame.antics = look.antics;
    frame.forceTrick = look.forceTrick;
    frame.effort = pet.effort;
    frame.waitingOnKeeper = pet.waitingOnKeeper;
    frame.colors = petColors(frame.hue, look);
    return frame;
}

PetAction actionOnStage(const Pet& pet, const PetLook& look) {
    return look.party ? PetAction::party : pet.action;
}

} // namespace mimkins
