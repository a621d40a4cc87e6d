#include "Presentation/Accent.h"

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

/// Of a component as it is seen, by the definition of sRGB.
double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const Color& color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

bool isGrey(const Color& color) {
    constexpr double leastSaturation = 0.3;
    const double most = std::max({color.red, color.green, color.blue});
    const double least = std::min({color.red, color.green, color.blue});
    return most - least <= leastSaturation * most;
}

} // namespace

double contrast(const Color& left, const Color& right) {
    constexpr double flare = 0.05;
    const auto [darker, lighter] = std::minmax({luminance(left), luminance(right)});
    return (lighter + flare) / (darker + flare);
}

Color controlAccent(const PetTheme& theme) {
    const auto coloured = std::find_if_not(theme.title.begin(), theme.title.end(), isGrey);
    return coloured != theme.title.end() ? *coloured : theme.working;
}

Color inkOn(const Color& ground) {
    return contrast(ground, Color::black()) >= contrast(ground, Color::white()) ? Color::black(0.85)
                                                                                : Color::white();
}

} // namespace mimkins
