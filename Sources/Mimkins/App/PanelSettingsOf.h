#pragma once

#include "Presentation/PanelSettings.h"
#include "Settings/AppSettings.h"

namespace mimkins {

/// What the drawer shows of the user's settings at a moment.
inline PanelSettings panelSettingsOf(const AppSettings& settings, Date now) {
    PanelSettings panel;
    panel.themeId = settings.themeId();
    panel.panelWidth = settings.panelWidth();
    panel.petPoints = settings.petPoints();
    panel.tabPosition = settings.tabHeight();
    panel.menuBarCount = settings.menuBarCount();
    panel.motion = settings.petMotion(now);
    panel.cards.nameTags = settings.nameTags();
    panel.cards.shuffle = settings.petShuffle();
    panel.cards.crewHeads = settings.crewHeads();
    panel.cards.modelBadges = settings.modelBadges();
    panel.quickPrompts = settings.quickPrompts();
    return panel;
}

} // namespace mimkins
