#pragma once

#include "Background/MarkerSearch.h"
#include "Background/Tally.h"
#include "Base/Date.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace mimkins {

/// The time of a line as it is written in it: ISO 8601 with or without a fraction of a second.
std::optional<Date> parseDate(std::string_view text);

/// The prompt of a scheduling call from the piece of a JSON string that the transcript pattern cuts out. A
/// cut through an escape sequence leaves no valid JSON; then only the most common escapes are undone.
std::string decodePrompt(std::string_view raw);

/// Reads single lines of a transcript. One reader serves one thread.
class TranscriptLineReader {
public:
    TranscriptLineReader();
    ~TranscriptLineReader();

    /// Begins a run of lines: the user's time zone is looked up anew when a schedule first asks for it.
    void begin();

    /// Adds to the tally what the line tells. The line comes without its newline and holds just the given
    /// markers. `now` stands in for the time of a line that bears none. Lines over `longestLine`
    /// are passed over.
    void read(std::string_view line, Markers markers, Date now, Tally& tally);

private:
    struct Matchers;
    std::unique_ptr<Matchers> matchers_;
};

} // namespace mimkins
