#pragma once

#include "Drawing/Color.h"
#include "Drawing/Geometry.h"
#include "Pet/PropColors.h"
#include "Pet/Tempo.h"

#include <cmath>

/// Small sums that the scenes of pets out of play share.
namespace mimkins::away {

using prop::brown;
using prop::darkBrown;
using tempo::between;
using tempo::mix;
using tempo::within;

inline constexpr Color lightWood{0.78, 0.57, 0.34};
/// White steam and foam would be lost on a light ground.
inline constexpr Color mist{0.8, 0.88, 0.96};

/// Rises from 0 to 1 over `ease` after `from` and is back at 0 at `to`.
inline double during(double value, double from, double to, double ease) {
    return std::min(between(value, from, from + ease), 1 - between(value, to - ease, to));
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

} // namespace mimkins::away
