#pragma once

#include "Pet/PetPainter.h"
#include "Pet/PropColors.h"
#include "Pet/Tempo.h"

#include <algorithm>

/// What the scenes of work share: their clockwork, and the colours of their tools.
namespace mimkins::work {

using prop::brown;
using prop::darkBrown;
using tempo::between;
using tempo::mix;

inline constexpr Color straw{0.93, 0.75, 0.38};
inline constexpr Color parchment{0.97, 0.92, 0.78};
inline constexpr Color steel = Color::grey(0.42);
inline constexpr Color dust{0.78, 0.74, 0.68};
/// Round light things, so that they stand out from a light ground too.
inline constexpr Color edge = Color::black(0.4);

/// How much of a cycle of so many seconds has gone, from 0 up to 1.
inline double cycleOf(double t, double seconds) {
    return fraction(t / seconds);
}

/// 0 below `from`, 1 above `to`, and between them a fall that gets faster.
inline double falling(double value, double from, double to) {
    const double x = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return x * x;
}

/// The same painter with its things in their places, however the pet moves.
inline PetPainter unshifted(const PetPainter& pet) {
    PetPainter copy = pet;
    copy.shiftX = 0;
    return copy;
}

/// An arm to a hand that is given by its place on the stage.
inline void armTo(const PetPainter& pet, Side side, Point control, Point hand) {
    pet.arm(side, {control.x - pet.shiftX, control.y}, {hand.x - pet.shiftX, hand.y});
}

/// A rounded box with a thin edge.
inline void
edgedBox(const PetPainter& pet, const Rect& box, double radius, const Shading& shading, double width = 1.2) {
    const Path path = Path::roundedRect(box, radius);
    pet.fill(path, shading);
    pet.stroke(path, edge, width);
}

inline void edgedPolygon(const PetPainter& pet, std::initializer_list<Point> points, const Shading& shading) {
    const Path path = Path::polygon(points);
    pet.fill(path, shading);
    pet.stroke(path, edge, 1.2);
}

} // namespace mimkins::work
