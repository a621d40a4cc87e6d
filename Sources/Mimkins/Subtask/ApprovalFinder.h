#pragma once

#include "Base/Date.h"
#include "Platform/FileSystem.h"
#include "Platform/Processes.h"
#include "Session/Facts.h"
#include "Subtask/ApprovalRules.h"
#include "Subtask/SubtaskList.h"
#include "Subtask/SubtaskReader.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mimkins {

/// What is known of one session when its approvals are looked for.
struct ApprovalSubject {
    /// The client process that runs the session, as the registry has it.
    struct Client {
        std::int32_t pid = 0;
        Date started;
    };

    std::string sessionId;
    /// True for a session of an agent other than Claude Code, whose transcript nobody reads.
    bool hasOtherAgent = false;
    std::optional<Client> client;          ///< nothing without a registry entry
    std::optional<std::string> transcript; ///< nothing if its path isn't known
    std::span<const Subtask> subtasks;     ///< in display order; owned by the caller
};

/// What one round found.
struct ApprovalRound {
    std::map<std::string, PendingApproval> approvals; ///< by session id
    WaitingSubtasks waiting;

    friend bool operator==(const ApprovalRound&, const ApprovalRound&) = default;
};

/// The processes under a client: its children and theirs, two levels and no deeper. One that ends while it is
/// looked at is left out.
std::vector<ObservedProcess> processesUnder(std::int32_t pid, const Processes& processes);

/// Finds the tool calls that wait for the user's OK. A session's transcript is read again only when it has
/// changed, and processes are asked only when a call may wait.
class ApprovalFinder {
public:
    /// Both outlive the finder.
    ApprovalFinder(const FileSystem& files, const Processes& processes)
        : files_(&files), processes_(&processes), reader_(files) {}

    /// Looks at all current sessions, in order. What is remembered of others is dropped.
    ApprovalRound refresh(const std::vector<ApprovalSubject>& sessions, Date now);

    /// Tells the open calls of a session's own transcript as somebody has just read them. The next round
    /// takes them instead of reading the file again, if it is still the same.
    void offer(const std::string& transcript, const FileStamp& stamp, std::vector<PendingTool> tools);

    /// True if the session's own transcript had a call without a result in the last round, whatever its tool
    /// and age.
    bool hasOpenCall(const std::string& sessionId) const;

private:
    struct MainCalls {
        FileTime modified;
        std::vector<PendingTool> tools;
    };

    ApprovalVerdict look(const ApprovalSubject& session, Date now);
    const std::vector<PendingTool>* mainCalls(const ApprovalSubject& session);

    const FileSystem* files_;
    const Processes* processes_;
    SubtaskReader reader_;
    /// By session id: the open calls of its own transcript as of that time of change.
    std::map<std::string, MainCalls> mainPending_;

    struct Offer {
        FileStamp stamp;
        std::vector<PendingTool> tools;
    };

    std::vector<PendingTool> readCalls(const std::string& transcript, const FileStamp& stamp);

    /// What was offered since the last round, by the transcript's path.
    std::map<std::string, Offer> offers_;
};

} // namespace mimkins
