#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace mimkins {

enum class LineCap : std::uint8_t { butt, round };
enum class LineJoin : std::uint8_t { miter, round };

/// How a line is drawn along a path. Lengths in the path's units.
struct StrokeStyle {
    double width = 1;
    LineCap cap = LineCap::butt;
    LineJoin join = LineJoin::miter;
    double miterLimit = 10;
    std::array<double, 4> dash{}; ///< lengths of marks and gaps by turns
    std::size_t dashCount = 0;    ///< how many of them hold; solid for 0

    static constexpr StrokeStyle round(double width) {
        return {width, LineCap::round, LineJoin::round, 10, {}, 0};
    }

    static constexpr StrokeStyle plain(double width) {
        return {width, LineCap::butt, LineJoin::miter, 10, {}, 0};
    }

    friend constexpr bool operator==(const StrokeStyle&, const StrokeStyle&) = default;
};

} // namespace mimkins
