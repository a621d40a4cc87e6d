#pragma once

#include "Drawing/Outline.h"

#include <cstddef>
#include <span>
#include <vector>

namespace mimkins {

/// How much of each pixel an outline covers, computed exactly from the areas that its lines cut off. Parts
/// that go round in the same sense add up to at most 1, parts in opposite senses cut holes.
class CoverageMask {
public:
    struct Bounds {
        int left = 0;
        int top = 0;
        int right = 0;  ///< one past the last column
        int bottom = 0; ///< one past the last row

        bool isEmpty() const { return right <= left || bottom <= top; }
    };

    /// Takes an outline in pixels, cut to an area of so many columns and rows.
    void rasterize(const Outline& outline, int columns, int rows);

    /// The pixels that may be covered.
    const Bounds& bounds() const { return bounds_; }

    /// The coverage of a row's pixels from the left bound to the right one, 0 to 1. Each row may be asked for
    /// once.
    std::span<const float> row(int y);

private:
    void addLine(Point from, Point to);
    void addSpan(float* row, double from, double to, double height);

    Bounds bounds_;
    std::size_t width_ = 0; ///< of a row of areas
    std::vector<float> areas_;
};

} // namespace mimkins
