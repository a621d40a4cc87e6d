#include "PanelView/MoonIcon.h"

#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

// All in a square of 22.
constexpr double designSide = 22;
constexpr Point moonCenter{9.6, 12.4};
constexpr double moonRadius = 7;
constexpr Point shadeCenter{13.4, 8.6};
constexpr double shadeRadius = 5.6;
constexpr double lineWidth = 1.5;

/// What is left of the moon where another disc covers it.
void addCrescent(Path& path) {
    const double dx = shadeCenter.x - moonCenter.x;
    const double dy = shadeCenter.y - moonCenter.y;
    const double distance = std::hypot(dx, dy);
    const double toward = std::atan2(dy, dx);
    const double along =
        (moonRadius * moonRadius - shadeRadius * shadeRadius + distance * distance) / (2 * distance);
    const double outer = std::acos(along / moonRadius);
    const double inner = std::acos((distance - along) / shadeRadius);
    const double back = toward + std::numbers::pi;
    path.move(
        {moonCenter.x + moonRadius * std::cos(toward + outer),
         moonCenter.y + moonRadius * std::sin(toward + outer)}
    );
    path.addArc(moonCenter, moonRadius, toward + outer, toward - outer + 2 * std::numbers::pi);
    path.addArc(shadeCenter, shadeRadius, back + inner, back - inner, ArcDirection::counterclockwise);
    path.closeSubpath();
}

void addStar(Path& path, Point center, double radius) {
    path.move({center.x, center.y - radius});
    path.addQuadCurve({center.x + radius, center.y}, center);
    path.addQuadCurve({center.x, center.y + radius}, center);
    path.addQuadCurve({center.x - radius, center.y}, center);
    path.addQuadCurve({center.x, center.y - radius}, center);
    path.closeSubpath();
}

} // namespace

void drawMoon(GraphicsContext& context, IconForm form, std::span<const Color> colors, double side) {
    GraphicsContext scaled = context;
    scaled.scaleBy(side / designSide, side / designSide);
    const LinearGradient paint{Gradient(colors), {0, 0}, {designSide, designSide}};
    Path moon;
    addCrescent(moon);
    Path stars;
    addStar(stars, {13.6, 8.0}, 3.1);
    addStar(stars, {18.4, 4.2}, 2.3);
    if (form == IconForm::filled) {
        scaled.fill(moon, paint);
    }
    scaled.stroke(moon, paint, StrokeStyle::round(lineWidth));
    // Stars of this size have no inside to leave empty.
    scaled.fill(stars, paint);
    scaled.stroke(stars, paint, StrokeStyle::round(lineWidth * 0.3));
}

} // namespace mimkins
