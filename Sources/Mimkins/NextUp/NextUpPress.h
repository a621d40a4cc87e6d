#pragma once

#include "Base/Date.h"
#include "Session/Session.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace mimkins::NextUp {

/// How long after a press another one opens what the first has shown, seconds.
inline constexpr double openWindow = 4;
/// How long the shown session stays pointed at, seconds.
inline constexpr double highlightSpan = 4.2;

/// The session that another press opens, and until when.
struct PendingOpen {
    std::string id;
    Date until;

    friend bool operator==(const PendingOpen&, const PendingOpen&) = default;
};

/// What the walk through the queue remembers from press to press.
struct Memory {
    std::optional<std::string> lastNextUp; ///< the session that was shown last
    std::optional<PendingOpen> pendingOpen;

    friend bool operator==(const Memory&, const Memory&) = default;
};

/// What a press of the shortcut does.
struct Press {
    enum class Kind {
        nothingWaits, ///< nobody needs the user
        show,         ///< points at a session
        open,         ///< opens the session that was shown
    };

    Kind kind = Kind::nothingWaits;
    std::optional<Session> session; ///< unless nothing waits
    std::size_t others = 0;         ///< sessions that wait besides the one shown
    Memory memory;                  ///< for the next press

    friend bool operator==(const Press&, const Press&) = default;
};

/// One press at a moment. Sessions that can't be opened aren't offered. A press within the window opens the
/// session of the press before; one after it goes on to the next, and round from the last to the first.
Press press(const Memory& memory, const std::vector<Session>& sessions, Date now);

} // namespace mimkins::NextUp
