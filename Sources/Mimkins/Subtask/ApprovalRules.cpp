#include "Subtask/ApprovalRules.h"

#include "Base/Text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace mimkins {

namespace {

constexpr std::string_view shellTool = "Bash";
constexpr std::size_t keyLength = 48;
constexpr std::size_t longestDetail = 120;
/// A clock that is read at two places may differ by this many seconds.
constexpr double startTolerance = 2;

/// True if one of the calls is a shell command at work.
bool isAtWork(const std::vector<PendingTool>& calls, const std::vector<ObservedProcess>& processes) {
    return std::any_of(calls.begin(), calls.end(), [&](const PendingTool& call) {
        return call.name == shellTool && isRunning(call, processes);
    });
}

PendingApproval approvalFor(const PendingTool& call, const std::optional<std::string>& subtaskId) {
    std::optional<std::string> detail = call.detail;
    if (!detail && call.command) {
        detail = text::prefix(*call.command, longestDetail);
    }
    return {call.name, std::move(detail), call.since, subtaskId};
}

} // namespace

bool isPromptable(std::string_view tool) {
    constexpr std::array<std::string_view, 8> promptable{"Bash",         "Edit", "Write", "MultiEdit",
                                                         "NotebookEdit", "Read", "Grep",  "Glob"};
    return std::find(promptable.begin(), promptable.end(), tool) != promptable.end();
}

std::vector<PendingTool> candidates(const std::vector<PendingTool>& calls, Date clientStarted) {
    std::vector<PendingTool> result;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(result), [&](const PendingTool& call) {
        return isPromptable(call.name) && call.since >= clientStarted;
    });
    return result;
}

bool isRunning(const PendingTool& call, const std::vector<ObservedProcess>& processes) {
    if (processes.empty()) {
        return false;
    }
    const std::string key = text::prefix(text::squash(call.command.value_or("")), keyLength);
    return std::any_of(processes.begin(), processes.end(), [&](const ObservedProcess& process) {
        const bool showsCommand = !key.empty() && process.args.find(key) != std::string::npos;
        return showsCommand || process.started >= call.since - startTolerance;
    });
}

ApprovalVerdict
judge(const std::vector<CallList>& lists, const std::vector<ObservedProcess>& processes, Date now) {
    ApprovalVerdict verdict;
    for (const auto& list : lists) {
        if (list.calls.empty() || isAtWork(list.calls, processes)) {
            continue;
        }
        const PendingTool& first = list.calls.front();
        if (now - first.since < approvalGrace) {
            continue;
        }
        if (!verdict.approval) {
            verdict.approval = approvalFor(first, list.subtaskId);
        }
        if (list.subtaskId) {
            verdict.waitingSubtasks.insert(*list.subtaskId);
        }
    }
    return verdict;
}

} // namespace mimkins
