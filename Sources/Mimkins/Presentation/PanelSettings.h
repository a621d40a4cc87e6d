#pragma once

#include "Presentation/CardRow.h"
#include "Settings/AppSettings.h"

#include <string>
#include <vector>

namespace mimkins {

/// Those of the user's settings that the drawer and its tab show.
struct PanelSettings {
    std::string themeId;
    double panelWidth = 320;   ///< points
    double petPoints = 62;     ///< side of a pet's square
    double tabPosition = 0.62; ///< of the tab's middle, a fraction of the visible height
    bool menuBarCount = true;
    PetMotion motion; ///< of the pets
    CardOptions cards;
    std::vector<QuickPrompt> quickPrompts; ///< that a card's menu offers

    friend bool operator==(const PanelSettings&, const PanelSettings&) = default;
};

} // namespace mimkins
