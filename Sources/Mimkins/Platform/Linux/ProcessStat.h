#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace mimkins {

/// What is needed of /proc/PID/stat.
struct ProcessStat {
    std::int32_t pid = 0;
    char state = '?';
    std::int32_t parent = 0;
    std::uint64_t startTicks = 0; ///< clock ticks from the machine's start to the process's

    /// True for a process that has ended and only waits for its parent to notice.
    bool hasEnded() const { return state == 'Z' || state == 'X' || state == 'x'; }

    friend bool operator==(const ProcessStat&, const ProcessStat&) = default;
};

/// Reads the one line of /proc/PID/stat. The command's name, which stands in parentheses, may hold blanks,
/// parentheses and line ends. Nothing if a field is missing or isn't a number.
std::optional<ProcessStat> parseProcessStat(std::string_view line);

} // namespace mimkins
