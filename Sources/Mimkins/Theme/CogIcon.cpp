#include "Theme/ThemeDrawing.h"

#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

constexpr double blinkCycle = 4.1;
constexpr double blinkLength = 0.14;

constexpr double quarter = std::numbers::pi / 2;
constexpr int teeth = 8;

/// Half of a tooth's width, as a share of the gear's radius.
constexpr double halfTooth = 0.17;
constexpr double toothTop = 0.98;
constexpr double toothCorner = 0.1;
constexpr double disc = 0.72;

/// The outline of a tooth, turned by an angle, from where it leaves the disc to where it comes back to it.
/// Its foot lies inside the disc, so that its lower corners aren't seen.
void addTooth(Path& gear, double r, double angle) {
    const Transform turn = Transform::rotation(angle);
    const double side = (halfTooth - toothCorner) * r;
    const double shoulder = -(toothTop - toothCorner) * r;
    const double corner = toothCorner * r;
    gear.addArc(turn.apply({-side, shoulder}), corner, angle - 2 * quarter, angle - quarter);
    gear.addArc(turn.apply({side, shoulder}), corner, angle - quarter, angle);
}

/// Teeth and disc as one outline.
Path gearPath(double r) {
    const double reach = std::asin(halfTooth / disc); // the angle from a tooth's middle to its side
    const double pitch = 2 * std::numbers::pi / teeth;
    Path gear;
    for (int tooth = 0; tooth < teeth; ++tooth) {
        const double angle = tooth * pitch;
        addTooth(gear, r, angle);
        gear.addArc({0, 0}, disc * r, angle - quarter + reach, angle + pitch - quarter - reach);
    }
    gear.closeSubpath();
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
    centred.fill(gear, LinearGradient{Gradient(colors), {0, -r}, {0, r}});
    centred.stroke(gear, Color::black(0.35), StrokeStyle::plain(0.08 * r));
    drawFace(centred, r, t);
}

} // namespace mimkins
