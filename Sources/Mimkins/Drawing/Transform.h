#pragma once

#include "Drawing/Geometry.h"

#include <cmath>

namespace mimkins {

/// An affine map of the plane: (x, y) goes to (a x + c y + tx, b x + d y + ty).
struct Transform {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double tx = 0;
    double ty = 0;

    static constexpr Transform translation(double x, double y) { return {1, 0, 0, 1, x, y}; }

    static constexpr Transform scaling(double x, double y) { return {x, 0, 0, y, 0, 0}; }

    /// Clockwise on the screen, where y grows downwards. In radians.
    static Transform rotation(double angle) {
        const double sine = std::sin(angle);
        const double cosine = std::cos(angle);
        return {cosine, sine, -sine, cosine, 0, 0};
    }

    constexpr Point apply(Point point) const {
        return {a * point.x + c * point.y + tx, b * point.x + d * point.y + ty};
    }

    /// The map that does `first` and then this one.
    constexpr Transform after(const Transform& first) const {
        const Point origin = apply({first.tx, first.ty});
        return {
            a * first.a + c * first.b,
            b * first.a + d * first.b,
            a * first.c + c * first.d,
            b * first.c + d * first.d,
            origin.x,
            origin.y,
        };
    }

    friend constexpr bool operator==(const Transform&, const Transform&) = default;
};

} // namespace mimkins
