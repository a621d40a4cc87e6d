#include "Subtask/SubtaskList.h"

#include "Base/Text.h"

#include <algorithm>
#include <utility>

namespace mimkins {

namespace {

void takeOverWaiting(std::vector<Subtask>& subtasks, const std::vector<Subtask>& before) {
    for (auto& subtask : subtasks) {
        const auto same = std::find_if(before.begin(), before.end(), [&](const Subtask& candidate) {
            return candidate.id == subtask.id;
        });
        subtask.waitingForOK = subtask.running && same != before.end() && same->waitingForOK;
    }
}

} // namespace

void sortForDisplay(std::vector<Subtask>& subtasks) {
    std::stable_sort(subtasks.begin(), subtasks.end(), [](const Subtask& left, const Subtask& right) {
        if (left.running != right.running) {
            return left.running;
        }
        return left.lastActivity > right.lastActivity;
    });
}

SubtaskMap markWaiting(SubtaskMap subtasks, const WaitingSubtasks& waiting) {
    for (auto& [session, list] : subtasks) {
        const auto ids = waiting.find(session);
        for (auto& subtask : list) {
            subtask.waitingForOK = ids != waiting.end() && ids->second.contains(subtask.id);
        }
    }
    return subtasks;
}

SubtaskMap
SubtaskList::reload(const std::vector<SubtaskFolder>& folders, const SubtaskMap& current, Date now) {
    SubtaskMap result;
    Seen seen;
    for (const auto& folder : folders) {
        if (!folder.path) {
            continue;
        }
        auto subtasks = readFolder(*folder.path, now, seen);
        if (subtasks.empty()) {
            continue;
        }
        const auto before = current.find(folder.sessionId);
        takeOverWaiting(subtasks, before == current.end() ? std::vector<Subtask>() : before->second);
        sortForDisplay(subtasks);
        result[folder.sessionId] = std::move(subtasks);
    }
    last_ = std::move(seen);
    return result;
}

SubtaskList::Names SubtaskList::transcriptNames(const std::string& folder, Date now) {
    const auto stamp = files_->stamp(folder);
    const auto known = last_.folders.find(folder);
    if (known != last_.folders.end() && known->second.holdsFor(stamp)) {
        return known->second;
    }
    auto names = files_->list(folder);
    // A folder without any names may be one that couldn't be listed for a moment.
    const auto listed = names.empty() ? std::nullopt : stamp;
    std::erase_if(names, [](const auto& name) { return text::pathExtension(name) != "jsonl"; });
    Names kept;
    kept.take(std::move(names), listed, now);
    return kept;
}

std::vector<Subtask> SubtaskList::readFolder(const std::string& folder, Date now, Seen& seen) {
    std::vector<Subtask> subtasks;
    const auto& names = seen.folders.insert_or_assign(folder, transcriptNames(folder, now)).first->second;
    for (const auto& name : names.value()) {
        const std::string path = std::string(folder).append("/").append(name);
        const auto stamp = files_->stamp(path);
        const Date modified = stamp ? stamp->modified.date() : Date::distantPast();
        if (now - modified < SubtaskReader::longestSilence) {
            subtasks.push_back(look(path, stamp, now, seen));
        }
    }
    return subtasks;
}

Subtask
SubtaskList::look(const std::string& path, const std::optional<FileStamp>& stamp, Date now, Seen& seen) {
    // Sessions may share a folder, so that one has been here before in this round.
    auto known = seen.subtasks.extract(path);
    if (known.empty()) {
        known = last_.subtasks.extract(path);
    }
    if (known.empty()) {
        known = Cache{{path, Known()}}.extract(path);
    }
    Known& kept = known.mapped();
    const bool isSettled = stamp && kept.modified == stamp->modified && !kept.subtask.running;
    if (!isSettled) {
        kept.subtask = read(path, stamp, kept, now);
        kept.modified = stamp ? std::optional(stamp->modified) : std::nullopt;
    }
    return seen.subtasks.insert(std::move(known)).position->second.subtask;
}

Subtask
SubtaskList::read(const std::string& path, const std::optional<FileStamp>& stamp, Known& known, Date now) {
    const auto beside = metadataPath(path);
    const auto besideStamp = files_->stamp(beside);
    if (!known.metadata.holdsFor(besideStamp)) {
        auto metadata = reader_.metadata(beside);
        const auto read = metadata ? besideStamp : std::nullopt;
        known.metadata.take(std::move(metadata).value_or(SubtaskMetadata()), read, now);
    }
    const Date modified = stamp ? stamp->modified.date() : Date::distantPast();
    if (!known.transcript.holdsFor(stamp)) {
        auto facts = reader_.facts(path, modified);
        const auto read = facts ? stamp : std::nullopt;
        known.transcript.take(std::move(facts).value_or(TranscriptFacts()), read, now);
    }
    SubtaskFacts facts{known.metadata.value(), std::nullopt, known.transcript.value()};
    if (besideStamp) {
        facts.metadataTime = besideStamp->modified;
    }
    return subtaskOf(path, std::move(facts), modified, now);
}

} // namespace mimkins
