#include "Theme/ThemeDrawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

constexpr double pi = std::numbers::pi;
constexpr int particleCount = 14;

/// Spreads the particles across the panel: the golden ratio's fraction.
constexpr double across = 0.618;

double fractional(double value) {
    return value - std::floor(value);
}

void fillDisc(GraphicsContext& context, Point center, double radius, const Color& color) {
    context.fill(Path::ellipse({center.x - radius, center.y - radius, 2 * radius, 2 * radius}), color);
}

void drawSpark(GraphicsContext& context, int index, double t, Size size, const Color& color) {
    const double i = index;
    const double f = fractional(0.137 * i + t * ((index % 5) * 0.004 + 0.012));
    const double radius = (index % 3) * 0.6 + 1.2;
    const Point center{
        size.width * fractional(across * i) + 10 * std::sin(0.3 * t + i), size.height * (1 - f)};
    fillDisc(context, center, radius, color.faded(0.35 * std::sin(pi * f)));
}

void drawFirefly(GraphicsContext& context, int index, double t, Size size, const Color& color) {
    const double i = index;
    const Point center{
        size.width * (0.42 * std::sin(2.1 * i + 0.07 * t * (0.13 * i + 1)) + 0.5),
        size.height * (0.45 * std::sin(1.3 * i + 0.05 * t * (0.11 * i + 1)) + 0.5)};
    const double blink = std::max(std::sin(1.7 * i + t * (0.07 * i + 0.8)), 0.0);
    fillDisc(context, center, 6, color.faded(0.12 * blink));
    fillDisc(context, center, 2, color.faded(0.8 * blink));
}

void drawBubble(GraphicsContext& context, int index, double t, Size size, const Color& color) {
    const double i = index;
    const int n = index % 4;
    const double f = fractional(0.173 * i + t * (0.005 * n + 0.018));
    const double radius = 1.5 * n + 2.5;
    const Point center{
        size.width * fractional(across * i) + 6 * std::sin(0.9 * t + i), size.height * (1 - f)};
    context.stroke(
        Path::ellipse({center.x - radius, center.y - radius, 2 * radius, 2 * radius}),
        color.faded(0.45 * std::sin(pi * f)), StrokeStyle::plain(1)
    );
}

} // namespace

void drawParticles(GraphicsContext& context, const PetTheme& theme, double t, Size size) {
    if (theme.particleColors.empty()) {
        return;
    }
    for (int index = 0; index < particleCount; ++index) {
        const Color& color =
            theme.particleColors[static_cast<std::size_t>(index) % theme.particleColors.size()];
        switch (theme.particles) {
        case Particles::none:
            return;
        case Particles::sparks:
            drawSpark(context, index, t, size, color);
            break;
        case Particles::fireflies:
            drawFirefly(context, index, t, size, color);
            break;
        case Particles::bubbles:
            drawBubble(context, index, t, size, color);
            break;
        }
    }
}

void drawConfetti(GraphicsContext& context, double t, Size size) {
    constexpr std::array colors{NamedColor::pink, NamedColor::yellow, NamedColor::cyan,
                                NamedColor::mint, NamedColor::orange, NamedColor::purple};
    constexpr int pieces = 60;
    for (int piece = 0; piece < pieces; ++piece) {
        const double i = piece;
        const double fall = fractional(i * 0.071 + t * ((piece % 7) * 0.02 + 0.18));
        GraphicsContext placed = context;
        placed.translateBy(
            size.width * fractional(i * across) + std::sin(2 * t + i) * 12, size.height * fall - 10
        );
        placed.rotate(3 * t + i);
        Path paper;
        paper.addRoundedRect({-3, -1.5, 6, 3}, 0);
        placed.fill(paper, Color::named(colors[static_cast<std::size_t>(piece) % colors.size()]));
    }
}

double glowPulse(double t) {
    return (std::sin(3.5 * t) + 1) * 0.5;
}

void drawGlowFrame(GraphicsContext& context, const Path& shape, const GlowFrame& frame, double t) {
    const double pulse = glowPulse(t);
    if (frame.blur > 0) {
        // Light that fades outwards, as lines laid over each other: the widest lies farthest out.
        constexpr int layers = 4;
        const Color light = frame.tint.faded((0.1 + 0.45 * pulse) / layers);
        for (int layer = layers; layer > 0; --layer) {
            context.stroke(shape, light, StrokeStyle::round(2 + 2 * frame.blur * layer / layers));
        }
    }
    context.stroke(shape, frame.tint.faded(0.4 + 0.55 * pulse), StrokeStyle::plain(2));
}

} // namespace mimkins
