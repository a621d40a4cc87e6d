#include "Drawing/Qt/Shapes.h"

#include "AppIcon/AppIcon.h"

#include <QTransform>

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

namespace {

QPainterPath iconPath() {
    QPainterPath filled;
    QPainterPath holes;
    for (const auto& piece : app_icon::menuBarImage) {
        const Rect& rect = piece.rect;
        QPainterPath part;
        part.addRoundedRect(
            QRectF(rect.x, app_icon::side - rect.maxY(), rect.width, rect.height), piece.radius, piece.radius
        );
        if (piece.ink == app_icon::Ink::fill) {
            filled = filled.united(part);
        } else {
            holes.addPath(part);
        }
    }
    return filled.subtracted(holes);
}

} // namespace

QPainterPath appIconPath(const QRectF& square) {
    static const QPainterPath path = iconPath(); // cutting paths out of each other takes long
    const double scale = square.width() / app_icon::side;
    return QTransform(scale, 0, 0, scale, square.left(), square.top()).map(path);
}

} // namespace mimkins
