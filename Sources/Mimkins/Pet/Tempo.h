#pragma once

#include "Drawing/Geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

/// How movements begin and end.
namespace mimkins::tempo {

constexpr double pi = std::numbers::pi;

/// From 0 to 1 as `value` does, slowly at both ends; constant beyond them.
constexpr double eased(double value) {
    const double x = std::clamp(value, 0.0, 1.0);
    return x * x * (3 - 2 * x);
}

/// From 0 to 1 while the time goes from one moment to another.
constexpr double between(double time, double from, double to) {
    return eased((time - from) / (to - from));
}

/// From 0 to 1 within `flank` after one moment, and back to 0 within as much before another.
constexpr double during(double time, double from, double to, double flank) {
    return between(time, from, from + flank) * (1 - between(time, to - flank, to));
}

/// What is left of a clock after whole cycles, from 0 up to the cycle, for negative times too.
inline double within(double time, double cycle) {
    return time - cycle * std::floor(time / cycle);
}

/// When something comes and when it goes.
struct Stay {
    double comes = 0;
    double here = 0;
    double leaves = 0;
    double gone = 0;
};

/// From 0 to 1 and back to 0.
constexpr double present(double time, const Stay& stay) {
    return between(time, stay.comes, stay.here) * (1 - between(time, stay.leaves, stay.gone));
}

/// What is left of a blow after some seconds: a swing of this rate in radians a second that dies away, from 0
/// through 1 and -1 back to 0; nothing before the blow.
inline double tremor(double since, double rate, double decay) {
    return since <= 0 ? 0 : std::sin(rate * since) * std::exp(-decay * since);
}

constexpr double mix(double from, double to, double part) {
    return from + (to - from) * part;
}

constexpr Point mix(Point from, Point to, double part) {
    return {mix(from.x, to.x, part), mix(from.y, to.y, part)};
}

/// On the quadratic curve at a part of its way.
constexpr Point onCurve(Point from, Point control, Point to, double part) {
    return mix(mix(from, control, part), mix(control, to, part), part);
}

} // namespace mimkins::tempo
