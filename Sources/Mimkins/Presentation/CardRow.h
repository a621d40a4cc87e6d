#pragma once

#include "Pet/PetFrame.h"
#include "Presentation/CrewRow.h"
#include "Presentation/EffortBadge.h"
#include "Presentation/ModelBadge.h"
#include "Presentation/SubtaskRows.h"
#include "Presentation/SubtasksPill.h"
#include "Session/Facts.h"
#include "Session/Session.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace mimkins {

/// Which of the settings a card's words depend on.
struct CardOptions {
    bool nameTags = true;
    std::uint64_t shuffle = 0;
    bool crewHeads = true;
    bool modelBadges = true;

    friend bool operator==(const CardOptions&, const CardOptions&) = default;
};

/// What a card is given beside its session.
struct CardContext {
    std::span<const Subtask> subtasks; ///< of the session, in display order
    bool expanded = false;             ///< the list of subtasks is open
    bool highlighted = false;          ///< the user is pointed at this card
};

/// All that a card shows of a session, in words.
struct CardRow {
    std::string id;
    Mood mood = Mood::idle;
    Date since;
    Pet pet;
    std::string project;              ///< in upper case
    std::string projectToolTip;       ///< as it is
    std::optional<std::string> agent; ///< in upper case, of a session that isn't the client's own
    std::optional<EffortBadge> effort;
    std::optional<SubtasksPill> pill;
    std::string title;               ///< the project where the session has no title
    std::optional<std::string> name; ///< of the pet
    std::string moodLabel;
    std::optional<ModelBadge> model;
    std::optional<std::string> activity;
    bool waiting = false;   ///< the session is held up by the user
    bool canOpen = false;   ///< a link leads to the session
    bool hasFolder = false; ///< it is known where the session works
    std::string toolTip;    ///< empty for none
    std::optional<CrewRow> crew;
    std::optional<SubtaskRows> subtasks; ///< while the list is open
    bool highlighted = false;
    /// What a screen reader says: name, mood and project, then the rest.
    std::string accessibleName;
    std::string accessibleDescription;

    friend bool operator==(const CardRow&, const CardRow&) = default;
};

/// Says over the agent's name where the session comes from.
inline constexpr const char* agentToolTip = "Connected via mimkin";
/// Stands on the card that the user is pointed at.
inline constexpr const char* nextUpTag = "NEXT UP";

CardRow cardRow(const Session& session, const CardOptions& options, const CardContext& context = {});

} // namespace mimkins
