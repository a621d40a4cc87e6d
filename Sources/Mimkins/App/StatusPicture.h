#pragma once

#include <QIcon>
#include <QMenu>

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "Presentation/StatusItem.h"

namespace mimkins {

/// The status item's picture: the icon, and over its corner the title, if there is one.
QIcon statusPicture(const std::string& title);

/// The pictures of titles that come back again and again, as the counts of sessions do.
class StatusPictures {
public:
    /// How many are kept at most.
    static constexpr std::size_t most = 12;

    QIcon of(const std::string& title);

private:
    std::map<std::string, QIcon> kept_;
};

/// Puts the rows into a menu. Rows whose action isn't in `handlers` are greyed out.
struct MenuHandler {
    status_item::Action action = status_item::Action::none;
    std::function<void()> run;
};

void fillMenu(
    QMenu& menu, const std::vector<status_item::MenuRow>& rows, const std::vector<MenuHandler>& handlers
);

} // namespace mimkins
