#include "Drawing/Outline.h"

#include "Drawing/PathCurves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

using Kind = PathElement::Kind;

Point between(Point from, Point to, double way) {
    return {from.x + (to.x - from.x) * way, from.y + (to.y - from.y) * way};
}

double length(Point vector) {
    return std::sqrt(vector.x * vector.x + vector.y * vector.y);
}

/// The number of equal pieces for a curve whose second differences are at most so long, in pixels.
int pieces(double bend, double factor) {
    return std::clamp(static_cast<int>(std::ceil(std::sqrt(bend * factor / flatness))), 1, 64);
}

/// Adds the points of a curve at equal steps. `at` gives the point at a way from 0 to 1, `bendAt` its second
/// derivative. The points between the ends lie a little outside, so that as much area lies beyond the curve
/// as is cut off: a chord leaves out two thirds of its height, which is an eighth of the second derivative.
template <typename At, typename BendAt>
void addCurve(Outline& lines, int count, At at, BendAt bendAt) {
    const double step = 1.0 / count;
    for (int piece = 1; piece < count; ++piece) {
        const double way = piece * step;
        const Point point = at(way);
        const Point bend = bendAt(way);
        const double outwards = step * step / 12;
        lines.add({point.x - bend.x * outwards, point.y - bend.y * outwards});
    }
    lines.add(at(1));
}

Point secondDifference(Point first, Point second, Point third) {
    return {first.x - 2 * second.x + third.x, first.y - 2 * second.y + third.y};
}

void addQuad(Outline& lines, Point from, const PathElement& element, double scale) {
    const Point to = element.a;
    const Point control = element.b;
    const Point bend = secondDifference(from, control, to);
    const auto at = [&](double way) {
        return between(between(from, control, way), between(control, to, way), way);
    };
    addCurve(lines, pieces(length(bend) * scale, 0.25), at, [&](double) {
        return Point{2 * bend.x, 2 * bend.y};
    });
}

void addCubic(Outline& lines, Point from, const PathElement& element, double scale) {
    const Point first = element.b;
    const Point second = element.c;
    const Point to = element.a;
    const Point begin = secondDifference(from, first, second);
    const Point end = secondDifference(first, second, to);
    const auto at = [&](double way) {
        const Point middle = between(first, second, way);
        const Point left = between(between(from, first, way), middle, way);
        return between(left, between(middle, between(second, to, way), way), way);
    };
    addCurve(lines, pieces(std::max(length(begin), length(end)) * scale, 0.75), at, [&](double way) {
        const Point bend = between(begin, end, way);
        return Point{6 * bend.x, 6 * bend.y};
    });
}

/// Pieces for a full turn of a circle of this radius in pixels.
int turnPieces(double radius) {
    if (radius <= flatness) {
        return 4;
    }
    const double step = 2 * std::acos(std::max(1 - flatness / radius, 0.0));
    return std::clamp(static_cast<int>(std::ceil(2 * std::numbers::pi / step)), 8, 96);
}

void addEllipse(Outline& lines, const PathElement& element, double scale) {
    const Point radii{element.b.x / 2, element.b.y / 2};
    const Point center{element.a.x + radii.x, element.a.y + radii.y};
    const int count = turnPieces(std::max(std::fabs(radii.x), std::fabs(radii.y)) * scale);
    // Each point is the one before, turned: two multiplications in place of a sine and a cosine.
    const double step = 2 * std::numbers::pi / count;
    const double cosine = std::cos(step);
    const double sine = std::sin(step);
    // A little outside, so that the polygon has the ellipse's area.
    Point unit{std::sqrt(step / sine), 0};
    lines.begin();
    for (int piece = 0; piece < count; ++piece) {
        lines.add({center.x + radii.x * unit.x, center.y + radii.y * unit.y});
        unit = {unit.x * cosine - unit.y * sine, unit.x * sine + unit.y * cosine};
    }
    lines.close();
}

void addRectangle(Outline& lines, const PathElement& element) {
    const Point near = element.a;
    const Point far{near.x + element.b.x, near.y + element.b.y};
    lines.begin();
    lines.add(near);
    lines.add({far.x, near.y});
    lines.add(far);
    lines.add({near.x, far.y});
    lines.close();
}

/// Lines under construction, and where the pen is.
struct Pen {
    Outline& lines;
    double scale;
    Point at{};
    Point start{};
    bool down = false;
    bool placed = false; ///< by a move or a line, so that an arc has something to join

    void lift() {
        down = false;
        placed = false;
    }

    void put() {
        if (!down) {
            lines.begin();
            lines.add(at);
            start = at;
            down = true;
        }
    }

    void draw(const PathElement& element) {
        switch (element.kind) {
        case Kind::move:
            at = element.a;
            down = false;
            placed = true;
            break;
        case Kind::line:
            put();
            lines.add(element.a);
            at = element.a;
            break;
        case Kind::quad:
            put();
            addQuad(lines, at, element, scale);
            at = element.a;
            break;
        case Kind::cubic:
            put();
            addCubic(lines, at, element, scale);
            at = element.a;
            break;
        case Kind::close:
            if (down) {
                lines.close();
                at = start;
                lift();
            }
            break;
        default:
            break;
        }
    }
};

void drawAsCurves(Pen& pen, const PathElement& element, bool joins) {
    Path curves;
    if (joins) {
        curves.move(pen.at);
    }
    appendCurves(curves, element);
    const auto& elements = curves.elements();
    // The first move only says where the pen is.
    for (std::size_t index = joins ? 1 : 0; index < elements.size(); ++index) {
        pen.draw(elements[index]);
    }
}

} // namespace

void Outline::clear() {
    points_.clear();
    starts_.clear();
    closed_.clear();
}

void Outline::begin() {
    starts_.push_back(points_.size());
    closed_.push_back(0);
}

void Outline::close() {
    if (!closed_.empty()) {
        closed_.back() = 1;
    }
}

std::span<const Point> Outline::contour(std::size_t index) const {
    const std::size_t start = starts_[index];
    const std::size_t end = index + 1 < starts_.size() ? starts_[index + 1] : points_.size();
    return std::span(points_).subspan(start, end - start);
}

void flatten(Outline& lines, const Path& path, double scale) {
    Pen pen{lines, scale};
    for (const PathElement& element : path.elements()) {
        switch (element.kind) {
        case Kind::ellipse:
            addEllipse(lines, element, scale);
            pen.lift();
            break;
        case Kind::roundedRect:
            if (element.c.x <= 0) {
                addRectangle(lines, element);
            } else {
                drawAsCurves(pen, element, false);
            }
            pen.lift();
            break;
        case Kind::arc:
            drawAsCurves(pen, element, pen.down || pen.placed);
            break;
        default:
            pen.draw(element);
            break;
        }
    }
}

} // namespace mimkins
