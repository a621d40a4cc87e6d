#pragma once

#include "Base/Handle.h"
#include "PanelView/Backdrop.h"
#include "PanelView/TabFrame.h"
#include "PanelView/Typography.h"
#include "Platform/RunLoop.h"
#include "Presentation/EdgeTabBadge.h"

#include <QAbstractButton>
#include <QImage>

#include <functional>

namespace mimkins {

/// The handle at the screen's edge: opens and shuts the drawer, and says how many sessions want the user.
/// While one of them is blocked its outline glows, and it shivers if it may.
class EdgeTab final : public QAbstractButton {
public:
    struct Content {
        EdgeTabBadge badge;
        bool drawerIsOpen = false;
        bool mayWiggle = true;

        friend bool operator==(const Content&, const Content&) = default;
    };

    /// The loop outlives it.
    explicit EdgeTab(RunLoop& loop);

    /// Asks for the application's menu at a place of the screen.
    std::function<void(QPoint)> onMenu;
    /// Shows a frame in the tab's window at once, as large as the window in the screen's pixels; false if
    /// that can't be done. The frames of its motion go there first, since the toolkit's way onto the screen
    /// takes many times what such a small picture is worth.
    std::function<bool(const QImage&)> onFrame;

    void setContent(const Content& content);
    void setTheme(const PetTheme& theme);
    /// While other windows hide it, it keeps still.
    void setCovered(bool covered);

    /// The moment that the glow shows, in seconds since 1 January 2001.
    double glowMoment() const { return glowMoment_; }

    /// How far to the right it is drawn, points.
    double offset() const { return offset_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool event(QEvent* event) override;

private:
    void describe();
    void redraw();
    void showFrame();
    const QImage& frame();
    void keepTime();
    void glow();
    void wiggle();
    void prepare();
    void drawStill(QPainter& painter);
    void drawOutline(QPainter& painter) const;
    void drawColumn(QPainter& painter) const;
    void drawChevron(QPainter& painter, const QRectF& box) const;
    void drawBadge(QPainter& painter, double middle, double top) const;

    RunLoop& loop_;
    PetTheme theme_; ///< with plain colours
    Typography typography_;
    Content content_;
    Backdrop backdrop_;
    bool covered_ = false;
    QImage still_;   ///< all but the glow, at its ordinary place
    QImage outline_; ///< the glow at its strongest
    TabFrameMemory frame_;
    double glowMoment_ = 0;
    double offset_ = 0;
    Handle glowing_;
    Handle wiggling_;
    double wiggleInterval_ = 0;
};

} // namespace mimkins
