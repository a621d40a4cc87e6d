#pragma once

#include "Settings/QuickPrompts.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mimkins {

/// What a card's menu lets the user do with its session.
struct CardChoice {
    enum class Action { open, newSession, showFolder };

    Action action = Action::open;
    std::optional<std::string> prompt; ///< of a new session

    friend bool operator==(const CardChoice&, const CardChoice&) = default;
};

/// A line of a card's menu.
struct CardMenuEntry {
    enum class Kind { choice, divider, submenu };

    Kind kind = Kind::choice;
    std::string title;
    bool enabled = true;
    CardChoice choice;
    std::vector<CardMenuEntry> entries; ///< of a submenu

    friend bool operator==(const CardMenuEntry&, const CardMenuEntry&) = default;
};

/// `canOpen`: a link leads to the session. `hasFolder`: it is known where the session works.
std::vector<CardMenuEntry> cardMenu(bool canOpen, bool hasFolder, std::span<const QuickPrompt> quickPrompts);

} // namespace mimkins
