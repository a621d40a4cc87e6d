#include "Settings/AppSettings.h"

#include <algorithm>
#include <limits>

namespace mimkins {

namespace {

constexpr double partyLength = 8;     // seconds
constexpr double partyEndDelay = 8.1; // seconds; late enough that the party is over when it is told

constexpr double secondsOf(std::int64_t minutes) {
    return static_cast<double>(minutes) * 60;
}

} // namespace

AppSettings::AppSettings(const Parts& parts)
    : defaults_(parts.defaults), loop_(parts.loop), sounds_(parts.sounds) {}

SessionRules AppSettings::rules() const {
    return {secondsOf(stuckAfterMinutes()), secondsOf(leaveAfterMinutes()), showDone(), reorder()};
}

std::uint64_t AppSettings::petShuffle() const {
    return static_cast<std::uint64_t>(std::max<std::int64_t>(0, shuffle()));
}

void AppSettings::shufflePets() {
    const bool atEnd = shuffle() == std::numeric_limits<std::int64_t>::max();
    shuffle.set(atEnd ? 0 : shuffle() + 1);
}

void AppSettings::throwParty() {
    partyUntil_ = loop_.now() + partyLength;
    const auto number = nextParty_++;
    partyEnds_[number] = loop_.after(partyEndDelay, [this, number] {
        const auto ended = partyEnds_.extract(number);
        changed_.emit(partyKey);
    });
    changed_.emit(partyKey);
}

} // namespace mimkins
