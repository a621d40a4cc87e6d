#pragma once

#include "Drawing/Outline.h"

#include <cstddef>
#include <cstdint>
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

    /// The pixels of a row that may be covered.
    struct Row {
        int left = 0;                    ///< the first one's column
        std::span<const float> coverage; ///< 0 to 1, of it and those to its right
    };

    /// One row within the bounds. It lasts until the next call, and each may be asked for once.
    Row row(int y);

private:
    /// The columns of a row that lines have reached, from the left bound on.
    struct Reach {
        std::size_t first = SIZE_MAX;
        std::size_t end = 0; ///< one past the last
    };

    void clear();
    void addLine(Point from, Point to);
    void addSpan(float* row, double from, double to, double height);

    Bounds bounds_;
    std::size_t width_ = 0;      ///< of a row of areas
    std::vector<float> areas_;   ///< 0 wherever no line has reached
    std::vector<Reach> reaches_; ///< of the rows
    std::vector<float> coverage_;
};

} // namespace mimkins
