#pragma once

#include "Drawing/Symbols.h"

#include <cstddef>
#include <optional>
#include <string>

namespace mimkins {

/// The button of a card that opens and closes its list of subtasks.
struct SubtasksPill {
    static constexpr const char* word = "Subtasks"; ///< left out where there is little room

    Symbol symbol = Symbol::stack;
    std::optional<std::string> count;
    bool on = false;
    std::string toolTip;

    friend bool operator==(const SubtasksPill&, const SubtasksPill&) = default;
};

/// The button for so many running subtasks; nothing if none runs and the list is shut.
std::optional<SubtasksPill> subtasksPill(std::size_t running, bool expanded);

} // namespace mimkins
