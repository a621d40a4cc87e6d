#pragma once

#include "Session/Session.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The words of the status item and its menu.
namespace mimkins::status_item {

/// The text behind the icon: a blank and the number of waiting sessions; empty without any, or when the user
/// doesn't want the count.
std::string title(std::int64_t waiting, bool showsCount);

/// What the pointer is told, such as "Mimkins: 2 waiting on you".
std::string toolTip(const std::vector<Session>& sessions);

enum class Action { none, toggleWindow, nextUp, openWrapUp, toggleLoginItem, quit };

struct MenuRow {
    std::string text; ///< empty for a separator
    Action action = Action::none;
    bool checked = false;
    std::string_view keyEquivalent;

    bool isSeparator() const { return text.empty(); }

    friend bool operator==(const MenuRow&, const MenuRow&) = default;
};

struct MenuState {
    bool drawerIsOpen = false;
    std::string shortcut; ///< of the global hot key, such as "⌥⌘P"; empty when it is off
    bool opensAtLogin = false;
};

std::vector<MenuRow> menu(const MenuState& state);

/// "Hide Mimkins" or "Show Mimkins".
std::string_view toggleWords(bool drawerIsOpen);

} // namespace mimkins::status_item
