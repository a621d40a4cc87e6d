#pragma once

#include "Drawing/Geometry.h"

#include <array>
#include <string_view>

/// The application's own icon: a small head with two ears, as shapes without a colour.
namespace mimkins::app_icon {

/// The side of the square in which the shapes lie, in points, y upwards.
inline constexpr double side = 18;

enum class Ink { fill, clear };

struct Piece {
    Rect rect;
    double radius = 0;
    Ink ink = Ink::fill; ///< `clear` punches a hole
};

inline constexpr std::array<Piece, 5> menuBarImage{{
    {{2.5, 2, 13, 11.5}, 4, Ink::fill},     // body
    {{5, 13, 2.6, 3.5}, 1.2, Ink::fill},    // left ear
    {{10.4, 13, 2.6, 3.5}, 1.2, Ink::fill}, // right ear
    {{6, 5.5, 1.8, 3.6}, 0.9, Ink::clear},  // left eye
    {{10.2, 5.5, 1.8, 3.6}, 0.9, Ink::clear},
}};

inline constexpr std::string_view accessibilityDescription = "Mimkins";

} // namespace mimkins::app_icon
