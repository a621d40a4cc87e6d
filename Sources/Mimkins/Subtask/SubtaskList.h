#pragma once

#include "Base/Date.h"
#include "Platform/FileSystem.h"
#include "Platform/KeptReading.h"
#include "Session/Facts.h"
#include "Subtask/SubtaskReader.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace mimkins {

/// Session ids with their subtasks in display order. A session without subtasks has no entry.
using SubtaskMap = std::map<std::string, std::vector<Subtask>>;

/// Session ids with the ids of those subtasks that wait for the user's OK.
using WaitingSubtasks = std::map<std::string, std::set<std::string>>;

/// A session and where its subagents write.
struct SubtaskFolder {
    std::string sessionId;
    std::optional<std::string> path; ///< nothing if it isn't known
};

/// Running subtasks before finished ones, and in each group the latest active first; else the order stays.
void sortForDisplay(std::vector<Subtask>& subtasks);

/// The same subtasks, each waiting exactly if its id is among those given.
SubtaskMap markWaiting(SubtaskMap subtasks, const WaitingSubtasks& waiting);

/// Reads the subtasks of all sessions. Their files are read again only when they change; whether a subtask
/// runs is judged each time, since it depends on the present time.
class SubtaskList {
public:
    /// `files` outlives the list.
    explicit SubtaskList(const FileSystem& files) : files_(&files), reader_(files) {}

    /// The subtasks that have shown life within the last half hour. Those still running take over from
    /// `current` whether they wait for the user's OK.
    SubtaskMap reload(const std::vector<SubtaskFolder>& folders, const SubtaskMap& current, Date now);

private:
    struct Known {
        std::optional<FileTime> modified;
        Subtask subtask;
        // What a running one was made from.
        KeptReading<SubtaskMetadata> metadata;
        KeptReading<TranscriptFacts> transcript;
    };

    using Cache = std::map<std::string, Known>;
    using Names = KeptReading<std::vector<std::string>>;

    struct Seen {
        Cache subtasks;
        std::map<std::string, Names> folders;
    };

    std::vector<Subtask> readFolder(const std::string& folder, Date now, Seen& seen);
    Names transcriptNames(const std::string& folder, Date now);
    Subtask look(const std::string& path, const std::optional<FileStamp>& stamp, Date now, Seen& seen);
    Subtask read(const std::string& path, const std::optional<FileStamp>& stamp, Known& known, Date now);

    const FileSystem* files_;
    SubtaskReader reader_;
    /// What the last round saw, by the paths of transcripts and of folders.
    Seen last_;
};

} // namespace mimkins
