#pragma once

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

#include <functional>

namespace mimkins {

/// The status item in the desktop's tray. Without a tray it stays away, and appears when one comes.
class TrayItem {
public:
    TrayItem();

    /// A click that isn't for the menu.
    std::function<void()> onClick;
    /// Fills the emptied menu; called each time before it opens.
    std::function<void(QMenu&)> onMenu;

    void setPicture(const QIcon& picture) { icon_.setIcon(picture); }

    /// The desktop hears of it only if it changes.
    void setToolTip(const QString& words);

    /// Shows the item, which must have its picture by then.
    void show();

    void hide() { icon_.hide(); }

private:
    void fillMenu();

    QMenu menu_;
    QSystemTrayIcon icon_;
};

} // namespace mimkins
