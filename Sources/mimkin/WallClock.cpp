#include "WallClock.h"

#include <chrono>

namespace mimkins {

Date wallClock() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(now).count();
    return Date::fromMilliseconds(static_cast<double>(milliseconds));
}

} // namespace mimkins
