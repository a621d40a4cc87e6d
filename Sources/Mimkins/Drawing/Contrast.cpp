#include "Drawing/Contrast.h"

namespace mimkins {

namespace {

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const Color& color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

Color over(const Color& ink, const Color& ground) {
    const auto mix = [&ink](double above, double below) { return below + (above - below) * ink.opacity; };
    return {mix(ink.red, ground.red), mix(ink.green, ground.green), mix(ink.blue, ground.blue)};
}

} // namespace

double contrast(const Color& ink, const Color& ground) {
    constexpr double veil = 0.05; // of light that every screen adds
    const double one = luminance(over(ink, ground)) + veil;
    const double other = luminance(ground) + veil;
    return std::max(one, other) / std::min(one, other);
}

Color inkOn(const Color& ground, double opacity) {
    const Color black = Color::black(opacity);
    const Color white = Color::white(0.95);
    return contrast(black, ground) < 4.5 && contrast(white, ground) > contrast(black, ground) ? white : black;
}

Color readable(const Color& color, const Readability& wanted) {
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step) {
        Color veil = wanted.towards;
        veil.opacity = static_cast<double>(step) / steps;
        Color mixed = over(veil, color);
        mixed.opacity = color.opacity;
        if (contrast(mixed, wanted.ground) >= wanted.contrast) {
            return mixed;
        }
    }
    return wanted.towards;
}

} // namespace mimkins
