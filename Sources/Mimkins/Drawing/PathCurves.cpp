#include "Drawing/PathCurves.h"

#include <array>
#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

using Kind = PathElement::Kind;

/// How far a cubic's control points lie from its ends, in radii, for the best quarter of a circle.
constexpr double quarterControl = 0.5522847498;

/// Where a corner begins and how far its control points lie from the vertex, in radii.
struct CornerShape {
    double begin = 1;
    double control = 1 - quarterControl;
};

/// A continuous corner begins at 1.45 radii where there is room. Its control points lie so that its middle is
/// that of the circular corner, which is (1 - 1/sqrt 2) radii off each side: the middle of the cubic lies at
/// (begin + 3 control) / 8.
CornerShape cornerShape(CornerStyle style, double radius, double shorterSide) {
    if (style == CornerStyle::circular || radius <= 0) {
        return {};
    }
    CornerShape shape;
    shape.begin = std::fmin(1.45, shorterSide / 2 / radius);
    shape.control = (8 * (1 - 1 / std::numbers::sqrt2) - shape.begin) / 3;
    return shape;
}

Point currentPoint(const Path& path) {
    return path.isEmpty() ? Point{} : path.elements().back().a;
}

void appendQuad(Path& curves, const PathElement& element) {
    const Point from = currentPoint(curves);
    const auto third = [](Point end, Point control) {
        return Point{end.x + (control.x - end.x) * 2 / 3, end.y + (control.y - end.y) * 2 / 3};
    };
    curves.addCurve(element.a, third(from, element.b), third(element.a, element.b));
}

void appendEllipse(Path& curves, const PathElement& element) {
    const double rx = element.b.x / 2;
    const double ry = element.b.y / 2;
    const Point center{element.a.x + rx, element.a.y + ry};
    const auto at = [&](double x, double y) { return Point{center.x + x * rx, center.y + y * ry}; };
    constexpr double k = quarterControl;
    curves.move(at(1, 0));
    curves.addCurve(at(0, 1), at(1, k), at(k, 1));
    curves.addCurve(at(-1, 0), at(-k, 1), at(-1, k));
    curves.addCurve(at(0, -1), at(-1, -k), at(-k, -1));
    curves.addCurve(at(1, 0), at(k, -1), at(1, -k));
    curves.closeSubpath();
}

void appendRoundedRect(Path& curves, const PathElement& element) {
    const double radius = element.c.x;
    const double right = element.a.x + element.b.x;
    const double bottom = element.a.y + element.b.y;
    const CornerShape shape = cornerShape(element.corners, radius, std::fmin(element.b.x, element.b.y));
    const double e = radius * shape.begin;
    const double k = radius * shape.control;
    const double x = element.a.x;
    const double y = element.a.y;
    curves.move({x + e, y});
    curves.addLine({right - e, y});
    curves.addCurve({right, y + e}, {right - k, y}, {right, y + k});
    curves.addLine({right, bottom - e});
    curves.addCurve({right - e, bottom}, {right, bottom - k}, {right - k, bottom});
    curves.addLine({x + e, bottom});
    curves.addCurve({x, bottom - e}, {x + k, bottom}, {x, bottom - k});
    curves.addLine({x, y + e});
    curves.addCurve({x + e, y}, {x, y + k}, {x + k, y});
    curves.closeSubpath();
}

/// The angle to go from the start to the end in the arc's direction; a full turn at most.
double sweep(const PathElement& element) {
    constexpr double turn = 2 * std::numbers::pi;
    const double difference = element.b.y - element.b.x;
    if (std::fabs(difference) >= turn) {
        return element.direction == ArcDirection::clockwise ? turn : -turn;
    }
    if (element.direction == ArcDirection::clockwise) {
        return difference < 0 ? difference + turn : difference;
    }
    return difference > 0 ? difference - turn : difference;
}

void appendArc(Path& curves, const PathElement& element) {
    const double whole = sweep(element);
    const int pieces =
        std::max(1, static_cast<int>(std::ceil(std::fabs(whole) / (std::numbers::pi / 2) - 1e-9)));
    const double step = whole / pieces;
    const double control = 4.0 / 3 * std::tan(step / 4);
    const auto at = [&](double angle, double along) {
        const double cosine = std::cos(angle);
        const double sine = std::sin(angle);
        const double radius = element.c.x;
        return Point{
            element.a.x + radius * (cosine - along * sine), element.a.y + radius * (sine + along * cosine)};
    };
    double angle = element.b.x;
    if (curves.isEmpty() || curves.elements().back().kind == Kind::close) {
        curves.move(at(angle, 0));
    } else {
        curves.addLine(at(angle, 0));
    }
    for (int piece = 0; piece < pieces; ++piece, angle += step) {
        curves.addCurve(at(angle + step, 0), at(angle, control), at(angle + step, -control));
    }
}

} // namespace

void appendCurves(Path& curves, const PathElement& element) {
    switch (element.kind) {
    case Kind::move:
        curves.move(element.a);
        break;
    case Kind::line:
        curves.addLine(element.a);
        break;
    case Kind::quad:
        appendQuad(curves, element);
        break;
    case Kind::cubic:
        curves.addCurve(element.a, element.b, element.c);
        break;
    case Kind::close:
        curves.closeSubpath();
        break;
    case Kind::ellipse:
        appendEllipse(curves, element);
        break;
    case Kind::roundedRect:
        appendRoundedRect(curves, element);
        break;
    case Kind::arc:
        appendArc(curves, element);
        break;
    }
}

Path Path::leftRoundedRect(const Rect& rect, double radius) {
    const CornerShape shape =
        cornerShape(CornerStyle::continuous, radius, std::fmin(2 * rect.width, rect.height));
    const double begin = radius * shape.begin;
    const double control = radius * shape.control;
    Path path;
    path.move({rect.maxX(), rect.y});
    path.addLine({rect.x + begin, rect.y});
    path.addCurve({rect.x, rect.y + begin}, {rect.x + control, rect.y}, {rect.x, rect.y + control});
    path.addLine({rect.x, rect.maxY() - begin});
    path.addCurve(
        {rect.x + begin, rect.maxY()}, {rect.x, rect.maxY() - control}, {rect.x + control, rect.maxY()}
    );
    path.addLine({rect.maxX(), rect.maxY()});
    path.closeSubpath();
    return path;
}

} // namespace mimkins
