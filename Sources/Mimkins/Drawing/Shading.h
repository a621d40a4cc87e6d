#pragma once

#include "Drawing/Color.h"
#include "Drawing/Geometry.h"

#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <variant>

namespace mimkins {

/// Colours spread evenly from 0 to 1 along a gradient. Held in place, so that a shading costs no allocation.
class Gradient {
public:
    static constexpr std::size_t most = 8;

    Gradient() = default;

    /// Colours past the eighth are left out.
    Gradient(std::initializer_list<Color> colors) : Gradient(std::span(colors.begin(), colors.size())) {}

    explicit Gradient(std::span<const Color> colors);

    std::span<const Color> colors() const { return {colors_.data(), count_}; }

    /// Where a colour stands, from 0 to 1.
    double location(std::size_t index) const {
        return count_ < 2 ? 0 : static_cast<double>(index) / static_cast<double>(count_ - 1);
    }

    friend bool operator==(const Gradient&, const Gradient&) = default;

private:
    std::array<Color, most> colors_{};
    std::size_t count_ = 0;
};

/// From one point to another; beyond them the outer colours go on.
struct LinearGradient {
    Gradient gradient;
    Point start;
    Point end;

    friend bool operator==(const LinearGradient&, const LinearGradient&) = default;
};

/// From a radius about the centre to a larger one; beyond them the outer colours go on.
struct RadialGradient {
    Gradient gradient;
    Point center;
    double startRadius = 0;
    double endRadius = 0;

    friend bool operator==(const RadialGradient&, const RadialGradient&) = default;
};

/// Round the centre, clockwise from an angle in radians.
struct AngularGradient {
    Gradient gradient;
    Point center;
    double angle = 0;

    friend bool operator==(const AngularGradient&, const AngularGradient&) = default;
};

/// What a shape is filled or stroked with. Points are in the coordinates of the shape.
using Shading = std::variant<Color, LinearGradient, RadialGradient, AngularGradient>;

} // namespace mimkins
