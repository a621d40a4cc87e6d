#pragma once

#include <QIcon>
#include <QMenu>

#include <functional>
#include <string>
#include <vector>

#include "Presentation/StatusItem.h"

namespace mimkins {

/// The status item's picture: the icon, and over its corner the title, if there is one.
QIcon statusPicture(const std::string& title);

/// Puts the rows into a menu. Rows whose action isn't in `handlers` are greyed out.
struct MenuHandler {
    status_item::Action action = status_item::Action::none;
    std::function<void()> run;
};

void fillMenu(
    QMenu& menu, const std::vector<status_item::MenuRow>& rows, const std::vector<MenuHandler>& handlers
);

} // namespace mimkins
