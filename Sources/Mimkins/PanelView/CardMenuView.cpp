#include "PanelView/CardMenuView.h"

#include "Drawing/Qt/Conversions.h"

namespace mimkins {

namespace {

/// A title as a menu shows it: "&" would underline the next letter.
QString menuTitle(const std::string& title) {
    return qt::text(title).replace("&", "&&");
}

} // namespace

void fillCardMenu(
    QMenu& menu, const std::vector<CardMenuEntry>& entries,
    const std::function<void(const CardChoice&)>& chosen
) {
    for (const auto& entry : entries) {
        switch (entry.kind) {
        case CardMenuEntry::Kind::divider:
            menu.addSeparator();
            break;
        case CardMenuEntry::Kind::submenu:
            fillCardMenu(*menu.addMenu(menuTitle(entry.title)), entry.entries, chosen);
            break;
        case CardMenuEntry::Kind::choice: {
            auto* action = menu.addAction(menuTitle(entry.title));
            action->setEnabled(entry.enabled);
            QObject::connect(action, &QAction::triggered, &menu, [chosen, choice = entry.choice] {
                chosen(choice);
            });
            break;
        }
        }
    }
}

} // namespace mimkins
