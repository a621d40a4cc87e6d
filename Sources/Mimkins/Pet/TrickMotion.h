#pragma once

#include "Pet/PetPainter.h"
#include "Pet/PropColors.h"
#include "Pet/Tempo.h"

#include <numbers>
#include <string_view>

/// What the butterflies, toys and tricks share.
namespace mimkins::scene {

inline constexpr double turn = 2 * std::numbers::pi;
inline constexpr Color deepBrown{0.3, 0.19, 0.11};

using prop::brown;
using tempo::between;
using tempo::during;
using tempo::mix;
using tempo::within;

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
