#include "Presentation/StatusItem.h"

#include "Presentation/Summary.h"

namespace mimkins::status_item {

std::string title(std::int64_t waiting, bool showsCount) {
    return showsCount && waiting >= 1 ? " " + std::to_string(waiting) : std::string();
}

std::string toolTip(const std::vector<Session>& sessions) {
    return "Mimkins: " + summary(sessions).text;
}

std::string_view toggleWords(bool drawerIsOpen) {
    return drawerIsOpen ? "Hide Mimkins" : "Show Mimkins";
}

std::vector<MenuRow> menu(const MenuState& state) {
    const std::string shortcut = state.shortcut.empty() ? std::string() : "  " + state.shortcut;
    return {
        {std::string(toggleWords(state.drawerIsOpen)), Action::toggleWindow, false, {}},
        {"Next Waiting" + shortcut, Action::nextUp, false, {}},
        {"Wrap-up…", Action::openWrapUp, false, {}},
        {},
        {"Open at Login", Action::toggleLoginItem, state.opensAtLogin, {}},
        {},
        {"Quit Mimkins", Action::quit, false, "q"},
    };
}

} // namespace mimkins::status_item
