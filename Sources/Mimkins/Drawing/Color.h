#pragma once

#include <algorithm>

namespace mimkins {

/// A colour of the sRGB space, each component from 0 to 1, not premultiplied.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 1;

    static constexpr Color grey(double level, double opacity = 1) { return {level, level, level, opacity}; }

    static constexpr Color white(double opacity = 1) { return grey(1, opacity); }

    static constexpr Color black(double opacity = 1) { return grey(0, opacity); }

    static constexpr Color clear() { return black(0); }

    /// The colour with its opacity multiplied by a factor.
    constexpr Color faded(double factor) const {
        return {red, green, blue, std::clamp(opacity * factor, 0.0, 1.0)};
    }

    friend constexpr bool operator==(const Color&, const Color&) = default;
};

} // namespace mimkins
