#pragma once

#include "Base/Date.h"
#include "Session/Sources.h"

#include <optional>
#include <string>

namespace mimkins {

/// What an agent reports of one of its sessions. The record's own times are not used.
struct Report {
    StatusRecord record;         ///< an empty event stands for "Report"
    std::optional<double> since; ///< milliseconds since 1970; kept while the state stays when absent
    std::optional<double> ts;    ///< milliseconds since 1970; the present when absent
};

/// The file name of a session's record: readable, safe, and different for different ids.
std::string reportFileName(const std::string& id);

/// One line that says what is wrong with the report, or nothing if it can be written.
std::optional<std::string> problemOf(const Report& report);

/// The record to write. `previous` is the session's record so far, if it has one.
StatusRecord recordOf(const Report& report, const std::optional<StatusRecord>& previous, Date now);

/// The record as it stands in its file: a JSON object in one line with a line feed.
std::string statusFileText(const StatusRecord& record);

} // namespace mimkins
