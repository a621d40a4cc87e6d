#pragma once

#include "Base/Date.h"
#include "PanelView/Backdrop.h"

#include <QWidget>

namespace mimkins {

/// What lies behind everything in the drawer. Its moving parts have the widget drawn again where they are.
class PanelGround {
public:
    /// Both outlive this; the theme may change behind the reference, which `themeChanged` then tells.
    PanelGround(QWidget& widget, const PetTheme& theme, Date now);

    void draw(QPainter& painter, const QRegion& region);
    /// What of it lies behind an area of a widget in the drawer, in that widget's own coordinates.
    void drawBehind(QPainter& painter, const QWidget& widget, const QRect& area);
    void themeChanged(Date now);
    /// True if anything in it moves.
    bool moves() const;
    /// True if what moves comes inside the drawer's edge, and so behind the cards.
    bool movesInside() const;
    /// Moves on what is due: each part has a pace of its own, slower than that of the frames.
    void animate(Date now);

    const Backdrop& backdrop() const { return backdrop_; }

private:
    Backdrop::Form form() const;
    QWidget& widget_;
    const PetTheme& theme_;
    Backdrop backdrop_;
};

} // namespace mimkins
