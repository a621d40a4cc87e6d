#pragma once

#include "Session/Session.h"

#include <cstdint>
#include <vector>

namespace mimkins {

/// What the edge tab says: how many sessions want the user, and whether one of them is blocked.
struct EdgeTabBadge {
    bool blocked = false;   ///< a session is held up by the user
    std::int64_t count = 0; ///< of the blocked sessions, or else of those with a new reply; 0 shows none

    friend bool operator==(const EdgeTabBadge&, const EdgeTabBadge&) = default;
};

EdgeTabBadge edgeTabBadge(const std::vector<Session>& sessions);

} // namespace mimkins
