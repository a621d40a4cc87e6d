#include "Drawing/Qt/Shapes.h"

#include "AppIcon/AppIcon.h"

namespace mimkins {

QPainterPath edgeShape(const QRectF& rect, double radius) {
    const double across = 2 * radius;
    QPainterPath path;
    path.moveTo(rect.topRight());
    path.lineTo(rect.left() + radius, rect.top());
    path.arcTo(QRectF(rect.left(), rect.top(), across, across), 90, 90);
    path.lineTo(rect.left(), rect.bottom() - radius);
    path.arcTo(QRectF(rect.left(), rect.bottom() - across, across, across), 180, 90);
    path.lineTo(rect.bottomRight());
    path.closeSubpath();
    return path;
}

QPainterPath appIconPath(const QRectF& square) {
    QPainterPath filled;
    QPainterPath holes;
    const double scale = square.width() / app_icon::side;
    for (const auto& piece : app_icon::menuBarImage) {
        const Rect& rect = piece.rect;
        const QRectF placed(
            square.left() + rect.x * scale, square.top() + (app_icon::side - rect.maxY()) * scale,
            rect.width * scale, rect.height * scale
        );
        QPainterPath part;
        part.addRoundedRect(placed, piece.radius * scale, piece.radius * scale);
        if (piece.ink == app_icon::Ink::fill) {
            filled = filled.united(part);
        } else {
            holes.addPath(part);
        }
    }
    return filled.subtracted(holes);
}

} // namespace mimkins
