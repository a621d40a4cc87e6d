#pragma once

#include "Presentation/CardMenu.h"

#include <QMenu>

#include <functional>
#include <vector>

namespace mimkins {

/// Fills a menu with these entries. `chosen` is called with what the user picks.
void fillCardMenu(
    QMenu& menu, const std::vector<CardMenuEntry>& entries,
    const std::function<void(const CardChoice&)>& chosen
);

} // namespace mimkins
