#pragma once

#include "Presentation/DrawerState.h"

#include <string_view>

/// The drawer's header, by the screen that shows.
namespace mimkins::header {

std::string_view title(DrawerMode mode);

std::string_view settingsToolTip(DrawerMode mode);
std::string_view wrapUpToolTip(DrawerMode mode);

/// What the buttons are called, whatever screen shows; the tool tips tell what a press does.
inline constexpr std::string_view settingsName = "Settings";
inline constexpr std::string_view wrapUpName = "Wrap-up";

/// Where a press on the settings button leads, and one on the wrap-up button: each toggles its own screen.
DrawerMode afterSettingsButton(DrawerMode mode);
DrawerMode afterWrapUpButton(DrawerMode mode);

/// True if the summary pill stands in the header.
bool showsSummary(DrawerMode mode);

} // namespace mimkins::header
