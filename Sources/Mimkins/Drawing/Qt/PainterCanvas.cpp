#include "Drawing/Qt/PainterCanvas.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Fonts.h"
#include "Drawing/Qt/Shapes.h"

#include <QBrush>
#include <QConicalGradient>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

QPointF point(Point value) {
    return {value.x, value.y};
}

void addStops(QGradient& target, const Gradient& gradient, ColorScheme scheme) {
    QGradientStops stops;
    for (std::size_t index = 0; index < gradient.colors().size(); ++index) {
        stops.append({gradient.location(index), qt::color(gradient.colors()[index].resolved(scheme))});
    }
    target.setStops(stops);
}

struct BrushOf {
    ColorScheme scheme;

    QBrush operator()(const Color& color) const { return qt::color(color.resolved(scheme)); }

    QBrush operator()(const LinearGradient& linear) const {
        QLinearGradient gradient(point(linear.start), point(linear.end));
        addStops(gradient, linear.gradient, scheme);
        return gradient;
    }

    QBrush operator()(const RadialGradient& radial) const {
        QRadialGradient gradient(
            point(radial.center), radial.endRadius, point(radial.center), radial.startRadius
        );
        addStops(gradient, radial.gradient, scheme);
        return gradient;
    }

    /// Qt's goes round counterclockwise, and so its colours go in the other order.
    QBrush operator()(const AngularGradient& angular) const {
        QConicalGradient gradient(point(angular.center), -angular.angle * 180 / std::numbers::pi);
        QGradientStops stops;
        const auto colors = angular.gradient.colors();
        for (std::size_t index = colors.size(); index-- > 0;) {
            stops.append({1 - angular.gradient.location(index), qt::color(colors[index].resolved(scheme))});
        }
        gradient.setStops(stops);
        return gradient;
    }
};

QPen pen(const QBrush& brush, const StrokeStyle& style) {
    QPen result(
        brush, style.width, Qt::SolidLine, style.cap == LineCap::round ? Qt::RoundCap : Qt::FlatCap,
        style.join == LineJoin::round ? Qt::RoundJoin : Qt::MiterJoin
    );
    result.setMiterLimit(style.miterLimit);
    if (style.dashCount > 0 && style.width > 0) {
        QList<qreal> pattern; // in units of the width
        for (std::size_t index = 0; index < style.dashCount; ++index) {
            pattern.append(style.dash[index] / style.width);
        }
        result.setDashPattern(pattern);
    }
    return result;
}

} // namespace

PainterCanvas::PainterCanvas(QPainter& painter, ColorScheme scheme) : painter_(&painter), scheme_(scheme) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
}

PainterCanvas::~PainterCanvas() {
    painter_->restore();
}

void PainterCanvas::enter(const DrawingState& state) {
    const Transform& map = state.transform;
    painter_->save();
    painter_->setTransform(QTransform(map.a, map.b, map.c, map.d, map.tx, map.ty), true);
    painter_->setOpacity(painter_->opacity() * state.opacity);
}

void PainterCanvas::fill(const Path& path, const Shading& shading, const DrawingState& state) {
    enter(state);
    painter_->fillPath(qt::path(path), std::visit(BrushOf{scheme_}, shading));
    painter_->restore();
}

void PainterCanvas::stroke(
    const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state
) {
    enter(state);
    painter_->strokePath(qt::path(path), pen(std::visit(BrushOf{scheme_}, shading), style));
    painter_->restore();
}

void PainterCanvas::draw(const TextRun& text, Point center, const DrawingState& state) {
    // Fonts come in sizes for whole pixels, hinted for them; drawn large and scaled down, the glyphs keep
    // their shape at every size.
    constexpr int drawn = 64;
    enter(state);
    QFont font = fontOf(text.design, text.weight);
    font.setPixelSize(drawn);
    const QString characters = qt::text(text.text);
    const QFontMetricsF metrics(font);
    const double scale = text.size / drawn;
    painter_->translate(point(center));
    painter_->scale(scale, scale);
    QPainterPath glyphs;
    glyphs.addText(
        -metrics.horizontalAdvance(characters) / 2, (metrics.ascent() - metrics.descent()) / 2, font,
        characters
    );
    painter_->fillPath(glyphs, qt::color(text.color.resolved(scheme_)));
    painter_->restore();
}

} // namespace mimkins
