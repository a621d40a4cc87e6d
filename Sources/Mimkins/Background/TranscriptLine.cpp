#include "Background/TranscriptLine.h"

#include "Background/LineParts.h"
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

icu::UnicodeString toText(std::string_view bytes) {
    return icu::UnicodeString::fromUTF8({bytes.data(), static_cast<int32_t>(bytes.size())});
}

void replaceAll(std::string& text, std::string_view wanted, std::string_view replacement) {
    std::string result;
    std::size_t begin = 0;
    for (auto place = text.find(wanted); place != std::string::npos; place = text.find(wanted, begin)) {
        result.append(text, begin, place - begin).append(replacement);
        begin = place + wanted.size();
    }
    text = result.append(text, begin, std::string::npos);
}

/// Puts the first group of every match into the set.
void insertFirstGroups(Matcher& matcher, const parts::Parts& parts, std::set<std::string>& ids) {
    for (const auto part : parts) {
        for (const auto& groups : matcher.all(toText(part))) {
            if (groups[0]) {
                ids.insert(*groups[0]);
            }
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

void addSchedules(const std::vector<Groups>& matches, Date at, const icu::TimeZone& zone, Tally& tally) {
    for (const auto& groups : matches) {
        const auto& [call, kind, id, schedule] = std::tie(groups[0], groups[1], groups[2], groups[3]);
        if (!kind || !id || !schedule) {
            continue;
        }
        const auto prompt = call ? tally.prompts.find(*call) : tally.prompts.end();
        tally.crons.insert_or_assign(
            *id,
            ScheduledTask{
                at, nextFire(*schedule, at, zone), *kind == "recurring",
                prompt == tally.prompts.end() ? std::string() : prompt->second}
        );
    }
}

} // namespace

std::optional<Date> parseDate(std::string_view text) {
    return text::parseIso8601(text);
}

std::string decodePrompt(std::string_view raw) {
    if (raw.find('\\') == std::string_view::npos) {
        return std::string(raw); // Nothing is escaped, so either way of decoding gives the text itself.
    }
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

    /// The user's time zone, once a schedule has asked for it.
    std::unique_ptr<icu::TimeZone> zone;

    Date timeOf(std::string_view line, Date now) {
        const auto part = parts::timestamp(line);
        const auto groups = part ? timestamp.first(toText(*part)) : std::nullopt;
        const auto written = groups && groups->at(0) ? parseDate(*groups->at(0)) : std::nullopt;
        return written.value_or(now);
    }

    void readStarted(std::string_view line, Date now, Tally& tally) {
        std::set<std::string> ids;
        insertFirstGroups(started, parts::started(line), ids);
        if (ids.empty()) {
            return;
        }
        const Date at = timeOf(line, now);
        for (const auto& id : ids) {
            tally.started.insert_or_assign(id, at);
        }
    }

    void readPrompts(std::string_view line, Tally& tally) {
        for (const auto part : parts::cronCreate(line)) {
            addPrompts(cronCreate.all(toText(part)), tally);
        }
    }

    /// `matcher` is that of the wording whose parts are given.
    void readSchedules(Matcher& matcher, const parts::Parts& parts, Date at, Tally& tally) {
        for (const auto part : parts) {
            const auto matches = matcher.allBeginningWith(toText(part), toolResult, scheduled);
            if (matches.empty()) {
                continue;
            }
            if (!zone) {
                zone = currentTimeZone();
            }
            addSchedules(matches, at, *zone, tally);
        }
    }

    void readSchedules(std::string_view line, Date now, Tally& tally) {
        const auto tasks = parts::cron(line);
        const auto jobs = parts::cronJob(line);
        if (tasks.empty() && jobs.empty()) {
            return;
        }
        const Date at = timeOf(line, now);
        readSchedules(cron, tasks, at, tally);
        readSchedules(cronJob, jobs, at, tally);
    }
};

TranscriptLineReader::TranscriptLineReader() = default;
TranscriptLineReader::~TranscriptLineReader() = default;

void TranscriptLineReader::begin() {
    if (matchers_) {
        matchers_->zone.reset();
    }
}

void TranscriptLineReader::read(std::string_view line, Markers markers, Date now, Tally& tally) {
    if (line.size() > longestLine) {
        return;
    }
    if (!matchers_) {
        matchers_ = std::make_unique<Matchers>();
    }
    if (markers.contains(Marker::backgroundId)) {
        matchers_->readStarted(line, now, tally);
    }
    if (markers.contains(Marker::taskId)) {
        insertFirstGroups(matchers_->finished, parts::finished(line), tally.finished);
    }
    if (markers.contains(Marker::taskStop) || markers.contains(Marker::killShell) ||
        markers.contains(Marker::killBash)) {
        insertFirstGroups(matchers_->stopped, parts::stopped(line), tally.finished);
    }
    // A prompt that stands on a line is there for a schedule on the same line.
    if (markers.contains(Marker::cronCreate)) {
        matchers_->readPrompts(line, tally);
    }
    if (markers.contains(Marker::scheduled)) {
        matchers_->readSchedules(line, now, tally);
    }
    if (markers.contains(Marker::cronDelete)) {
        insertFirstGroups(matchers_->cronDelete, parts::cronDelete(line), tally.deletedCrons);
    }
}

} // namespace mimkins
