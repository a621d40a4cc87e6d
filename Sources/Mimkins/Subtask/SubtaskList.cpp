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
    Cache seen;
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
    cache_ = std::move(seen);
    return result;
}

std::vector<Subtask> SubtaskList::readFolder(const std::string& folder, Date now, Cache& seen) {
    std::vector<Subtask> subtasks;
    for (const auto& name : files_->list(folder)) {
        if (text::pathExtension(name) != "jsonl") {
            continue;
        }
        const std::string path = std::string(folder).append("/").append(name);
        const auto modified = files_->modified(path);
        const Date date = modified ? modified->date() : Date::distantPast();
        if (!(now - date < SubtaskReader::longestSilence)) {
            continue;
        }
        const auto known = cache_.find(path);
        const bool isSettled =
            known != cache_.end() && known->second.modified == modified && !known->second.subtask.running;
        Subtask subtask = isSettled ? known->second.subtask : reader_.read(path, date, now);
        seen[path] = Known{modified, subtask};
        subtasks.push_back(std::move(subtask));
    }
    return subtasks;
}

} // namespace mimkins
