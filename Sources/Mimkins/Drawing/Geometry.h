#pragma once

#include <vector>

namespace mimkins {

struct Point {
    double x = 0;
    double y = 0;

    friend constexpr bool operator==(const Point&, const Point&) = default;
};

/// A rectangle by its corner of least coordinates and its size. It has no opinion on where y points.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    constexpr double maxX() const { return x + width; }

    constexpr double maxY() const { return y + height; }

    constexpr bool isEmpty() const { return width <= 0 || height <= 0; }

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

/// What is left of a rectangle when another is cut out of it: up to four rectangles that don't overlap.
std::vector<Rect> subtract(const Rect& from, const Rect& cut);

/// True if the covers together hide every point of the rectangle. An empty rectangle is hidden.
bool isCovered(const Rect& rectangle, const std::vector<Rect>& covers);

} // namespace mimkins
