#pragma once

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The patterns that a transcript's lines are matched with, and the matching.
namespace mimkins::patterns {

inline constexpr const char16_t* started = uR"~(running in background with ID: ([A-Za-z0-9]+))~";

inline constexpr const char16_t* finished =
    uR"~(<task-id>([A-Za-z0-9]+)</task-id>.{0,600}?<status>(completed|failed|killed|stopped|cancelled|timed_out))~";

inline constexpr const char16_t* stopped =
    uR"~("name":"(?:TaskStop|KillShell|KillBash)","input":\{[^}]*"(?:task_id|shell_id|id)":"([A-Za-z0-9]+)")~";

/// How clients announce a schedule: "Scheduled one-shot task 3fa9 (30 14 2 11 *)".
inline constexpr const char16_t* cron =
    uR"~((?:"tool_use_id":"(toolu_[A-Za-z0-9]+)".{0,400}?)?Scheduled (one-shot|recurring) task ([0-9a-f]+) \(([^)]+)\))~";

/// The other wording of clients, whose parentheses may hold the schedule in words:
/// "Scheduled recurring job 9bce26cc (Every Monday at 9:00 AM)".
inline constexpr const char16_t* cronJob =
    uR"~((?:"tool_use_id":"(toolu_[A-Za-z0-9]+)".{0,400}?)?Scheduled (one-shot|recurring) job ([0-9a-f]+) \(([^)]+)\))~";

inline constexpr const char16_t* cronCreate =
    uR"~("id":"(toolu_[A-Za-z0-9]+)","name":"CronCreate","input":\{"cron":"[^"]*","prompt":"((?:[^"\\]|\\.){0,160}))~";

inline constexpr const char16_t* cronDelete = uR"~("name":"CronDelete","input":\{[^}]*"id":"([0-9a-f]+)")~";

inline constexpr const char16_t* timestamp = uR"~("timestamp":"([^"]+)")~";

/// The groups of one match in UTF-8, from group 1 on; nothing for a group that took no part.
using Groups = std::vector<std::optional<std::string>>;

/// A pattern, compiled once, and its matching over one line after the other. A pattern that doesn't compile
/// ends the program.
class Matcher {
public:
    explicit Matcher(const char16_t* pattern);

    /// The first match, or nothing.
    std::optional<Groups> first(const icu::UnicodeString& line);

    /// Every match, from left to right, none overlapping another.
    std::vector<Groups> all(const icu::UnicodeString& line);

    /// Every match of a pattern whose matches all begin with one of two texts, of which every match holds
    /// `required`. The same as `all`, but only the places where a match can begin are tried.
    std::vector<Groups> allBeginningWith(
        const icu::UnicodeString& line, const icu::UnicodeString& optional, const icu::UnicodeString& required
    );

private:
    Groups groups() const;

    std::unique_ptr<icu::RegexMatcher> matcher_;
};

} // namespace mimkins::patterns
