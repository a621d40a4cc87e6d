#pragma once

#include "Session/Session.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mimkins {

/// What the edge tab says: how many sessions want the user, and whether one of them is blocked.
struct EdgeTabBadge {
    bool blocked = false;   ///< a session is held up by the user
    std::int64_t count = 0; ///< of the blocked sessions, or else of those with a new reply; 0 shows none

    friend bool operator==(const EdgeTabBadge&, const EdgeTabBadge&) = default;
};

/// The badge in words, such as "2 waiting on you"; "Nobody waits on you" without one.
std::string edgeTabWords(const EdgeTabBadge& badge);

EdgeTabBadge edgeTabBadge(const std::vector<Session>& sessions);

} // namespace mimkins
