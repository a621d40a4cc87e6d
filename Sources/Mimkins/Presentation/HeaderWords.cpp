#include "Presentation/HeaderWords.h"

namespace mimkins::header {

namespace {

constexpr std::string_view backToPets = "Back to the pets";

constexpr DrawerMode toggled(DrawerMode mode, DrawerMode screen) {
    return mode == screen ? DrawerMode::pets : screen;
}

} // namespace

std::string_view title(DrawerMode mode) {
    switch (mode) {
    case DrawerMode::settings:
        return "Settings";
    case DrawerMode::sweep:
        return "Wrap-up";
    case DrawerMode::setup:
        return "Setup";
    case DrawerMode::pets:
        break;
    }
    return "Mimkins";
}

std::string_view settingsToolTip(DrawerMode mode) {
    return mode == DrawerMode::settings ? backToPets : "Settings";
}

std::string_view wrapUpToolTip(DrawerMode mode) {
    return mode == DrawerMode::sweep ? backToPets : "Wrap-up: what's left before you log off";
}

DrawerMode afterSettingsButton(DrawerMode mode) {
    return toggled(mode, DrawerMode::settings);
}

DrawerMode afterWrapUpButton(DrawerMode mode) {
    return toggled(mode, DrawerMode::sweep);
}

bool showsSummary(DrawerMode mode) {
    return mode == DrawerMode::pets;
}

} // namespace mimkins::header
