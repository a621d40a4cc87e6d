#include "Presentation/Spring.h"

#include <cmath>
#include <numbers>

namespace mimkins {

void Spring::jump(double value) {
    value_ = value;
    target_ = value;
    velocity_ = 0;
}

namespace {

/// An offset from the target, and how fast it changes.
struct Swing {
    double offset = 0;
    double velocity = 0;
};

/// Damped just so much that it doesn't swing.
Swing settle(const Swing& from, double natural, double seconds) {
    const double lead = from.velocity + natural * from.offset;
    const double fading = std::exp(-natural * seconds);
    const double offset = fading * (from.offset + lead * seconds);
    return {offset, fading * lead - natural * offset};
}

Swing swingOn(const Swing& from, double natural, double damping, double seconds) {
    const double decay = damping * natural;
    const double swing = natural * std::sqrt(1 - damping * damping);
    const double lead = (from.velocity + decay * from.offset) / swing;
    const double fading = std::exp(-decay * seconds);
    const double cosine = std::cos(swing * seconds);
    const double sine = std::sin(swing * seconds);
    return {
        fading * (from.offset * cosine + lead * sine),
        fading *
            ((lead * swing - decay * from.offset) * cosine - (from.offset * swing + decay * lead) * sine)};
}

} // namespace

bool Spring::step(double seconds, SpringFeel feel) {
    if (atRest()) {
        return false;
    }
    const double natural = 2 * std::numbers::pi / feel.response;
    const Swing from{value_ - target_, velocity_};
    const Swing next =
        feel.damping < 1 ? swingOn(from, natural, feel.damping, seconds) : settle(from, natural, seconds);
    velocity_ = next.velocity;
    value_ = target_ + next.offset;
    if (std::abs(next.offset) < grain_ && std::abs(velocity_) < grain_ * natural) {
        jump(target_);
        return false;
    }
    return true;
}

} // namespace mimkins
