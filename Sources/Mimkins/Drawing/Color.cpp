#include "Drawing/Color.h"

#include <array>
#include <cstddef>

namespace mimkins {

namespace {

struct Pair {
    Color light;
    Color dark;
};

/// In the order of `NamedColor`. The dark forms are lighter, so that they stand out as well as the light
/// ones.
constexpr std::array<Pair, 13> namedColors{{
    {Color::clear(), Color::clear()},
    {Color::black(0.85), Color::white(0.9)},
    {Color::black(0.5), Color::white(0.58)},
    {{0.1, 0.45, 0.95}, {0.28, 0.6, 1}},
    {{0.18, 0.68, 0.32}, {0.3, 0.82, 0.42}},
    {{0.95, 0.75, 0.05}, {1, 0.84, 0.2}},
    {{0.98, 0.55, 0.1}, {1, 0.64, 0.2}},
    {{0.95, 0.28, 0.48}, {1, 0.38, 0.56}},
    {{0.9, 0.24, 0.2}, {1, 0.35, 0.32}},
    {Color::grey(0.55), Color::grey(0.6)},
    {{0.15, 0.65, 0.85}, {0.35, 0.8, 0.95}},
    {{0.1, 0.72, 0.66}, {0.4, 0.88, 0.82}},
    {{0.6, 0.3, 0.85}, {0.74, 0.46, 0.98}},
}};

} // namespace

Color Color::hsb(double hue, double saturation, double brightness, double opacity) {
    const double sector = (hue - std::floor(hue)) * 6;
    const double value = std::clamp(brightness, 0.0, 1.0);
    const double chroma = value * std::clamp(saturation, 0.0, 1.0);
    const auto component = [&](double shift) {
        const double place = std::fmod(sector + shift, 6);
        return value - chroma * std::clamp(std::min(place, 4 - place), 0.0, 1.0);
    };
    return {component(5), component(3), component(1), opacity};
}

Color Color::resolved(ColorScheme scheme) const {
    if (name == NamedColor::none) {
        return *this;
    }
    const Pair& pair = namedColors[static_cast<std::size_t>(name)];
    return (scheme == ColorScheme::dark ? pair.dark : pair.light).faded(opacity);
}

} // namespace mimkins
