#include "Background/NaiveScanner.h"

#include "Background/NextFire.h"
#include "Base/DateText.h"

#include <nlohmann/json.hpp>
#include <unicode/regex.h>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace mimkins::test {

namespace {

using Match = std::vector<std::optional<std::string>>;

std::vector<Match> matches(const char* pattern, const icu::UnicodeString& line) {
    static std::map<const char*, std::unique_ptr<icu::RegexMatcher>> matchers;
    UErrorCode status = U_ZERO_ERROR;
    auto& matcher = matchers[pattern];
    if (!matcher) {
        matcher = std::make_unique<icu::RegexMatcher>(icu::UnicodeString::fromUTF8(pattern), 0, status);
    }
    matcher->reset(line);
    std::vector<Match> result;
    while (matcher->find()) {
        auto& match = result.emplace_back();
        for (int group = 1; group <= matcher->groupCount(); ++group) {
            auto& text = match.emplace_back();
            if (matcher->start(group, status) >= 0) {
                matcher->group(group, status).toUTF8String(text.emplace());
            }
        }
    }
    return result;
}

constexpr const char* startedRx = "running in background with ID: ([A-Za-z0-9]+)";
constexpr const char* finishedRx = "<task-id>([A-Za-z0-9]+)</task-id>.{0,600}?"
                                   "<status>(completed|failed|killed|stopped|cancelled|timed_out)";
constexpr const char* stoppedRx = "\"name\":\"(?:TaskStop|KillShell|KillBash)\",\"input\":\\{[^}]*"
                                  "\"(?:task_id|shell_id|id)\":\"([A-Za-z0-9]+)\"";
constexpr const char* cronRx = "(?:\"tool_use_id\":\"(toolu_[A-Za-z0-9]+)\".{0,400}?)?Scheduled "
                               "(one-shot|recurring) task ([0-9a-f]+) \\(([^)]+)\\)";
constexpr const char* cronJobRx = "(?:\"tool_use_id\":\"(toolu_[A-Za-z0-9]+)\".{0,400}?)?Scheduled "
                                  "(one-shot|recurring) job ([0-9a-f]+) \\(([^)]+)\\)";
constexpr const char* cronCreateRx =
    "\"id\":\"(toolu_[A-Za-z0-9]+)\",\"name\":\"CronCreate\",\"input\":\\{\"cron\":\"[^\"]*\","
    "\"prompt\":\"((?:[^\"\\\\]|\\\\.){0,160})";
constexpr const char* cronDeleteRx = "\"name\":\"CronDelete\",\"input\":\\{[^}]*\"id\":\"([0-9a-f]+)\"";
constexpr const char* timestampRx = "\"timestamp\":\"([^\"]+)\"";

std::string decode(const std::string& raw) {
    const auto value = nlohmann::json::parse("\"" + raw + "\"", nullptr, false);
    if (value.is_string()) {
        return value.get<std::string>();
    }
    std::string result;
    for (std::size_t index = 0; index < raw.size(); ++index) {
        const auto pair = raw.substr(index, 2);
        if (pair == "\\n" || pair == "\\\"") {
            result += pair == "\\n" ? ' ' : '"';
            ++index;
        } else {
            result += raw[index];
        }
    }
    return result;
}

void readSchedules(const char* pattern, const icu::UnicodeString& line, Date at, Tally& tally) {
    for (const auto& match : matches(pattern, line)) {
        ScheduledTask task;
        task.created = at;
        task.fire = nextFire(*match[3], at, *currentTimeZone());
        task.recurring = *match[1] == "recurring";
        task.prompt = match[0] && tally.prompts.contains(*match[0]) ? tally.prompts[*match[0]] : "";
        tally.crons[*match[2]] = task;
    }
}

void readLine(const std::string& bytes, Date now, Tally& tally) {
    const auto line = icu::UnicodeString::fromUTF8(bytes);
    const auto times = matches(timestampRx, line);
    const Date at = times.empty() ? now : text::parseIso8601(*times[0][0]).value_or(now);
    for (const auto& match : matches(startedRx, line)) {
        tally.started[*match[0]] = at;
    }
    for (const auto& match : matches(finishedRx, line)) {
        tally.finished.insert(*match[0]);
    }
    for (const auto& match : matches(stoppedRx, line)) {
        tally.finished.insert(*match[0]);
    }
    for (const auto& match : matches(cronCreateRx, line)) {
        tally.prompts[*match[0]] = decode(*match[1]);
    }
    readSchedules(cronRx, line, at, tally);
    readSchedules(cronJobRx, line, at, tally);
    for (const auto& match : matches(cronDeleteRx, line)) {
        tally.deletedCrons.insert(*match[0]);
    }
}

} // namespace

void NaiveScanner::read(const std::string& file, Date now, Tally& tally) const {
    if (file.size() < tally.offset) {
        tally = {};
    }
    if (file.size() > firstReadingLimit_ && tally.offset == 0) {
        tally.offset = file.size() - firstReadingLimit_;
        tally.startsMidLine = true;
    }
    std::string chunk = file.substr(tally.offset);
    const auto last = chunk.rfind('\n');
    if (last == std::string::npos) {
        return;
    }
    chunk.resize(last + 1);
    if (tally.startsMidLine) {
        tally.startsMidLine = false;
        const auto first = chunk.find('\n');
        tally.offset += first + 1;
        chunk.erase(0, first + 1);
    }
    tally.offset += chunk.size();
    for (std::size_t begin = 0; begin < chunk.size();) {
        const auto end = chunk.find('\n', begin);
        readLine(chunk.substr(begin, end - begin), now, tally);
        begin = end + 1;
    }
}

Tally naiveTally(const std::string& file, Date now) {
    Tally tally;
    NaiveScanner().read(file, now, tally);
    return tally;
}

} // namespace mimkins::test
