#pragma once

#include "Base/Date.h"
#include "Base/Json.h"
#include "Model/ModelTag.h"
#include "Platform/FileSystem.h"
#include "Session/Facts.h"
#include "Subtask/TranscriptFacts.h"
#include "Subtask/TranscriptTail.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// What the metadata file beside a subagent's transcript says.
struct SubtaskMetadata {
    std::string type = "agent";
    std::string description = "Subagent";

    friend bool operator==(const SubtaskMetadata&, const SubtaskMetadata&) = default;
};

/// What the files of a subtask say, whatever the time.
struct SubtaskFacts {
    SubtaskMetadata metadata;
    std::optional<FileTime> metadataTime; ///< nothing without a metadata file
    TranscriptFacts transcript;
};

/// The path of the metadata file beside a transcript.
std::string metadataPath(const std::string& transcript);

/// The subtask that writes a transcript, as of `now`. `modified` is the transcript's modification date.
Subtask subtaskOf(const std::string& transcript, SubtaskFacts facts, Date modified, Date now);

/// Reads the text of a metadata file. What is missing, or has the wrong type, keeps its default.
SubtaskMetadata subtaskMetadata(std::string_view json);

/// Reads transcripts by their ends, so that a long one costs no more than a short one. A file that can't be
/// read counts as empty. Not for several threads at once: the parser's memory is used again for each line.
class SubtaskReader {
public:
    /// How much of a transcript's end is read. Nothing older plays a part.
    static constexpr std::size_t tailBytes = 65'536;
    /// Seconds of silence that end every subtask, and after which it isn't listed any more.
    static constexpr double longestSilence = 1'800;

    /// `files` outlives the reader.
    explicit SubtaskReader(const FileSystem& files) : files_(&files) {}

    /// The subtask that writes this transcript. `modified` is the transcript's modification date.
    Subtask read(const std::string& transcript, Date modified, Date now);

    /// What the metadata file at the path says; nothing if it can't be read.
    std::optional<SubtaskMetadata> metadata(const std::string& path) const;

    /// What the end of a transcript says; nothing if it can't be read. `modified` is its modification date.
    std::optional<TranscriptFacts> facts(const std::string& transcript, Date modified);

    /// The last complete lines of a file; none if it can't be read.
    TranscriptTail tail(const std::string& path, std::size_t bytes) const;

    /// The calls without a result, in call order. `fallback` is the time of a call whose line has none.
    std::vector<PendingTool> pendingTools(const TranscriptTail& lines, Date fallback);

private:
    const FileSystem* files_;
    json::Parser parser_;
};

} // namespace mimkins
