#pragma once

#include "Pet/PetPainter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

/// Small helpers that time and mix what moves in a scene.
namespace mimkins::scene {

inline constexpr double turn = 2 * std::numbers::pi;
inline constexpr Color brown{0.55, 0.38, 0.22};
inline constexpr Color darkBrown{0.3, 0.19, 0.11};

/// 0 before `from`, 1 after `to`, gently between.
inline double eased(double value, double from, double to) {
    const double f = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return f * f * (3 - 2 * f);
}

/// 1 from `from` to `to`, with `ramp` seconds of easing on the inner side of both ends.
inline double during(double value, double from, double to, double ramp) {
    return eased(value, from, from + ramp) * (1 - eased(value, to - ramp, to));
}

inline Point between(Point from, Point to, double f) {
    return {std::lerp(from.x, to.x, f), std::lerp(from.y, to.y, f)};
}

/// What is left of a clock after whole cycles, from 0 up to the cycle.
inline double within(double value, double cycle) {
    return cycle * fraction(value / cycle);
}

/// What is drawn on the pet after the scene, such as its headband, is turned as its body was.
inline void keepTurn(PetPainter& pet, const PetPainter& body) {
    pet.gc = body.gc;
}

/// A word on a darker copy of itself, so that it reads on light and on dark grounds.
inline void
shout(const PetPainter& pet, std::string_view text, Point center, double size, const Color& color) {
    pet.word(text, {center.x + 0.9, center.y + 0.9}, size, Color::black(0.55));
    pet.word(text, center, size, color);
}

} // namespace mimkins::scene
