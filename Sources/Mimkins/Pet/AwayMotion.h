#pragma once

#include "Drawing/Color.h"
#include "Drawing/Geometry.h"

#include <algorithm>
#include <cmath>

/// Small sums that the scenes of pets out of play share.
namespace mimkins::away {

inline constexpr Color brown{0.55, 0.38, 0.22};
inline constexpr Color darkBrown{0.36, 0.23, 0.13};
inline constexpr Color lightWood{0.78, 0.57, 0.34};
/// White steam and foam would be lost on a light ground.
inline constexpr Color mist{0.8, 0.88, 0.96};

/// 0 up to `from`, 1 from `to` on, easing in and out between them.
inline double between(double value, double from, double to) {
    const double f = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return f * f * (3 - 2 * f);
}

/// Rises from 0 to 1 over `ease` after `from` and is back at 0 at `to`.
inline double during(double value, double from, double to, double ease) {
    return std::min(between(value, from, from + ease), 1 - between(value, to - ease, to));
}

inline double mix(double from, double to, double part) {
    return from + (to - from) * part;
}

inline Point mix(Point from, Point to, double part) {
    return {mix(from.x, to.x, part), mix(from.y, to.y, part)};
}

/// Of plain colours, not of named ones.
inline Color mix(const Color& from, const Color& to, double part) {
    return {
        mix(from.red, to.red, part), mix(from.green, to.green, part), mix(from.blue, to.blue, part),
        mix(from.opacity, to.opacity, part)};
}

/// Turned clockwise by radians.
inline Point turnedAbout(Point point, Point about, double angle) {
    const double x = point.x - about.x;
    const double y = point.y - about.y;
    return {
        about.x + x * std::cos(angle) - y * std::sin(angle),
        about.y + x * std::sin(angle) + y * std::cos(angle)};
}

/// The remainder as the clock counts it, from 0 up to `cycle`.
inline double within(double t, double cycle) {
    return t - cycle * std::floor(t / cycle);
}

} // namespace mimkins::away
