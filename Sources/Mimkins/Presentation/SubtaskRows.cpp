#include "Presentation/SubtaskRows.h"

#include "Base/DateText.h"
#include "Base/Text.h"
#include "Presentation/Elapsed.h"
#include "Presentation/OneLine.h"
#include "Presentation/SessionPet.h"

namespace mimkins {

namespace {

SubtaskRow::State stateOf(const Subtask& task) {
    if (task.waitingForOK) {
        return SubtaskRow::State::waiting;
    }
    return task.running ? SubtaskRow::State::working : SubtaskRow::State::done;
}

std::string wordFor(SubtaskRow::State state) {
    switch (state) {
    case SubtaskRow::State::waiting:
        return "Needs your OK";
    case SubtaskRow::State::working:
        return "Working";
    case SubtaskRow::State::done:
        break;
    }
    return "Done";
}

} // namespace

std::string SubtaskRow::elapsedText(Date now) const {
    return elapsed(ended.value_or(now) - started);
}

std::string SubtaskRow::accessibleName() const {
    return text::join({description, stateWord}, ", ");
}

std::string SubtaskRow::accessibleDescription() const {
    std::vector<std::string> pieces;
    if (activity) {
        pieces.push_back(*activity);
    }
    const auto& badge = badges.highlighted ? badges.highlighted : badges.plain;
    if (badge && !badge->toolTip.empty()) {
        pieces.push_back(badge->toolTip);
    }
    // A moment rather than a span, which would have to be said anew each second.
    pieces.push_back(ended ? "Took " + elapsed(*ended - started) : "Since " + text::shortTime(started));
    return text::join(pieces, ". ");
}

SubtaskRow subtaskRow(const Subtask& task, const std::optional<ModelTag>& parent) {
    SubtaskRow row;
    row.id = task.id;
    row.pet = subtaskPet(task);
    row.description = onOneLine(task.description);
    row.state = stateOf(task);
    row.stateWord = wordFor(row.state);
    row.started = task.started;
    if (!task.running) {
        row.ended = task.lastActivity;
    }
    row.badges = subtaskBadges(task.model, parent);
    if (const auto activity = task.activity()) {
        row.activity = onOneLine(*activity);
    }
    return row;
}

SubtaskRows subtaskRows(std::span<const Subtask> subtasks, const std::optional<ModelTag>& parent) {
    SubtaskRows rows;
    if (subtasks.empty()) {
        rows.empty = "No subtasks right now. Subagents this session starts will show up here.";
        return rows;
    }
    std::size_t running = 0;
    std::size_t finished = 0;
    for (const auto& task : subtasks) {
        auto& shown = task.running ? rows.running : rows.finished;
        ++(task.running ? running : finished);
        if (shown.size() < SubtaskRows::most) {
            shown.push_back(subtaskRow(task, parent));
        }
    }
    if (running > SubtaskRows::most) {
        rows.moreRunning = "+" + std::to_string(running - SubtaskRows::most) + " more running";
    }
    if (finished > 0) {
        rows.finishedLabel = std::to_string(finished) + " finished";
    }
    return rows;
}

std::string_view finishedHelp(bool shown) {
    return shown ? "Hide finished subtasks" : "Show finished subtasks";
}

Symbol finishedSymbol(bool shown) {
    return shown ? Symbol::chevronDown : Symbol::checkmarkCircle;
}

} // namespace mimkins
