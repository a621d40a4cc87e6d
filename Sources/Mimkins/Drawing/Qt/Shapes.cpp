#include "Drawing/Qt/Shapes.h"

#include "AppIcon/AppIcon.h"
#include "Drawing/Qt/Conversions.h"

#include <QTransform>

namespace mimkins {

namespace {

QPointF point(Point value) {
    return {value.x, value.y};
}

} // namespace

QPainterPath qt::path(const Path& source) {
    QPainterPath result;
    result.setFillRule(Qt::WindingFill);
    const Path curves = source.flattenedToCurves();
    for (const PathElement& element : curves.elements()) {
        switch (element.kind) {
        case PathElement::Kind::move:
            result.moveTo(point(element.a));
            break;
        case PathElement::Kind::line:
            result.lineTo(point(element.a));
            break;
        case PathElement::Kind::cubic:
            result.cubicTo(point(element.b), point(element.c), point(element.a));
            break;
        default:
            result.closeSubpath();
            break;
        }
    }
    return result;
}

QPainterPath roundedShape(const QRectF& rect, double radius) {
    return qt::path(Path::roundedRect(qt::rect(rect), radius, CornerStyle::continuous));
}

QPainterPath edgeShape(const QRectF& rect, double radius) {
    return qt::path(Path::leftRoundedRect(qt::rect(rect), radius));
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
