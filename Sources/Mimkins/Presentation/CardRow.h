#pragma once

#include "Pet/PetFrame.h"
#include "Session/Session.h"

#include <cstdint>
#include <optional>
#include <string>

namespace mimkins {

/// Which of the settings a card's words depend on.
struct CardOptions {
    bool nameTags = true;
    std::uint64_t shuffle = 0;

    friend bool operator==(const CardOptions&, const CardOptions&) = default;
};

/// All that a card shows of a session, in words.
struct CardRow {
    std::string id;
    Mood mood = Mood::idle;
    Date since;
    Pet pet;
    std::string project;             ///< in upper case
    std::string projectToolTip;      ///< as it is
    std::string title;               ///< the project where the session has no title
    std::optional<std::string> name; ///< of the pet
    std::string moodLabel;
    std::optional<std::string> activity;
    bool waiting = false; ///< the session is held up by the user
    bool canOpen = false; ///< a link leads to the session
    std::string toolTip;  ///< empty for none
    /// What a screen reader says: name, mood and project, then the rest.
    std::string accessibleName;
    std::string accessibleDescription;

    friend bool operator==(const CardRow&, const CardRow&) = default;
};

CardRow cardRow(const Session& session, const CardOptions& options);

} // namespace mimkins
