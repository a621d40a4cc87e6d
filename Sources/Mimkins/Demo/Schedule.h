#pragma once

#include "Demo/Role.h"
#include "Demo/Script.h"

#include <cstddef>
#include <vector>

namespace mimkins::demo {

/// A crew and how fast its days go by. Days follow each other without an end.
struct Schedule {
    std::size_t sessions = 8;
    double speed = 60;         ///< seconds of the day in a real second
    double betweenStarts = 15; ///< seconds of the day from the arrival of one session to that of the next
};

/// A step that is due.
struct Happening {
    double at = 0; ///< real seconds since the beginning
    Appearance appearance;
    const Act* act = nullptr; ///< of the script
    const Step* step = nullptr;

    friend bool operator==(const Happening&, const Happening&) = default;
};

/// What happens from one moment on and before another, both in real seconds since the beginning, in the order
/// of time. The cost follows the number of sessions and of what happens.
std::vector<Happening> happenings(const Schedule& schedule, double from, double to);

/// The acts of a member's day in the order in which it plays them, arrival and departure included.
std::vector<const Act*> dayOf(std::size_t member);

} // namespace mimkins::demo
