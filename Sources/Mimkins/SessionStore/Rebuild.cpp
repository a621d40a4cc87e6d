#include "SessionStore/SessionStore.h"

#include "Base/Lookup.h"

#include <algorithm>
#include <set>
#include <utility>

namespace mimkins {

Liveness SessionStore::liveness(const std::string& id, Date now) const {
    LivenessInputs inputs;
    inputs.hook = lookup(records_, id);
    inputs.registered = registry_.contains(id);
    inputs.anyRegistered = !registry_.empty();
    inputs.now = now;
    return livenessOf(inputs, [this](std::int32_t pid) { return services_.processes.isAlive(pid); });
}

bool SessionStore::isLive(const std::string& id, Date now) const {
    return mimkins::isLive(liveness(id, now));
}

SessionInputs SessionStore::inputs(const std::string& id, Date now) const {
    SessionInputs known = inputsWithoutRepo(id, now);
    known.repo = ownedChanges(id);
    return known;
}

SessionInputs SessionStore::inputsWithoutRepo(const std::string& id, Date now) const {
    SessionInputs known;
    known.hook = lookup(records_, id);
    known.registry = lookup(registry_, id);
    known.app = lookup(appInfo(), id);
    if (const auto* tasks = lookup(subtasks_, id)) {
        for (const auto& task : *tasks) {
            if (task.running) {
                ++known.runningSubtasks;
                known.subtasksActive =
                    std::max(known.subtasksActive.value_or(task.lastActivity), task.lastActivity);
            }
        }
    }
    known.background = lookup(background_, id);
    known.rules = rules_;
    known.transcriptModel = transcriptModel(id);
    known.approval = lookup(approvals_, id);
    known.toolPending = approvalFinder_.hasOpenCall(id);
    known.now = now;
    return known;
}

Derivation SessionStore::derive(const std::string& id, Date now) const {
    return deriveSession(inputs(id, now));
}

std::vector<Session> SessionStore::build(Date now) {
    std::set<std::string> ids;
    for (const auto& entry : records_) {
        ids.insert(entry.first);
    }
    for (const auto& entry : registry_) {
        ids.insert(entry.first);
    }
    const auto sharing = sharingCounts(sessions_, rootOf());
    std::vector<Session> built;
    for (const auto& id : ids) {
        if (!isLive(id, now)) {
            continue;
        }
        auto known = inputsWithoutRepo(id, now);
        if (const auto root = repoRoot(id)) {
            const auto* count = lookup(sharing, *root);
            known.repo = repositories_.ownedChanges(id, *root, count != nullptr ? *count : 0);
        }
        if (auto derivation = deriveSession(known); derivation.session) {
            built.push_back(std::move(*derivation.session));
        }
    }
    noteArrivals(firstSeen_, built, now);
    return inDisplayOrder(std::move(built), rules_.reorder, firstSeen_, registry_);
}

void SessionStore::rebuild(bool force) {
    auto list = build(services_.loop.now());
    const bool stillListed =
        expandedId_ && std::any_of(list.begin(), list.end(), [this](const Session& session) {
            return session.id == *expandedId_;
        });
    if (expandedId_ && !stillListed) {
        expandedId_.reset();
    }
    if (!force && list == sessions_) {
        return;
    }
    if (builtOnce_) {
        notifyNewWaiters(list);
    }
    const auto finished = justFinished(list);
    publish(std::move(list));
    checkFinished(finished);
}

std::vector<std::string> SessionStore::justFinished(const std::vector<Session>& list) const {
    std::set<std::string> finishedBefore;
    for (const auto& session : sessions_) {
        if (session.mood == Mood::yourTurn || session.mood == Mood::done ||
            session.mood == Mood::commitWaiting) {
            finishedBefore.insert(session.id);
        }
    }
    std::vector<std::string> ids;
    for (const auto& session : list) {
        const bool finished = session.mood == Mood::yourTurn || session.mood == Mood::done;
        if (finished && finishedBefore.count(session.id) == 0) {
            ids.push_back(session.id);
        }
    }
    return ids;
}

void SessionStore::checkFinished(const std::vector<std::string>& ids) {
    if (ids.empty()) {
        return;
    }
    for (const auto& id : ids) {
        if (const auto root = repoRoot(id)) {
            repositories_.repoCheckedAt.erase(*root);
        }
    }
    refreshRepos();
}

void SessionStore::notifyNewWaiters(const std::vector<Session>& list) const {
    if (!onNeedsKeeper) {
        return;
    }
    std::set<std::string> waitedBefore;
    for (const auto& session : sessions_) {
        if (waitsOnUser(session.mood)) {
            waitedBefore.insert(session.id);
        }
    }
    for (const auto& session : list) {
        if (waitsOnUser(session.mood) && waitedBefore.count(session.id) == 0) {
            onNeedsKeeper(session);
        }
    }
}

void SessionStore::publish(std::vector<Session> list) {
    builtOnce_ = true;
    sessions_ = std::move(list);
    sessionsChanged_.emit();
}

} // namespace mimkins
