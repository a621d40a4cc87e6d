#include "Base/Lookup.h"
#include "SessionStore/SessionStore.h"
#include "SessionStore/TranscriptLocation.h"
#include "Sweep/RepositoryCheck.h"

#include <utility>

namespace mimkins {

// What transcripts, processes and repositories add to the three records.

std::optional<std::string> SessionStore::transcriptPath(const std::string& id) const {
    return mimkins::transcriptPath(paths_, id, lookup(records_, id), lookup(registry_, id));
}

std::optional<std::string> SessionStore::subagentsFolder(const std::string& id) const {
    return mimkins::subagentsFolder(paths_, id, lookup(records_, id), lookup(registry_, id));
}

const ModelTag* SessionStore::transcriptModel(const std::string& id) const {
    const auto* read = lookup(transcriptModels_, id);
    return read != nullptr ? &read->tag : nullptr;
}

void SessionStore::reloadTranscriptModels() {
    std::map<std::string, TranscriptModel> live;
    for (const auto& session : sessions_) {
        const auto* app = lookup(appInfo(), session.id);
        const auto path =
            session.agent || (app != nullptr && app->model) ? std::nullopt : transcriptPath(session.id);
        const auto stamp = path ? services_.files.stamp(*path) : std::nullopt;
        if (!stamp) {
            continue;
        }
        const auto known = transcriptModels_.find(session.id);
        if (known != transcriptModels_.end() && known->second.modified == stamp->modified) {
            live.insert(transcriptModels_.extract(known));
        } else {
            live.insert_or_assign(session.id, TranscriptModel{stamp->modified, readModel(*path, *stamp)});
        }
    }
    transcriptModels_ = std::move(live);
}

ModelTag SessionStore::readModel(const std::string& transcript, const FileStamp& stamp) {
    auto facts = transcriptReader_.facts(transcript, stamp.modified.date());
    if (!facts) {
        return {};
    }
    approvalFinder_.offer(transcript, stamp, std::move(facts->pending));
    return std::move(facts->model);
}

void SessionStore::assignSubtasks(SubtaskMap subtasks) {
    if (subtasks != subtasks_) {
        subtasks_ = std::move(subtasks);
        subtasksChanged_.emit();
    }
}

void SessionStore::reloadSubtasks() {
    std::vector<SubtaskFolder> folders;
    folders.reserve(sessions_.size());
    for (const auto& session : sessions_) {
        folders.push_back({session.id, subagentsFolder(session.id)});
    }
    assignSubtasks(subtaskList_.reload(folders, subtasks_, services_.loop.now()));
}

std::vector<ApprovalSubject> SessionStore::approvalSubjects() const {
    std::vector<ApprovalSubject> subjects;
    subjects.reserve(sessions_.size());
    for (const auto& session : sessions_) {
        ApprovalSubject subject;
        subject.sessionId = session.id;
        subject.hasOtherAgent = session.agent.has_value();
        if (const auto* entry = lookup(registry_, session.id)) {
            subject.client = ApprovalSubject::Client{entry->pid, entry->started};
        }
        subject.transcript = transcriptPath(session.id);
        if (const auto* tasks = lookup(subtasks_, session.id)) {
            subject.subtasks = *tasks;
        }
        subjects.push_back(std::move(subject));
    }
    return subjects;
}

void SessionStore::refreshApprovals() {
    auto round = approvalFinder_.refresh(approvalSubjects(), services_.loop.now());
    assignSubtasks(markWaiting(subtasks_, round.waiting));
    if (round.approvals != approvals_) {
        approvals_ = std::move(round.approvals);
        rebuild(true);
    }
}

std::optional<std::string> SessionStore::repoRoot(const std::string& id) const {
    return mimkins::repoRoot(lookup(records_, id), lookup(appInfo(), id), lookup(registry_, id));
}

RootOf SessionStore::rootOf() const {
    return [this](const std::string& id) { return repoRoot(id); };
}

std::optional<RepoChanges> SessionStore::ownedChanges(const std::string& id) const {
    return repositories_.ownedChanges(id, sessions_, rootOf());
}

void SessionStore::refreshRepos() {
    for (const auto& root : repositories_.due(sessions_, rootOf(), services_.loop.now())) {
        startCheck(root);
    }
}

RepositoryCheck SessionStore::repositoryCheck(const std::string& root) const {
    RepositoryCheck check;
    check.root = root;
    for (const auto& id : sessionsSharing(root, sessions_, rootOf())) {
        const auto folder = subagentsFolder(id);
        const auto names = folder ? services_.files.list(*folder) : std::vector<std::string>();
        check.sessions.push_back({id, transcripts(transcriptPath(id), folder, names)});
    }
    return check;
}

void SessionStore::startCheck(const std::string& root) {
    repositories_.begin(root);
    const std::weak_ptr<const bool> alive = alive_;
    services_.repositoryQueue.async([this, alive, services = services_, check = repositoryCheck(root)] {
        auto result = checkRepository(check, services.git, services.transcripts);
        services.loop.post([this, alive, root = check.root, result = std::move(result)] {
            // Both this and the store's end happen on the main thread, so the answer holds.
            if (!alive.expired() && repositories_.finish(root, result, services_.loop.now())) {
                rebuild(true);
            }
        });
    });
}

} // namespace mimkins
