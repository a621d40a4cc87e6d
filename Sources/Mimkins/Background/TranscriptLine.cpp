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

/// What of a line its patterns can match: one flag for each pattern, or group of patterns, that a text which
/// every match holds stands in the line for. Lines that merely quote a marker, such as source text in which
/// every quotation mark is escaped, have none and are let go before any string is made of them.
struct Prospects {
    bool started = false;
    bool finished = false;
    bool stopped = false;
    bool cron = false;
    bool cronJob = false;
    bool cronCreate = false;
    bool cronDelete = false;

    bool any() const { return started || finished || stopped || cron || cronJob || cronCreate || cronDelete; }
};

bool holds(std::string_view line, std::string_view text) {
    return line.find(text) != std::string_view::npos;
}

Prospects prospectsOf(std::string_view line, Markers markers) {
    Prospects prospects;
    prospects.started =
        markers.contains(Marker::backgroundId) && holds(line, "running in background with ID: ");
    prospects.finished = markers.contains(Marker::taskId) && holds(line, "<status>");
    prospects.stopped =
        (markers.contains(Marker::taskStop) && holds(line, R"("name":"TaskStop","input":{)")) ||
        (markers.contains(Marker::killShell) && holds(line, R"("name":"KillShell","input":{)")) ||
        (markers.contains(Marker::killBash) && holds(line, R"("name":"KillBash","input":{)"));
    if (markers.contains(Marker::scheduled)) {
        prospects.cron = holds(line, "Scheduled one-shot task ") || holds(line, "Scheduled recurring task ");
        prospects.cronJob = holds(line, "Scheduled one-shot job ") || holds(line, "Scheduled recurring job ");
    }
    prospects.cronCreate =
        markers.contains(Marker::cronCreate) && holds(line, R"("name":"CronCreate","input":{"cron":")");
    prospects.cronDelete =
        markers.contains(Marker::cronDelete) && holds(line, R"("name":"CronDelete","input":{)");
    return prospects;
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

    void readSchedules(Matcher& matcher, const icu::UnicodeString& line, Date now, Tally& tally) {
        const auto matches = matcher.allBeginningWith(line, toolResult, scheduled);
        if (!matches.empty()) {
            addSchedules(matches, timeOf(line, now), tally);
        }
    }
};

TranscriptLineReader::TranscriptLineReader() = default;
TranscriptLineReader::~TranscriptLineReader() = default;

void TranscriptLineReader::read(std::string_view line, Markers markers, Date now, Tally& tally) {
    if (line.size() > longestLine) {
        return;
    }
    const Prospects prospects = prospectsOf(line, markers);
    if (!prospects.any()) {
        return;
    }
    if (!matchers_) {
        matchers_ = std::make_unique<Matchers>();
    }
    const auto text = icu::UnicodeString::fromUTF8({line.data(), static_cast<int32_t>(line.size())});
    if (prospects.started) {
        matchers_->readStarted(text, now, tally);
    }
    if (prospects.finished) {
        insertFirstGroups(matchers_->finished.all(text), tally.finished);
    }
    if (prospects.stopped) {
        insertFirstGroups(matchers_->stopped.all(text), tally.finished);
    }
    // A prompt that stands on a line is there for a schedule on the same line.
    if (prospects.cronCreate) {
        addPrompts(matchers_->cronCreate.all(text), tally);
    }
    if (prospects.cron) {
        matchers_->readSchedules(matchers_->cron, text, now, tally);
    }
    if (prospects.cronJob) {
        matchers_->readSchedules(matchers_->cronJob, text, now, tally);
    }
    if (prospects.cronDelete) {
        insertFirstGroups(matchers_->cronDelete.all(text), tally.deletedCrons);
    }
}

} // namespace mimkins
