#pragma once

#include "PanelView/Typography.h"
#include "Pet/PetLook.h"
#include "Theme/PetTheme.h"

namespace mimkins {

/// How all cards of the list look.
struct CardLook {
    const PetTheme* theme = nullptr; ///< with plain colours
    Typography typography;
    double petPoints = 62;
    PetLook pets;

    /// What colours are shown under that the theme leaves to the desktop.
    ColorScheme scheme() const { return theme->scheme.value_or(ColorScheme::dark); }
};

} // namespace mimkins
