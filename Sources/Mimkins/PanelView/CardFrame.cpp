#include "PanelView/CardFrame.h"

#include <algorithm>

namespace mimkins {

namespace {

constexpr double stripedPadding = 14;
constexpr double columnGap = 10;
constexpr double leastTextWidth = 40;
/// How far the heads of the crew reach below the pet's square.
constexpr double crewDrop = 6;

double leadingPadding(const CardLook& look) {
    return look.theme->stripe ? stripedPadding : CardFrame::padding;
}

double columnWidth(double card, double lead, double pet) {
    return std::max(card - lead - pet - columnGap - CardFrame::padding, leastTextWidth);
}

} // namespace

CardFrame::CardFrame(QSizeF widget, const CardLook& look)
    : card_(QRectF(QPointF(0, 0), widget).adjusted(shadowRoom, shadowRoom, -shadowRoom, -shadowRoom)),
      lead_(leadingPadding(look)), pet_(look.petPoints) {}

QRectF CardFrame::petSquare() const {
    return {card_.left() + lead_, card_.top() + padding, pet_, pet_};
}

QRectF CardFrame::crew(QSizeF heads) const {
    const QRectF pet = petSquare();
    return {{pet.center().x() - heads.width() / 2, pet.bottom() + crewDrop - heads.height()}, heads};
}

double CardFrame::textWidth() const {
    return columnWidth(card_.width(), lead_, pet_);
}

double CardFrame::textWidth(double cardWidth, const CardLook& look) {
    return columnWidth(cardWidth, leadingPadding(look), look.petPoints);
}

QPointF CardFrame::textCorner(double height) const {
    const double spare = std::max((card_.height() - 2 * padding - height) / 2, 0.0);
    return {card_.left() + lead_ + pet_ + columnGap, card_.top() + padding + spare};
}

QTransform CardFrame::zoom(double scale) const {
    const QPointF middle = card_.center();
    QTransform transform;
    transform.translate(middle.x(), middle.y());
    transform.scale(scale, scale);
    transform.translate(-middle.x(), -middle.y());
    return transform;
}

} // namespace mimkins
