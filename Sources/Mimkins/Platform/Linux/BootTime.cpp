#include "Platform/Linux/BootTime.h"

#include <ctime>

#include <limits>

namespace mimkins {

namespace {

std::optional<double> secondsOf(clockid_t clock) {
    timespec time{};
    if (::clock_gettime(clock, &time) != 0) {
        return std::nullopt;
    }
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

} // namespace

std::optional<Date> bootTime() {
    // The thread may be interrupted between the two clocks; of a few attempts the tightest one counts.
    constexpr int attempts = 5;
    constexpr double tightEnough = 10e-6; // seconds
    double narrowest = std::numeric_limits<double>::infinity();
    std::optional<Date> boot;
    for (int attempt = 0; attempt < attempts && narrowest > tightEnough; ++attempt) {
        const auto before = secondsOf(CLOCK_BOOTTIME);
        const auto wall = secondsOf(CLOCK_REALTIME);
        const auto after = secondsOf(CLOCK_BOOTTIME);
        if (!before || !wall || !after) {
            return std::nullopt;
        }
        if (*after - *before < narrowest) {
            narrowest = *after - *before;
            boot = Date{*wall - (*before + *after) / 2};
        }
    }
    return boot;
}

} // namespace mimkins
