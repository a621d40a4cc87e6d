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
};

} // namespace mimkins
