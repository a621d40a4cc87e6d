#include "Theme/ThemeDrawing.h"

#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

constexpr double blinkCycle = 4.1;
constexpr double blinkLength = 0.14;

/// A tooth that points away from the middle, as a path of its own turned by an angle.
void addTooth(Path& gear, double r, double angle) {
    const double left = -0.17 * r;
    const double top = -0.98 * r;
    const double bottom = top + 0.4 * r;
    const double corner = 0.1 * r;
    const Transform turn = Transform::rotation(angle);
    const auto at = [&](double x, double y) { return turn.apply({x, y}); };
    gear.move(at(left, bottom - corner));
    gear.addLine(at(left, top + corner));
    gear.addQuadCurve(at(left + corner, top), at(left, top));
    gear.addLine(at(-left - corner, top));
    gear.addQuadCurve(at(-left, top + corner), at(-left, top));
    gear.addLine(at(-left, bottom - corner));
    gear.addQuadCurve(at(-left - corner, bottom), at(-left, bottom));
    gear.addLine(at(left + corner, bottom));
    gear.addQuadCurve(at(left, bottom - corner), at(left, bottom));
    gear.closeSubpath();
}

Path gearPath(double r) {
    Path gear;
    for (int tooth = 0; tooth < 8; ++tooth) {
        addTooth(gear, r, tooth * std::numbers::pi / 4);
    }
    const double disc = 0.72 * r;
    gear.addEllipse({-disc, -disc, 2 * disc, 2 * disc});
    return gear;
}

void drawFace(GraphicsContext& context, double r, double t) {
    const double hub = 0.42 * r;
    context.fill(Path::ellipse({-hub, -hub, 2 * hub, 2 * hub}), Color::white(0.9));
    const double width = 0.11 * r;
    const double height = cogBlinks(t) ? 0.05 * r : 0.26 * r;
    for (const double x : {-0.15 * r, 0.15 * r}) {
        context.fill(
            Path::roundedRect({x - width / 2, -height / 2, width, height}, width / 2), Color::grey(0.12)
        );
    }
}

} // namespace

bool cogBlinks(double t) {
    return t - blinkCycle * std::floor(t / blinkCycle) < blinkLength;
}

void drawCog(GraphicsContext& context, const std::vector<Color>& colors, const Cog& cog, double t) {
    const double r = cog.size / 2;
    GraphicsContext centred = context;
    centred.translateBy(r, r);
    centred.rotate(cog.turn);
    const Path gear = gearPath(r);
    // Teeth and disc overlap: the outline lies under the fill, so that none of it is seen inside.
    centred.stroke(gear, Color::black(0.35), StrokeStyle::round(2 * 0.08 * r));
    centred.fill(gear, LinearGradient{Gradient(colors), {0, -r}, {0, r}});
    drawFace(centred, r, t);
}

} // namespace mimkins
