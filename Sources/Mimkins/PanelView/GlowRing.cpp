#include "PanelView/GlowRing.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"
#include "PanelView/AnimationTime.h"
#include "PanelView/StretchedPicture.h"
#include "Theme/ThemeDrawing.h"

#include <QPen>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

/// The same ring around a card that is just high enough for its corners.
GlowRing::Shape lowered(const GlowRing::Shape& shape) {
    const double below = shape.size.height() - shape.card.bottom();
    const double end = std::max(shape.card.top(), below) + cornerReach * shape.radius + GlowRing::blur;
    GlowRing::Shape low = shape;
    low.size.setHeight(2 * static_cast<int>(std::ceil(end)) + 1);
    low.card.setBottom(low.size.height() - below);
    return low;
}

void strokeInside(QPainter& painter, const GlowRing::Shape& shape, const QColor& color, double width) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width));
    painter.drawPath(roundedShape(shape.card.adjusted(1, 1, -1, -1), shape.radius - 1));
}

} // namespace

GlowRing::Pictures GlowRing::drawn(const Shape& shape, double ratio) {
    Pictures pictures{shape, clearPicture(shape.size, ratio), clearPicture(shape.size, ratio)};
    QPainter outline(&pictures.outline);
    strokeInside(outline, shape, qt::color(shape.tint), 2);
    QPainter light(&pictures.light);
    constexpr int layers = 12; // so many that no step is seen
    for (int layer = layers; layer > 0; --layer) {
        strokeInside(light, shape, qt::color(shape.tint.faded(1.4 / layers)), 2 + 2 * blur * layer / layers);
    }
    return pictures;
}

void GlowRing::prepare(const Shape& shape, double ratio) {
    if (shown_.isOf(shape, ratio)) {
        return;
    }
    const Shape low = lowered(shape);
    if (shape.size.height() <= low.size.height() || !canStretch(ratio)) {
        shown_ = drawn(shape, ratio);
        return;
    }
    if (!low_.isOf(low, ratio)) {
        low_ = drawn(low, ratio);
    }
    const int height = shape.size.height() * static_cast<int>(ratio);
    shown_ = {shape, stretched(low_.outline, height), stretched(low_.light, height)};
}

void GlowRing::draw(QPainter& painter, const Shape& shape, Date at) {
    prepare(shape, painter.device()->devicePixelRatio());
    const double t = animationTime(at);
    const double before = painter.opacity();
    painter.setOpacity(before * glowLightOpacity(t));
    painter.drawImage(0, 0, shown_.light);
    painter.setOpacity(before * glowOpacity(t));
    painter.drawImage(0, 0, shown_.outline);
    painter.setOpacity(before);
}

QRegion GlowRing::region(const Shape& shape) {
    // At a round corner the ring reaches further into the card than at its sides.
    const int inset = static_cast<int>(std::ceil(2 + blur + shape.radius * 0.3));
    const QRect inner = shape.card.toRect().adjusted(inset, inset, -inset, -inset);
    return QRegion(QRect(QPoint(0, 0), shape.size)) - QRegion(inner);
}

} // namespace mimkins
