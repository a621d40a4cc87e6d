#pragma once

#include "PanelView/Typography.h"
#include "Theme/PetTheme.h"

#include <cstdint>

namespace mimkins {

/// How all cards of the list look.
struct CardLook {
    const PetTheme* theme = nullptr; ///< of the catalogue
    Typography typography;
    double petPoints = 62;
    std::uint64_t shuffle = 0;
};

} // namespace mimkins
