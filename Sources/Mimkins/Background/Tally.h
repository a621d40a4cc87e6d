#pragma once

#include "Base/Date.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace mimkins {

/// A scheduled task as its announcement told it.
struct ScheduledTask {
    Date created; ///< the time of the announcing line
    std::optional<Date> fire;
    bool recurring = false;
    std::string prompt;

    friend bool operator==(const ScheduledTask&, const ScheduledTask&) = default;
};

/// What is known from one transcript up to a position in it.
struct Tally {
    /// The position up to which complete lines have been consumed, in bytes.
    std::uint64_t offset = 0;
    /// When each background task was announced, by its id.
    std::map<std::string, Date> started;
    /// The ids of tasks that have ended.
    std::set<std::string> finished;
    /// The scheduled tasks by their ids.
    std::map<std::string, ScheduledTask> crons;
    /// The prompts given to scheduling calls, by the call's id.
    std::map<std::string, std::string> prompts;
    /// The ids of scheduled tasks that were deleted.
    std::set<std::string> deletedCrons;
    /// True while `offset` lies inside a line whose rest is to be skipped.
    bool startsMidLine = false;

    friend bool operator==(const Tally&, const Tally&) = default;
};

} // namespace mimkins
