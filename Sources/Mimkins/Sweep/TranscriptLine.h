#pragma once

#include "Base/Date.h"
#include "Base/Json.h"

#include <optional>
#include <string_view>
#include <vector>

namespace mimkins {

/// What one line of a transcript says of the work on a file.
enum class LineVerdict {
    silent,  ///< nothing
    changes, ///< a tool call changes the file
    tooOld   ///< it was written before the time in question, and so was all that stands before it
};

/// One line of a transcript, read as far as changes to files are concerned. Valid until the parser's next
/// use.
class TranscriptLine {
public:
    /// A line that isn't a JSON object is silent on everything.
    TranscriptLine(std::string_view text, json::Parser& parser);

    /// Whether the line shows a call that changes a file of this name, in whatever folder, at `since` or
    /// later.
    LineVerdict verdict(std::string_view name, Date since) const;

private:
    struct ToolCall {
        std::optional<std::string_view> tool;
        std::optional<std::string_view> path;
        std::optional<std::string_view> command;
    };

    static bool changes(const ToolCall& call, std::string_view name);

    std::optional<Date> written_;
    std::vector<ToolCall> calls_;
};

/// True if one of the commands on a shell's command line names the file and doesn't merely read it.
bool commandChanges(std::string_view commandLine, std::string_view name);

} // namespace mimkins
