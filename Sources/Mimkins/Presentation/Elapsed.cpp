#include "Presentation/Elapsed.h"

#include <algorithm>
#include <cstdint>

namespace mimkins {

namespace {

constexpr std::int64_t minute = 60;
constexpr std::int64_t hour = 3'600;

/// The largest number of seconds told; a date from outside may lie any distance away.
constexpr double longest = 1e15;

/// Not a number counts as 0 too.
std::int64_t wholeSeconds(double seconds) {
    return seconds > 0 ? static_cast<std::int64_t>(std::min(seconds, longest)) : 0;
}

} // namespace

std::string elapsed(double seconds) {
    const auto whole = wholeSeconds(seconds);
    if (whole < minute) {
        return std::to_string(whole) + "s";
    }
    if (whole < hour) {
        return std::to_string(whole / minute) + "m";
    }
    return std::to_string(whole / hour) + "h " + std::to_string(whole % hour / minute) + "m";
}

} // namespace mimkins
