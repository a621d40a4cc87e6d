#pragma once

#include "Drawing/Symbols.h"
#include "Model/ModelTag.h"

#include <optional>
#include <string>

namespace mimkins {

/// A model and its effort as a small badge shows them.
struct ModelBadge {
    static constexpr int dots = 5;

    Symbol symbol = Symbol::chip;
    std::optional<std::string> name; ///< nothing where the icon alone will do, or the model has none
    std::optional<int> pips;         ///< how many of the dots are filled; nothing for no row of dots
    bool highlight = false;          ///< the model differs from the one that it is expected to be
    std::string toolTip;             ///< empty if nothing is known

    friend bool operator==(const ModelBadge&, const ModelBadge&) = default;
};

enum class ModelBadgeForm { iconOnly, named, highlighted };

ModelBadge modelBadge(const ModelTag& tag, ModelBadgeForm form);

/// What a subtask's row shows of its model: at most one of the two.
struct SubtaskBadges {
    std::optional<ModelBadge> plain;
    std::optional<ModelBadge> highlighted;

    friend bool operator==(const SubtaskBadges&, const SubtaskBadges&) = default;
};

/// A model that goes by another name than the session's is highlighted. Without the session's model neither
/// badge shows.
SubtaskBadges subtaskBadges(const ModelTag& tag, const std::optional<ModelTag>& parent);

} // namespace mimkins
