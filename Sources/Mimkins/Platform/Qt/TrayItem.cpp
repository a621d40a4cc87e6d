#include "Platform/Qt/TrayItem.h"

namespace mimkins {

TrayItem::TrayItem() {
    QObject::connect(
        &icon_, &QSystemTrayIcon::activated, &icon_,
        [this](QSystemTrayIcon::ActivationReason reason) {
            const bool meant = reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::MiddleClick;
            if (meant && onClick) {
                onClick();
            }
        }
    );
    QObject::connect(&menu_, &QMenu::aboutToShow, &menu_, [this] { fillMenu(); });
}

void TrayItem::setToolTip(const QString& words) {
    if (icon_.toolTip() != words) {
        icon_.setToolTip(words);
    }
}

void TrayItem::show() {
    fillMenu(); // a menu that is handed over to the desktop must not be empty
    icon_.setContextMenu(&menu_);
    icon_.show();
}

void TrayItem::fillMenu() {
    if (onMenu) {
        menu_.clear();
        onMenu(menu_);
    }
}

} // namespace mimkins
