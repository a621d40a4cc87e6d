#pragma once

#include "Base/Date.h"
#include "Model/ModelTag.h"
#include "Pet/PetFrame.h"
#include "Presentation/ModelBadge.h"
#include "Session/Facts.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// All that the row of a subtask shows, in words.
struct SubtaskRow {
    enum class State { waiting, working, done };

    std::string id;
    Pet pet;
    std::string description;
    State state = State::done;
    std::string stateWord;
    Date started;
    std::optional<Date> ended; ///< nothing while it runs: its time goes on
    SubtaskBadges badges;
    std::optional<std::string> activity;

    /// What a screen reader says: what it is and its state, then the rest.
    std::string accessibleName() const;
    std::string accessibleDescription() const;

    /// How long it has run, in short form.
    std::string elapsedText(Date now) const;

    friend bool operator==(const SubtaskRow&, const SubtaskRow&) = default;
};

SubtaskRow subtaskRow(const Subtask& task, const std::optional<ModelTag>& parent);

/// The list of subtasks under a session's card.
struct SubtaskRows {
    /// Rows shown at most of the running subtasks, and of the finished ones.
    static constexpr std::size_t most = 6;

    std::optional<std::string> empty; ///< what is said in place of all else when there are none
    std::vector<SubtaskRow> running;
    std::optional<std::string> moreRunning;
    std::optional<std::string> finishedLabel; ///< of the button that shows the finished ones
    std::vector<SubtaskRow> finished;

    friend bool operator==(const SubtaskRows&, const SubtaskRows&) = default;
};

/// The rows for the subtasks of one session, in their order. `parent` is the session's own model, if badges
/// are to tell which subtasks differ from it.
SubtaskRows subtaskRows(std::span<const Subtask> subtasks, const std::optional<ModelTag>& parent);

/// What a press on the button that shows the finished ones does.
std::string_view finishedHelp(bool shown);

/// The icon of the button that shows the finished ones.
Symbol finishedSymbol(bool shown);

} // namespace mimkins
