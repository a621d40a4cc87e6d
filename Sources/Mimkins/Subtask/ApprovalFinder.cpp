#include "Subtask/ApprovalFinder.h"

#include "Base/Text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace mimkins {

namespace {

void observe(std::int32_t pid, const Processes& processes, std::vector<ObservedProcess>& observed) {
    if (const auto started = processes.started(pid)) {
        // Squashing drops the NUL bytes between the arguments as it drops blanks, and repairs the text.
        observed.push_back({text::squash(processes.arguments(pid)), *started});
    }
}

bool isJudged(const ApprovalSubject& session) {
    return !session.hasOtherAgent && session.client && session.client->pid >= 1 && session.transcript;
}

} // namespace

std::vector<ObservedProcess> processesUnder(std::int32_t pid, const Processes& processes) {
    std::vector<ObservedProcess> observed;
    for (const auto child : processes.children(pid)) {
        if (child < 1) {
            continue;
        }
        observe(child, processes, observed);
        for (const auto grandchild : processes.children(child)) {
            if (grandchild >= 1) {
                observe(grandchild, processes, observed);
            }
        }
    }
    return observed;
}

ApprovalRound ApprovalFinder::refresh(const std::vector<ApprovalSubject>& sessions, Date now) {
    ApprovalRound round;
    std::set<std::string> current;
    for (const auto& session : sessions) {
        current.insert(session.sessionId);
        if (!isJudged(session)) {
            continue;
        }
        auto verdict = look(session, now);
        if (verdict.approval) {
            round.approvals.insert_or_assign(session.sessionId, *std::move(verdict.approval));
        }
        if (!verdict.waitingSubtasks.empty()) {
            round.waiting.insert_or_assign(session.sessionId, std::move(verdict.waitingSubtasks));
        }
    }
    std::erase_if(mainPending_, [&](const auto& entry) { return !current.contains(entry.first); });
    offers_.clear();
    return round;
}

bool ApprovalFinder::hasOpenCall(const std::string& sessionId) const {
    const auto known = mainPending_.find(sessionId);
    return known != mainPending_.end() && !known->second.tools.empty();
}

ApprovalVerdict ApprovalFinder::look(const ApprovalSubject& session, Date now) {
    const Date started = session.client->started;
    std::vector<CallList> lists;
    if (const auto* tools = mainCalls(session)) {
        lists.push_back({std::nullopt, candidates(*tools, started)});
    }
    for (const auto& subtask : session.subtasks) {
        if (subtask.running) {
            lists.push_back({subtask.id, candidates(subtask.pending, started)});
        }
    }
    if (std::all_of(lists.begin(), lists.end(), [](const CallList& list) { return list.calls.empty(); })) {
        return {};
    }
    return judge(lists, processesUnder(session.client->pid, *processes_), now);
}

void ApprovalFinder::offer(
    const std::string& transcript, const FileStamp& stamp, std::vector<PendingTool> tools
) {
    offers_.insert_or_assign(transcript, Offer{stamp, std::move(tools)});
}

const std::vector<PendingTool>* ApprovalFinder::mainCalls(const ApprovalSubject& session) {
    const auto stamp = files_->stamp(*session.transcript);
    if (!stamp) {
        return nullptr;
    }
    const auto known = mainPending_.find(session.sessionId);
    if (known != mainPending_.end() && known->second.modified == stamp->modified) {
        return &known->second.tools;
    }
    MainCalls calls{stamp->modified, readCalls(*session.transcript, *stamp)};
    return &mainPending_.insert_or_assign(session.sessionId, std::move(calls)).first->second.tools;
}

std::vector<PendingTool> ApprovalFinder::readCalls(const std::string& transcript, const FileStamp& stamp) {
    const auto offer = offers_.find(transcript);
    if (offer != offers_.end() && offer->second.stamp == stamp) {
        return offer->second.tools;
    }
    auto facts = reader_.facts(transcript, stamp.modified.date());
    return facts ? std::move(facts->pending) : std::vector<PendingTool>();
}

} // namespace mimkins
