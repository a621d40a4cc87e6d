#include "Presentation/SweepWords.h"

#include "Base/DateText.h"
#include "Base/StableSeed.h"
#include "Base/Text.h"
#include "Presentation/Elapsed.h"
#include "Presentation/When.h"
#include "Session/DeepLink.h"

namespace mimkins {

namespace {

constexpr const char* dot = " · ";
constexpr const char* minus = "\u2212";

std::optional<std::string> linkTo(const std::optional<std::string>& localId) {
    return localId ? deep_link::continueSession(*localId) : std::nullopt;
}

SweepWords::Row waitingRow(const Session& session, Date now) {
    SweepWords::Row row;
    row.title = session.title.value_or(session.project);
    row.detail = std::string(label(session.mood)) + dot + elapsed(now - session.since);
    row.seed = stableSeed(session.id);
    row.mood = session.mood;
    row.link = session.jumpURL();
    return row;
}

SweepWords::Row repositoryRow(const SweepReport::RepoLine& line) {
    SweepWords::Row row;
    row.title = text::lastPathComponent(line.root);
    row.detail =
        "+" + std::to_string(line.changes.added) + " " + minus + std::to_string(line.changes.removed);
    if (line.changes.branch) {
        row.detail += " on " + *line.changes.branch;
    }
    row.detail += dot + line.sessionTitle;
    row.seed = stableSeed(line.root);
    row.link = linkTo(line.localId);
    return row;
}

SweepWords::Row scheduledRow(const SweepReport::ScheduledLine& line, Date now) {
    SweepWords::Row row;
    row.title = when(line.item, now);
    row.detail = (line.item.prompt.empty() ? "Follow-up" : line.item.prompt) + dot + line.sessionTitle;
    row.seed = stableSeed(line.item.id);
    row.link = linkTo(line.localId);
    return row;
}

SweepWords::Row runningRow(const SweepReport::RunningLine& line) {
    SweepWords::Row row;
    row.title = line.sessionTitle;
    row.detail = std::to_string(line.commands) + " background command" + (line.commands == 1 ? "" : "s");
    row.seed = stableSeed(line.sessionTitle + line.localId.value_or(""));
    row.link = linkTo(line.localId);
    return row;
}

/// Adds a section if it has any rows.
template <typename Line, typename MakeRow>
void addSection(SweepWords& words, SweepWords::Kind kind, const std::vector<Line>& lines, MakeRow makeRow) {
    if (lines.empty()) {
        return;
    }
    SweepWords::Section section{kind, title(kind), {}};
    for (const auto& line : lines) {
        section.rows.push_back(makeRow(line));
    }
    words.sections.push_back(std::move(section));
}

} // namespace

std::string title(SweepWords::Kind kind) {
    switch (kind) {
    case SweepWords::Kind::waiting:
        return "Waiting on you";
    case SweepWords::Kind::uncommitted:
        return "Uncommitted changes";
    case SweepWords::Kind::scheduled:
        return "Scheduled";
    case SweepWords::Kind::running:
        return "Still running";
    }
    return {};
}

SweepWords SweepWords::of(const SweepReport& report, Date now) {
    SweepWords words;
    if (report.waiting.empty() && report.repos.empty() && report.running.empty()) {
        words.allClear = {
            report.scheduled.empty() ? "All clear. Good night! 🌙"
                                     : "All clear. The night shift has it from here 🌙",
            "Nothing waiting on you, nothing left to commit."};
    }
    addSection(words, Kind::waiting, report.waiting, [&](const Session& session) {
        return waitingRow(session, now);
    });
    addSection(words, Kind::uncommitted, report.repos, repositoryRow);
    addSection(words, Kind::scheduled, report.scheduled, [&](const SweepReport::ScheduledLine& line) {
        return scheduledRow(line, now);
    });
    addSection(words, Kind::running, report.running, runningRow);
    words.checked = "Checked " + text::shortTime(report.generated);
    return words;
}

std::string SweepWords::button(bool sweeping) {
    return sweeping ? "Checking…" : "Check again";
}

} // namespace mimkins
