#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace mimkins {

/// Whether an interface is light or dark.
enum class ColorScheme : std::uint8_t { light, dark };

/// Colours that a desktop names by their use and shows a little differently in its light and its dark form.
enum class NamedColor : std::uint8_t {
    none,
    primary,
    secondary,
    blue,
    green,
    yellow,
    orange,
    pink,
    red,
    gray,
    cyan,
    mint,
    purple
};

/// A colour of the sRGB space, each component from 0 to 1, not premultiplied; or a named one, whose
/// components count for nothing until it is resolved and whose opacity is a factor.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 1;
    NamedColor name = NamedColor::none;

    static constexpr Color grey(double level, double opacity = 1) { return {level, level, level, opacity}; }

    static constexpr Color white(double opacity = 1) { return grey(1, opacity); }

    static constexpr Color black(double opacity = 1) { return grey(0, opacity); }

    static constexpr Color clear() { return black(0); }

    static constexpr Color named(NamedColor name, double opacity = 1) { return {0, 0, 0, opacity, name}; }

    /// From hue, saturation and brightness. The hue goes round: 1.03 is 0.03. Saturation and brightness are
    /// taken from 0 to 1.
    static Color hsb(double hue, double saturation, double brightness, double opacity = 1);

    /// The colour with its opacity multiplied by a factor.
    constexpr Color faded(double factor) const {
        return {red, green, blue, std::clamp(opacity * factor, 0.0, 1.0), name};
    }

    /// The colour as it is shown under a scheme: a named one with its components, any other unchanged.
    Color resolved(ColorScheme scheme) const;

    friend constexpr bool operator==(const Color&, const Color&) = default;
};

} // namespace mimkins
