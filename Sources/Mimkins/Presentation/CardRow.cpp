#include "Presentation/CardRow.h"

#include "Base/Text.h"
#include "Presentation/OneLine.h"
#include "Presentation/SessionPet.h"

#include <vector>

namespace mimkins {

namespace {

std::string description(const CardRow& row) {
    std::vector<std::string> pieces{row.title};
    if (row.activity) {
        pieces.push_back(*row.activity);
    }
    if (row.agent) {
        pieces.push_back(*row.agent);
    }
    if (row.effort) {
        pieces.push_back(row.effort->toolTip);
    }
    if (row.model && !row.model->toolTip.empty()) {
        pieces.push_back(row.model->toolTip);
    }
    if (row.crew) {
        pieces.push_back(row.crew->toolTip);
    }
    if (!row.toolTip.empty()) {
        pieces.push_back(row.toolTip);
    }
    return text::join(pieces, ". ");
}

std::vector<const Subtask*> runningOf(std::span<const Subtask> subtasks) {
    std::vector<const Subtask*> running;
    for (const auto& task : subtasks) {
        if (task.running) {
            running.push_back(&task);
        }
    }
    return running;
}

void addBadges(CardRow& row, const Session& session, const CardOptions& options) {
    if (session.agent) {
        row.agent = text::uppercase(onOneLine(*session.agent));
    }
    if (const int boost = session.effortBoost(); boost >= 1) {
        row.effort = effortBadge(boost);
    }
    if (options.modelBadges && (session.model || session.effort)) {
        row.model = modelBadge({session.model, session.effort}, ModelBadgeForm::named);
    }
}

void addSubtasks(
    CardRow& row, const Session& session, const CardOptions& options, const CardContext& context
) {
    const auto running = runningOf(context.subtasks);
    row.pill = subtasksPill(running.size(), context.expanded);
    if (options.crewHeads) {
        row.crew = crewRow(running, options.shuffle);
    }
    if (context.expanded) {
        const auto parent =
            options.modelBadges ? std::optional(ModelTag{session.model, session.effort}) : std::nullopt;
        row.subtasks = subtaskRows(context.subtasks, parent);
    }
}

} // namespace

CardRow cardRow(const Session& session, const CardOptions& options, const CardContext& context) {
    const std::string petName = session.petName(options.shuffle);
    CardRow row;
    row.id = session.id;
    row.mood = session.mood;
    row.since = session.since;
    row.pet = sessionPet(session);
    row.projectToolTip = onOneLine(session.project);
    row.project = text::uppercase(row.projectToolTip);
    row.title = onOneLine(session.title.value_or(session.project));
    if (options.nameTags) {
        row.name = petName;
    }
    row.moodLabel = label(session.mood);
    if (const auto activity = session.activity()) {
        row.activity = onOneLine(*activity);
    }
    row.waiting = wantsAttention(session.mood);
    row.canOpen = session.jumpURL().has_value();
    row.hasFolder = session.folder.has_value();
    row.highlighted = context.highlighted;
    addBadges(row, session, options);
    addSubtasks(row, session, options, context);
    row.toolTip = row.canOpen ? "Open this session · right-click for more" : "";
    row.accessibleName = text::join({petName, row.moodLabel, row.projectToolTip}, ", ");
    row.accessibleDescription = description(row);
    return row;
}

} // namespace mimkins
