#pragma once

#include "PanelView/Backdrop.h"
#include "PanelView/Typography.h"
#include "Presentation/EdgeTabBadge.h"

#include <QAbstractButton>

#include <functional>

namespace mimkins {

/// The handle at the screen's edge: opens and shuts the drawer, and says how many sessions want the user.
class EdgeTab final : public QAbstractButton {
public:
    struct Content {
        EdgeTabBadge badge;
        bool drawerIsOpen = false;

        friend bool operator==(const Content&, const Content&) = default;
    };

    EdgeTab();

    /// Asks for the application's menu at a place of the screen.
    std::function<void(QPoint)> onMenu;

    void setContent(const Content& content);
    void setTheme(const PetTheme& theme);

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool event(QEvent* event) override;

private:
    void describe();
    void drawChevron(QPainter& painter, const QRectF& box) const;
    void drawBadge(QPainter& painter, const QRectF& box) const;

    PetTheme theme_; ///< with plain colours
    Typography typography_;
    Content content_;
    Backdrop backdrop_;
};

} // namespace mimkins
