#pragma once

#include "Base/Date.h"
#include "Model/ModelTag.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What is prepared beside the three records: facts from transcripts, processes and repositories.
namespace mimkins {

/// Uncommitted work in a repository.
struct RepoChanges {
    std::int64_t added = 0;   ///< lines
    std::int64_t removed = 0; ///< lines
    std::optional<std::string> branch;
    std::vector<std::string> files; ///< relative to the repository's root

    friend bool operator==(const RepoChanges&, const RepoChanges&) = default;
};

/// A task that the agent has scheduled.
struct ScheduledItem {
    std::string id;
    std::optional<Date> fire; ///< absent for every recurring item
    bool recurring = false;
    std::string prompt;

    friend bool operator==(const ScheduledItem&, const ScheduledItem&) = default;
};

/// Work that goes on after a turn has ended.
struct BackgroundWork {
    std::int64_t commands = 0;
    std::int64_t scheduled = 0;
    std::optional<Date> nextFire;
    std::vector<ScheduledItem> items;

    friend bool operator==(const BackgroundWork&, const BackgroundWork&) = default;
};

/// A tool call without a result.
struct PendingTool {
    std::string name;
    std::optional<std::string> detail;
    std::optional<std::string> command; ///< the call's command, whole
    Date since;

    friend bool operator==(const PendingTool&, const PendingTool&) = default;
};

/// A subagent of a session.
struct Subtask {
    std::string id;
    std::string type;
    std::string description;
    bool running = false;
    Date started;
    Date lastActivity;
    std::optional<std::string> tool;
    std::optional<std::string> detail;
    ModelTag model;
    std::vector<PendingTool> pending;
    bool waitingForOK = false;

    /// The line of text under the name: nothing unless it runs.
    std::optional<std::string> activity() const;

    friend bool operator==(const Subtask&, const Subtask&) = default;
};

/// A tool call that waits for the user's OK.
struct PendingApproval {
    std::string tool;
    std::optional<std::string> detail;
    Date since;
    std::optional<std::string> subtaskId; ///< set when a subtask made the call

    friend bool operator==(const PendingApproval&, const PendingApproval&) = default;
};

} // namespace mimkins
