#pragma once

#include "PanelView/CardPlates.h"
#include "PanelView/Typography.h"
#include "Pet/PetLook.h"
#include "Theme/PetTheme.h"

#include <memory>

namespace mimkins {

class PanelGround;

/// How all cards of the list look.
struct CardLook {
    const PetTheme* theme = nullptr; ///< with plain colours
    Typography typography;
    double petPoints = 62;
    PetLook pets;
    /// What lies behind the cards; none where nothing does.
    PanelGround* ground = nullptr;
    /// Of all cards with this look.
    std::shared_ptr<CardPlates> plates = std::make_shared<CardPlates>();

    /// What colours are shown under that the theme leaves to the desktop.
    ColorScheme scheme() const { return theme->scheme.value_or(ColorScheme::dark); }
};

} // namespace mimkins
