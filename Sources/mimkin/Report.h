#pragma once

#include "Base/Date.h"
#include "Session/Sources.h"

#include <optional>
#include <string>

namespace mimkins {

/// What an agent reports of one of its sessions; absent fields are left out of the record.
struct Report {
    std::string agent;
    std::string id;
    std::string state;
    std::optional<std::string> event;
    std::optional<std::string> tool;
    std::optional<std::string> detail;
    std::optional<std::string> message;
    std::optional<std::string> notification;
    std::optional<std::string> cwd;
    std::optional<std::string> project;
    std::optional<std::string> transcript;
    std::optional<std::string> effort;
    std::optional<std::string> model;
    std::optional<std::string> title;
    std::optional<std::int32_t> pid;
    std::optional<std::string> open;
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
