#pragma once

#include <functional>
#include <string_view>

/// What the bytes of a transcript's line tell before it is parsed. A key or a word stands in a line as it is,
/// unless it is spelled with an escape of a character's number.
namespace mimkins {

struct Glance {
    bool call = false;   ///< may hold "tool_use" or "tool_result", or a character by its number
    bool effort = false; ///< may hold "effort"
};

/// Looks at a line, but no further than to where a call may be.
Glance glanceAt(std::string_view line);

/// True if a line can tell nothing but calls, all of whose ids are answered, or isn't JSON: no result, no
/// handback, nothing spelled by a character's number, and no effort unless one is known.
bool holdsOnlyCalls(
    std::string_view line, bool isEffortKnown, const std::function<bool(std::string_view id)>& isAnswered
);

/// The same for every processor. Those above use AVX2 where there is any.
Glance glanceAtPortably(std::string_view line);
bool holdsOnlyCallsPortably(
    std::string_view line, bool isEffortKnown, const std::function<bool(std::string_view id)>& isAnswered
);

} // namespace mimkins
