#include "PanelView/GlowRing.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"
#include "Pet/PetFrame.h"
#include "Theme/ThemeDrawing.h"

#include <QPen>

#include <cmath>

namespace mimkins {

namespace {

QPixmap blank(QSize size, double ratio) {
    QPixmap picture((QSizeF(size) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    return picture;
}

void strokeInside(QPainter& painter, const GlowRing::Shape& shape, const QColor& color, double width) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width));
    painter.drawPath(roundedShape(shape.card.adjusted(1, 1, -1, -1), shape.radius - 1));
}

} // namespace

void GlowRing::prepare(const Shape& shape, double ratio) {
    if (shape == shape_ && outline_.devicePixelRatio() == ratio && !outline_.isNull()) {
        return;
    }
    shape_ = shape;
    outline_ = blank(shape.size, ratio);
    QPainter outline(&outline_);
    strokeInside(outline, shape, qt::color(shape.tint), 2);
    light_ = blank(shape.size, ratio);
    QPainter light(&light_);
    constexpr int layers = 12; // so many that no step is seen
    for (int layer = layers; layer > 0; --layer) {
        strokeInside(light, shape, qt::color(shape.tint.faded(1.4 / layers)), 2 + 2 * blur * layer / layers);
    }
}

void GlowRing::draw(QPainter& painter, const Shape& shape, Date at) {
    prepare(shape, painter.device()->devicePixelRatio());
    const double pulse = glowPulse(at.secondsSince1970 - animationReference);
    const double before = painter.opacity();
    painter.setOpacity(before * (0.1 + 0.45 * pulse));
    painter.drawPixmap(0, 0, light_);
    painter.setOpacity(before * (0.4 + 0.55 * pulse));
    painter.drawPixmap(0, 0, outline_);
    painter.setOpacity(before);
}

QRegion GlowRing::region(const Shape& shape) {
    // At a round corner the ring reaches further into the card than at its sides.
    const int inset = static_cast<int>(std::ceil(2 + blur + shape.radius * 0.3));
    const QRect inner = shape.card.toRect().adjusted(inset, inset, -inset, -inset);
    return QRegion(QRect(QPoint(0, 0), shape.size)) - QRegion(inner);
}

} // namespace mimkins
