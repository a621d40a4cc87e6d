#pragma once

#include "Session/Session.h"
#include "Session/Sources.h"

#include <map>
#include <string>
#include <vector>

namespace mimkins {

/// When each listed session was first seen.
using FirstSeen = std::map<std::string, Date>;

/// Adds the sessions that are new as of `now`, and forgets those that aren't in the list: a session that
/// disappears and returns counts as new.
void noteArrivals(FirstSeen& firstSeen, const std::vector<Session>& list, Date now);

/// The list in display order. All orders are total, so equal sessions never change places.
std::vector<Session> inDisplayOrder(
    std::vector<Session> list, ReorderMode mode, const FirstSeen& firstSeen,
    const std::map<std::string, RegistryEntry>& registry
);

} // namespace mimkins
