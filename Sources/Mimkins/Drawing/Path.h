#pragma once

#include "Drawing/Geometry.h"

#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

namespace mimkins {

enum class CornerStyle : std::uint8_t {
    circular,
    continuous ///< the curve begins earlier and bends gradually, so that no seam shows
};

enum class ArcDirection : std::uint8_t { clockwise, counterclockwise }; ///< on the screen, y downwards

/// One step of a path. Ellipses, rounded rectangles and arcs stay what they are, so that a backend can draw
/// them better than as curves.
struct PathElement {
    enum class Kind : std::uint8_t { move, line, quad, cubic, close, ellipse, roundedRect, arc };

    Kind kind = Kind::move;
    CornerStyle corners = CornerStyle::circular;      ///< of a rounded rectangle
    ArcDirection direction = ArcDirection::clockwise; ///< of an arc
    Point a; ///< end of a line or curve; corner of a box; centre of an arc
    Point b; ///< control point; size of a box; (start, end) angle of an arc
    Point c; ///< second control point; (radius, 0) of a box or arc

    friend constexpr bool operator==(const PathElement&, const PathElement&) = default;
};

/// An outline of straight and curved pieces. The memory of a path that goes is used again by the next one of
/// the same thread, so that drawing frame after frame allocates nothing.
class Path {
public:
    Path();
    Path(const Path& other);
    Path(Path&& other) noexcept = default;
    Path& operator=(const Path& other) = default;
    Path& operator=(Path&& other) noexcept;
    ~Path();

    static Path ellipse(const Rect& rect);
    /// The radius is cut to half the shorter side.
    static Path roundedRect(const Rect& rect, double radius, CornerStyle corners = CornerStyle::circular);
    /// A rectangle of which the two corners on the left are continuous ones and the two on the right square,
    /// as of something that hugs the right edge of a screen.
    static Path leftRoundedRect(const Rect& rect, double radius);
    static Path polyline(std::initializer_list<Point> points);
    static Path polygon(std::initializer_list<Point> points);

    void move(Point to);
    void addLine(Point to);
    /// Begins at the first point.
    void addLines(std::span<const Point> points);
    void addQuadCurve(Point to, Point control);
    void addCurve(Point to, Point control1, Point control2);
    /// Part of a circle, joined to what came before by a line. Angles in radians, 0 to the right.
    void addArc(
        Point center, double radius, double start, double end,
        ArcDirection direction = ArcDirection::clockwise
    );
    void addEllipse(const Rect& rect);
    void addRoundedRect(const Rect& rect, double radius, CornerStyle corners = CornerStyle::circular);
    void closeSubpath();

    const std::vector<PathElement>& elements() const { return elements_; }

    bool isEmpty() const { return elements_.empty(); }

    /// The same outline of moves, lines, cubic curves and closings alone, for backends that know no more.
    Path flattenedToCurves() const;

    friend bool operator==(const Path& left, const Path& right) { return left.elements_ == right.elements_; }

private:
    PathElement& add(PathElement::Kind kind);

    std::vector<PathElement> elements_;
};

} // namespace mimkins
