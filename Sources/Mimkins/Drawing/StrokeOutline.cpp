#include "Drawing/Outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

Point minus(Point left, Point right) {
    return {left.x - right.x, left.y - right.y};
}

Point plus(Point point, Point vector, double times) {
    return {point.x + vector.x * times, point.y + vector.y * times};
}

double cross(Point left, Point right) {
    return left.x * right.y - left.y * right.x;
}

double dot(Point left, Point right) {
    return left.x * right.x + left.y * right.y;
}

/// A direction turned by a quarter: to the right of the way on the screen, where y grows downwards.
Point beside(Point direction) {
    return {-direction.y, direction.x};
}

/// The line being widened: its points without repetition, and the steps between them.
struct Way {
    std::vector<Point> points;
    std::vector<Point> directions;
    std::vector<double> lengths;
    bool closed = false;

    void take(std::span<const Point> contour, bool isClosed) {
        points.clear();
        directions.clear();
        lengths.clear();
        closed = isClosed;
        constexpr double nothing = 1e-9;
        for (const Point& point : contour) {
            if (points.empty() ||
                std::fabs(point.x - points.back().x) + std::fabs(point.y - points.back().y) > nothing) {
                points.push_back(point);
            }
        }
        while (closed && points.size() > 1 &&
               std::fabs(points.front().x - points.back().x) +
                       std::fabs(points.front().y - points.back().y) <=
                   nothing) {
            points.pop_back();
        }
        closed = closed && points.size() > 2;
        const std::size_t count = points.size();
        for (std::size_t index = 0; index + (closed ? 0 : 1) < count; ++index) {
            const Point step = minus(points[(index + 1) % count], points[index]);
            const double length = std::sqrt(dot(step, step));
            directions.push_back({step.x / length, step.y / length});
            lengths.push_back(length);
        }
    }
};

/// Where two steps of a line meet.
struct Bend {
    Point vertex;
    Point before;        ///< direction
    Point after;         ///< direction
    double shortest = 0; ///< length of the shorter step
};

/// The bend at a point between two steps, as one meets it on the way or on the way back.
Bend bendAt(const Way& way, std::size_t index, bool back) {
    const std::size_t earlier = (index + way.points.size() - 1) % way.points.size();
    const Point in = way.directions[earlier];
    const Point out = way.directions[index];
    const double shortest = std::min(way.lengths[earlier], way.lengths[index]);
    if (back) {
        return {way.points[index], {-out.x, -out.y}, {-in.x, -in.y}, shortest};
    }
    return {way.points[index], in, out, shortest};
}

struct Widening {
    Outline& outline;
    const StrokeStyle& style;
    double half;
    double scale;

    /// Points on a circle from one direction to another, the short way or, for opposite ones, the given way.
    void arc(Point center, Point from, double angle) const {
        const double pixels = half * scale;
        const double step = pixels > flatness ? 2 * std::acos(std::max(1 - flatness / pixels, 0.3)) : 2;
        const int count = std::max(1, static_cast<int>(std::ceil(std::fabs(angle) / step)));
        const double sine = std::sin(angle / count);
        const double cosine = std::cos(angle / count);
        // A little outside, so that the polygon has the circle's area.
        const double radius = half * std::sqrt(angle / count / sine);
        Point direction = from;
        for (int piece = 1; piece < count; ++piece) {
            direction = {
                direction.x * cosine - direction.y * sine, direction.x * sine + direction.y * cosine};
            outline.add(plus(center, direction, radius));
        }
    }

    /// True if the two sides may meet in one point each: the outer one lies no farther off the rounded bend
    /// than a flattened curve may, and the inner one within both steps.
    bool isSmooth(const Bend& bend) const {
        const double along = dot(bend.before, bend.after);
        const double squared = 2 + 2 * along; // of the sum of the directions
        if (squared <= 1) {
            return false;
        }
        return half * scale * (2 / std::sqrt(squared) - 1) <= flatness / 2 &&
               half * std::fabs(cross(bend.before, bend.after)) < bend.shortest * (1 + along);
    }

    /// The right side of a bend.
    void turn(const Bend& bend) const {
        const Point from = beside(bend.before);
        const Point to = beside(bend.after);
        if (isSmooth(bend)) {
            const Point middle{from.x + to.x, from.y + to.y};
            outline.add(plus(bend.vertex, middle, 2 * half / dot(middle, middle)));
            return;
        }
        outline.add(plus(bend.vertex, from, half));
        if (cross(bend.before, bend.after) >= 0) {
            outline.add(bend.vertex);
        } else if (style.join == LineJoin::round) {
            arc(bend.vertex, from, std::atan2(cross(from, to), dot(from, to)));
        } else {
            miter(bend.vertex, from, to);
        }
        outline.add(plus(bend.vertex, to, half));
    }

    void miter(Point vertex, Point from, Point to) const {
        const Point middle{from.x + to.x, from.y + to.y};
        const double squared = dot(middle, middle);
        // The miter's length over the width is 1 / cos of half the turn, which is 2 / |from + to|.
        if (squared > 0 && 4 / squared <= style.miterLimit * style.miterLimit) {
            outline.add(plus(vertex, middle, 2 * half / squared));
        }
    }

    void cap(Point end, Point direction) const {
        const Point right = beside(direction);
        outline.add(plus(end, right, half));
        if (style.cap == LineCap::round) {
            arc(end, right, -std::numbers::pi);
        }
        outline.add(plus(end, right, -half));
    }

    void widenOpen(const Way& way) const {
        const std::size_t last = way.points.size() - 1;
        outline.begin();
        for (std::size_t index = 1; index < last; ++index) {
            turn(bendAt(way, index, false));
        }
        cap(way.points[last], way.directions.back());
        for (std::size_t index = last - 1; index > 0; --index) {
            turn(bendAt(way, index, true));
        }
        const Point first = way.directions.front();
        cap(way.points.front(), {-first.x, -first.y});
        outline.close();
    }

    void widenClosed(const Way& way) const {
        const std::size_t count = way.points.size();
        outline.begin();
        for (std::size_t index = 0; index < count; ++index) {
            turn(bendAt(way, index, false));
        }
        outline.close();
        outline.begin();
        for (std::size_t step = 0; step < count; ++step) {
            turn(bendAt(way, count - 1 - step, true));
        }
        outline.close();
    }

    /// A line without a length shows its round caps alone.
    void dot_(Point at) const {
        if (style.cap != LineCap::round) {
            return;
        }
        outline.begin();
        outline.add(plus(at, {1, 0}, half));
        arc(at, {1, 0}, 2 * std::numbers::pi);
        outline.close();
    }

    void widen(const Way& way) const {
        if (way.points.empty()) {
            return;
        }
        if (way.points.size() == 1) {
            dot_(way.points.front());
        } else if (way.closed) {
            widenClosed(way);
        } else {
            widenOpen(way);
        }
    }
};

/// Cuts a contour into the marks of a dash pattern.
void addDashes(Outline& marks, std::span<const Point> contour, bool closed, const StrokeStyle& style) {
    std::size_t part = 0;
    double left = style.dash[0];
    bool drawing = true;
    marks.begin();
    marks.add(contour.front());
    const std::size_t count = contour.size();
    for (std::size_t index = 0; index + (closed ? 0 : 1) < count; ++index) {
        Point from = contour[index];
        const Point to = contour[(index + 1) % count];
        double rest = std::hypot(to.x - from.x, to.y - from.y);
        while (rest > left) {
            from = plus(from, minus(to, from), left / rest);
            rest -= left;
            if (drawing) {
                marks.add(from);
            } else {
                marks.begin();
                marks.add(from);
            }
            drawing = !drawing;
            part = (part + 1) % style.dashCount;
            left = style.dash[part];
        }
        left -= rest;
        if (drawing) {
            marks.add(to);
        }
    }
}

bool isDashed(const StrokeStyle& style) {
    double whole = 0;
    for (std::size_t index = 0; index < style.dashCount; ++index) {
        if (style.dash[index] <= 0) {
            return false;
        }
        whole += style.dash[index];
    }
    return whole > 0;
}

} // namespace

void strokeOutline(Outline& outline, const Outline& lines, const StrokeStyle& style, double scale) {
    static thread_local Way way;
    static thread_local Outline marks;
    const Widening widening{outline, style, style.width / 2, scale};
    for (std::size_t index = 0; index < lines.contourCount(); ++index) {
        const auto contour = lines.contour(index);
        if (contour.empty()) {
            continue;
        }
        if (!isDashed(style)) {
            way.take(contour, lines.isClosed(index));
            widening.widen(way);
            continue;
        }
        marks.clear();
        addDashes(marks, contour, lines.isClosed(index), style);
        for (std::size_t mark = 0; mark < marks.contourCount(); ++mark) {
            way.take(marks.contour(mark), false);
            widening.widen(way);
        }
    }
}

} // namespace mimkins
