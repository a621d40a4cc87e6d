#include "Background/TranscriptLine.h"

#include "Background/MarkedLines.h"
#include "Background/NextFire.h"
#include "Background/TranscriptPatterns.h"
#include "Base/DateText.h"
#include "Base/Json.h"

#include <tuple>
#include <utility>

namespace mimkins {

namespace {

using patterns::Groups;
using patterns::Matcher;

void replaceAll(std::string& text, std::string_view wanted, std::string_view replacement) {
    for (auto place = text.find(wanted); place != std::string::npos;
         place = text.find(wanted, place + replacement.size())) {
        text.replace(place, wanted.size(), replacement);
    }
}

/// Puts the first group of every match into the set.
void insertFirstGroups(const std::vector<Groups>& matches, std::set<std::string>& ids) {
    for (const auto& groups : matches) {
        if (groups[0]) {
            ids.insert(*groups[0]);
        }
    }
}

void addPrompts(const std::vector<Groups>& matches, Tally& tally) {
    for (const auto& groups : matches) {
        if (groups[0] && groups[1]) {
            tally.prompts.insert_or_assign(*groups[0], decodePrompt(*groups[1]));
        }
    }
}

void addSchedules(const std::vector<Groups>& matches, Date at, Tally& tally) {
    for (const auto& groups : matches) {
        const auto& [call, kind, id, schedule] = std::tie(groups[0], groups[1], groups[2], groups[3]);
        if (!kind || !id || !schedule) {
            continue;
        }
        const auto prompt = call ? tally.prompts.find(*call) : tally.prompts.end();
        tally.crons.insert_or_assign(
            *id,
            ScheduledTask{
                at, nextFire(*schedule, at, *currentTimeZone()), *kind == "recurring",
                prompt == tally.prompts.end() ? std::string() : prompt->second}
        );
    }
}

} // namespace

std::optional<Date> parseDate(std::string_view text) {
    return text::parseIso8601(text);
}

std::string decodePrompt(std::string_view raw) {
    std::string quoted = "\"";
    quoted.append(raw).append("\"");
    if (const auto document = json::Document::parse(quoted)) {
        if (auto decoded = document->root().string()) {
            return *std::move(decoded);
        }
    }
    std::string plain(raw);
    replaceAll(plain, "\\n", " ");
    replaceAll(plain, "\\\"", "\"");
    return plain;
}

struct TranscriptLineReader::Matchers {
    Matcher started{patterns::started};
    Matcher finished{patterns::finished};
    Matcher stopped{patterns::stopped};
    Matcher cron{patterns::cron};
    Matcher cronJob{patterns::cronJob};
    Matcher cronCreate{patterns::cronCreate};
    Matcher cronDelete{patterns::cronDelete};
    Matcher timestamp{patterns::timestamp};

    const icu::UnicodeString toolResult{uR"~("tool_use_id":"toolu_)~"};
    const icu::UnicodeString scheduled{u"Scheduled "};

    Date timeOf(const icu::UnicodeString& line, Date now) {
        const auto groups = timestamp.first(line);
        const auto written = groups && groups->at(0) ? parseDate(*groups->at(0)) : std::nullopt;
        return written.value_or(now);
    }

    void readStarted(const icu::UnicodeString& line, Date now, Tally& tally) {
        const auto matches = started.all(line);
        if (matches.empty()) {
            return;
        }
        const Date at = timeOf(line, now);
        for (const auto& groups : matches) {
            if (groups[0]) {
                tally.started.insert_or_assign(*groups[0], at);
            }
        }
    }

    void readSchedules(const icu::UnicodeString& line, Date now, Tally& tally) {
        const auto tasks = cron.allBeginningWith(line, toolResult, scheduled);
        const auto jobs = cronJob.allBeginningWith(line, toolResult, scheduled);
        if (!tasks.empty() || !jobs.empty()) {
            const Date at = timeOf(line, now);
            addSchedules(tasks, at, tally);
            addSchedules(jobs, at, tally);
        }
    }
};

TranscriptLineReader::TranscriptLineReader() = default;
TranscriptLineReader::~TranscriptLineReader() = default;

void TranscriptLineReader::read(std::string_view line, Markers markers, Date now, Tally& tally) {
    if (line.size() > longestLine) {
        return;
    }
    if (!matchers_) {
        matchers_ = std::make_unique<Matchers>();
    }
    // No pattern matches a line without its marker, so only those whose marker stands there are tried.
    const auto text = icu::UnicodeString::fromUTF8({line.data(), static_cast<int32_t>(line.size())});
    if (markers.contains(Marker::backgroundId)) {
        matchers_->readStarted(text, now, tally);
    }
    if (markers.contains(Marker::taskId)) {
        insertFirstGroups(matchers_->finished.all(text), tally.finished);
    }
    if (markers.contains(Marker::taskStop) || markers.contains(Marker::killShell) ||
        markers.contains(Marker::killBash)) {
        insertFirstGroups(matchers_->stopped.all(text), tally.finished);
    }
    // A prompt that stands on a line is there for a schedule on the same line.
    if (markers.contains(Marker::cronCreate)) {
        addPrompts(matchers_->cronCreate.all(text), tally);
    }
    if (markers.contains(Marker::scheduled)) {
        matchers_->readSchedules(text, now, tally);
    }
    if (markers.contains(Marker::cronDelete)) {
        insertFirstGroups(matchers_->cronDelete.all(text), tally.deletedCrons);
    }
}

} // namespace mimkins
