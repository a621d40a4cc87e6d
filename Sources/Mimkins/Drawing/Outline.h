#pragma once

#include "Drawing/Path.h"
#include "Drawing/StrokeStyle.h"
#include "Drawing/Transform.h"

#include <cstddef>
#include <span>
#include <vector>

namespace mimkins {

/// How far, in pixels, a line may lie off the curve that it stands for: what drawing libraries commonly
/// allow, and less than one step of 8-bit coverage along most of an edge.
inline constexpr double flatness = 0.1;

/// A path as straight lines: contours one after another, whose memory is used again.
class Outline {
public:
    void clear();

    /// Ends the present contour, if any, and begins another.
    void begin();

    void add(Point point) { points_.push_back(point); }

    /// Marks the present contour as one that returns to its start.
    void close();

    std::size_t contourCount() const { return starts_.size(); }

    std::span<const Point> contour(std::size_t index) const;

    bool isClosed(std::size_t index) const { return closed_[index] != 0; }

    std::span<Point> points() { return points_; }

private:
    std::vector<Point> points_;
    std::vector<std::size_t> starts_;
    std::vector<unsigned char> closed_;
};

/// Turns a path into lines that stay within `flatness` of it, `scale` being pixels per unit.
void flatten(Outline& lines, const Path& path, double scale);

/// The outline of a line drawn along other lines. Dashes count in the lines' units.
void strokeOutline(Outline& outline, const Outline& lines, const StrokeStyle& style, double scale);

} // namespace mimkins
