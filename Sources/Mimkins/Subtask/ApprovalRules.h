#pragma once

#include "Base/Date.h"
#include "Session/Facts.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// How an open tool call is judged from outside: does it wait for the user's OK, or is it at work?
namespace mimkins {

/// A process under the client's.
struct ObservedProcess {
    std::string args; ///< the squashed arguments
    Date started;

    friend bool operator==(const ObservedProcess&, const ObservedProcess&) = default;
};

/// The open calls of a session itself or of one of its subtasks, in call order.
struct CallList {
    std::optional<std::string> subtaskId; ///< set when a subtask made the calls
    std::vector<PendingTool> calls;
};

/// What a session waits for.
struct ApprovalVerdict {
    std::optional<PendingApproval> approval;
    std::set<std::string> waitingSubtasks;

    friend bool operator==(const ApprovalVerdict&, const ApprovalVerdict&) = default;
};

/// A call is given this many seconds to show a result or a process.
inline constexpr double approvalGrace = 10;

/// True for the tools that can ask the user before they run.
bool isPromptable(std::string_view tool);

/// Only the calls that may still wait: of promptable tools, and made since the client process started.
std::vector<PendingTool> candidates(const std::vector<PendingTool>& calls, Date clientStarted);

/// True if a process shows that the call has begun: one whose arguments hold the beginning of the command, or
/// any that started about when the call was made or later.
bool isRunning(const PendingTool& call, const std::vector<ObservedProcess>& processes);

/// Judges the candidates of one session, its own first and then its subtasks in order. The first list that
/// waits names the approval; all subtasks that wait are told.
ApprovalVerdict
judge(const std::vector<CallList>& lists, const std::vector<ObservedProcess>& processes, Date now);

} // namespace mimkins
