#include "Drawing/ThingSymbols.h"

#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

constexpr double pi = std::numbers::pi;

Point onCircle(Point center, double radius, double angle) {
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

void drawWave(GraphicsContext& context, const Shading& ink) {
    GraphicsContext hand = context;
    hand.translateBy(8.3, 10);
    hand.rotate(-0.35);
    hand.fill(Path::roundedRect({-3.7, -2.6, 7.4, 7.6}, 3.2), ink);
    for (int finger = 0; finger < 4; ++finger) {
        const double x = -3.7 + 1.95 * finger;
        const double top = finger == 0 ? -6.2 : finger == 3 ? -6.6 : -8;
        hand.fill(Path::roundedRect({x, top, 1.6, 8}, 0.8), ink);
    }
    hand.stroke(Path::polyline({{3, 2}, {5.3, -1.6}}), ink, StrokeStyle::round(1.7));
    Path lines;
    lines.move(onCircle({8, 9}, 7.4, -0.25 * pi));
    lines.addArc({8, 9}, 7.4, -0.25 * pi, -0.08 * pi);
    lines.move(onCircle({8, 9}, 7.4, 0.68 * pi));
    lines.addArc({8, 9}, 7.4, 0.68 * pi, 0.86 * pi);
    context.stroke(lines, ink, StrokeStyle::round(1));
}

/// A box seen from a corner: three faces with a little air between them.
void drawBox(GraphicsContext& context, const Shading& ink) {
    const auto edge = StrokeStyle::round(0.8);
    for (const auto& face :
         {Path::polygon({{8, 1.4}, {13.6, 4.2}, {8, 7}, {2.4, 4.2}}),
          Path::polygon({{1.9, 5.8}, {7.1, 8.4}, {7.1, 14.4}, {1.9, 11.8}}),
          Path::polygon({{14.1, 5.8}, {8.9, 8.4}, {8.9, 14.4}, {14.1, 11.8}})}) {
        context.fill(face, ink);
        context.stroke(face, ink, edge);
    }
}

void drawAlarm(GraphicsContext& context, const Shading& ink) {
    context.stroke(Path::ellipse({3, 3.8, 10, 10}), ink, StrokeStyle::round(1.8));
    context.stroke(Path::polyline({{8, 6}, {8, 9}, {10, 10}}), ink, StrokeStyle::round(1.4));
    const auto bell = StrokeStyle::round(1.8);
    context.stroke(Path::polyline({{1.6, 4.6}, {4.4, 2}}), ink, bell);
    context.stroke(Path::polyline({{14.4, 4.6}, {11.6, 2}}), ink, bell);
    context.stroke(Path::polyline({{4.4, 12.9}, {3.4, 14.6}}), ink, bell);
    context.stroke(Path::polyline({{11.6, 12.9}, {12.6, 14.6}}), ink, bell);
}

void drawGear(GraphicsContext& context, const Shading& ink, Point center, double radius) {
    context.stroke(
        Path::ellipse({center.x - radius, center.y - radius, 2 * radius, 2 * radius}), ink,
        StrokeStyle::plain(radius * 0.7)
    );
    for (int tooth = 0; tooth < 8; ++tooth) {
        const double angle = tooth * pi / 4;
        context.stroke(
            Path::polyline({onCircle(center, radius, angle), onCircle(center, radius * 1.65, angle)}), ink,
            StrokeStyle::plain(radius * 0.5)
        );
    }
}

void drawOpenApp(GraphicsContext& context, const Shading& ink) {
    const auto line = StrokeStyle::round(1.5);
    Path frame;
    frame.move({8, 2.6});
    frame.addLine({4.6, 2.6});
    frame.addQuadCurve({2.6, 4.6}, {2.6, 2.6});
    frame.addLine({2.6, 11.4});
    frame.addQuadCurve({4.6, 13.4}, {2.6, 13.4});
    frame.addLine({11.4, 13.4});
    frame.addQuadCurve({13.4, 11.4}, {13.4, 13.4});
    frame.addLine({13.4, 8});
    context.stroke(frame, ink, line);
    context.stroke(Path::polyline({{7.6, 8.4}, {13.6, 2.4}}), ink, line);
    context.stroke(Path::polyline({{10.2, 2.2}, {13.8, 2.2}, {13.8, 5.8}}), ink, line);
}

void drawRefresh(GraphicsContext& context, const Shading& ink) {
    constexpr Point center{8, 8.4};
    constexpr double radius = 5.4;
    constexpr double end = -0.3 * pi;
    Path round;
    round.move(onCircle(center, radius, 0.05 * pi));
    round.addArc(center, radius, 0.05 * pi, end + 2 * pi);
    context.stroke(round, ink, StrokeStyle::round(1.7));
    const Point tip = onCircle(center, radius, end);
    const Path head =
        Path::polygon({{tip.x + 2.2, tip.y + 1.8}, {tip.x + 1.7, tip.y - 3.2}, {tip.x - 2.6, tip.y + 0.9}});
    context.fill(head, ink);
    context.stroke(head, ink, StrokeStyle::round(0.5));
}

/// A cone that lies open to the top right, and what flies out of it.
void drawPartyPopper(GraphicsContext& context, const Shading& ink) {
    Path cone;
    cone.move({1.2, 14.8});
    cone.addLine({4.6, 5.6});
    cone.addQuadCurve({10.4, 11.4}, {9.2, 6.8});
    cone.closeSubpath();
    context.fill(cone, ink);
    context.stroke(cone, ink, StrokeStyle::round(1.2));
    const auto line = StrokeStyle::round(1.5);
    Path streamer;
    streamer.move({9.2, 6.8});
    streamer.addQuadCurve({13.6, 5.2}, {10.6, 3.8});
    context.stroke(streamer, ink, line);
    context.stroke(Path::polyline({{7.2, 3.8}, {7.4, 1.6}}), ink, line);
    context.stroke(Path::polyline({{12.2, 8.8}, {14.4, 8.6}}), ink, line);
    for (const Point paper : {Point{10.4, 1.8}, Point{14.2, 2}, Point{14, 12}}) {
        context.fill(Path::ellipse({paper.x - 1, paper.y - 1, 2, 2}), ink);
    }
}

void drawShuffle(GraphicsContext& context, const Shading& ink) {
    const auto line = StrokeStyle::round(1.6);
    for (const double way : {-1.0, 1.0}) {
        const auto at = [way](double x, double y) { return Point{x, 8 + way * y}; };
        Path arrow;
        arrow.move(at(1.2, -3.6));
        arrow.addLine(at(3.4, -3.6));
        arrow.addCurve(at(11.2, 3.6), at(7.2, -3.6), at(7.4, 3.6));
        arrow.addLine(at(14.2, 3.6));
        context.stroke(arrow, ink, line);
        Path head;
        head.move(at(12.2, 1.5));
        head.addLine(at(14.6, 3.6));
        head.addLine(at(12.2, 5.7));
        context.stroke(head, ink, line);
    }
}

void drawPower(GraphicsContext& context, const Shading& ink) {
    constexpr Point center{8, 8.6};
    constexpr double radius = 5.6;
    constexpr double gap = 0.23 * pi;
    Path ring;
    ring.move(onCircle(center, radius, -0.5 * pi + gap));
    ring.addArc(center, radius, -0.5 * pi + gap, 1.5 * pi - gap);
    context.stroke(ring, ink, StrokeStyle::round(1.8));
    context.stroke(Path::polyline({{8, 1.8}, {8, 8}}), ink, StrokeStyle::round(1.8));
}

void drawInfo(GraphicsContext& context, const Shading& ink) {
    context.stroke(Path::ellipse({1.5, 1.5, 13, 13}), ink, StrokeStyle::round(1.6));
    context.fill(Path::ellipse({6.95, 3.9, 2.1, 2.1}), ink);
    context.stroke(Path::polyline({{8, 7.7}, {8, 11.5}}), ink, StrokeStyle::round(1.7));
}

void drawFilledCheckmark(GraphicsContext& context, const Shading& ink) {
    Path disc = Path::ellipse({0.8, 0.8, 14.4, 14.4});
    // Against the disc's direction, so that the winding rule leaves it out.
    disc.move({4.2, 8.9});
    for (const Point corner : {Point{7.16, 11.86}, {11.86, 6.14}, {10.54, 5.06}, {7.04, 9.34}, {5.4, 7.7}}) {
        disc.addLine(corner);
    }
    disc.closeSubpath();
    context.fill(disc, ink);
}

} // namespace

void drawThing(GraphicsContext& context, Symbol symbol, const Shading& ink) {
    switch (symbol) {
    case Symbol::wave:
        return drawWave(context, ink);
    case Symbol::box:
        return drawBox(context, ink);
    case Symbol::alarm:
        return drawAlarm(context, ink);
    case Symbol::gears:
        drawGear(
            context, ink,
            {
                5.8,
                6,
            },
            2.9
        );
        return drawGear(context, ink, {12, 11.8}, 2);
    case Symbol::openApp:
        return drawOpenApp(context, ink);
    case Symbol::refresh:
        return drawRefresh(context, ink);
    case Symbol::partyPopper:
        return drawPartyPopper(context, ink);
    case Symbol::shuffle:
        return drawShuffle(context, ink);
    case Symbol::power:
        return drawPower(context, ink);
    case Symbol::infoCircle:
        return drawInfo(context, ink);
    case Symbol::checkmarkCircleFilled:
        return drawFilledCheckmark(context, ink);
    default:
        return;
    }
}

} // namespace mimkins
