#pragma once

#include "Base/Date.h"
#include "Session/Facts.h"
#include "Session/Session.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// What is left before the user logs off.
struct SweepReport {
    /// A repository with uncommitted lines, known by its root.
    struct RepoLine {
        std::string root;
        RepoChanges changes;
        std::string sessionTitle;
        std::string localId;

        friend bool operator==(const RepoLine&, const RepoLine&) = default;
    };

    struct ScheduledLine {
        ScheduledItem item;
        std::string sessionTitle;
        std::optional<std::string> localId;

        friend bool operator==(const ScheduledLine&, const ScheduledLine&) = default;
    };

    /// A session with background commands.
    struct RunningLine {
        std::string sessionTitle;
        std::optional<std::string> localId;
        std::int64_t commands = 0;

        friend bool operator==(const RunningLine&, const RunningLine&) = default;
    };

    Date generated; ///< when the sweep started
    std::vector<Session> waiting;
    std::vector<RepoLine> repos;
    std::vector<ScheduledLine> scheduled;
    std::vector<RunningLine> running;

    friend bool operator==(const SweepReport&, const SweepReport&) = default;
};

} // namespace mimkins
