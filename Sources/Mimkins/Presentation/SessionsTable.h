#pragma once

#include "Presentation/Table.h"
#include "Session/Session.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mimkins {

struct SessionsTableMoment {
    Date now;
    std::uint64_t shuffle = 0; ///< as pet names are shuffled
};

/// The sessions as a table for a terminal, with the summary below; the words of the empty state without any.
std::string sessionsTable(
    const std::vector<Session>& sessions, const SessionsTableMoment& moment, const TableStyle& style
);

} // namespace mimkins
