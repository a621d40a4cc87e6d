#include "Drawing/Qt/Shapes.h"

#include "AppIcon/AppIcon.h"
#include "Drawing/Qt/Conversions.h"

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
