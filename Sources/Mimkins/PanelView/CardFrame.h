#pragma once

#include "PanelView/CardLook.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

namespace mimkins {

/// Where the parts of a card stand inside its widget, at the card's ordinary size. Lengths in points.
class CardFrame {
public:
    /// Room around the card, inside the widget, for its shadow and its glow, and to grow.
    static constexpr int shadowRoom = 10;
    static constexpr double padding = 10;

    CardFrame(QSizeF widget, const CardLook& look);

    const QRectF& card() const { return card_; }

    QRectF petSquare() const;
    /// Heads of this size over the bottom edge of the pet's square.
    QRectF crew(QSizeF heads) const;
    /// The width of the column beside the pet.
    double textWidth() const;
    /// The column's width in a card of this width.
    static double textWidth(double cardWidth, const CardLook& look);
    /// The column's top left corner, when it is so high: few words stand beside the pet's middle, many begin
    /// at the top.
    QPointF textCorner(double height) const;
    /// Grows or shrinks the card about its middle.
    QTransform zoom(double scale) const;

private:
    QRectF card_;
    double lead_; ///< from the card's left edge to the pet
    double pet_;  ///< the side of its square
};

} // namespace mimkins
