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

Rect squareAbout(Point center, double radius) {
    return {center.x - radius, center.y - radius, 2 * radius, 2 * radius};
}

/// One particle at a moment.
struct Particle {
    Point center;
    double radius = 0;
    double opacity = 0;
};

Particle spark(int index, double t, Size size) {
    const double i = index;
    const double f = fractional(0.137 * i + t * ((index % 5) * 0.004 + 0.012));
    const Point center{
        size.width * fractional(across * i) + 10 * std::sin(0.3 * t + i), size.height * (1 - f)};
    return {center, (index % 3) * 0.6 + 1.2, 0.35 * std::sin(pi * f)};
}

constexpr double haloRadius = 6;
constexpr double haloOpacity = 0.12;
constexpr double coreRadius = 2;
constexpr double coreOpacity = 0.8;

/// The radius is the halo's, the opacity how brightly it blinks.
Particle firefly(int index, double t, Size size) {
    const double i = index;
    const Point center{
        size.width * (0.42 * std::sin(2.1 * i + 0.07 * t * (0.13 * i + 1)) + 0.5),
        size.height * (0.45 * std::sin(1.3 * i + 0.05 * t * (0.11 * i + 1)) + 0.5)};
    return {center, haloRadius, std::max(std::sin(1.7 * i + t * (0.07 * i + 0.8)), 0.0)};
}

Particle bubble(int index, double t, Size size) {
    const double i = index;
    const int n = index % 4;
    const double f = fractional(0.173 * i + t * (0.005 * n + 0.018));
    const Point center{
        size.width * fractional(across * i) + 6 * std::sin(0.9 * t + i), size.height * (1 - f)};
    return {center, 1.5 * n + 2.5, 0.45 * std::sin(pi * f)};
}

Particle particle(Particles kind, int index, double t, Size size) {
    switch (kind) {
    case Particles::none:
        break;
    case Particles::sparks:
        return spark(index, t, size);
    case Particles::fireflies:
        return firefly(index, t, size);
    case Particles::bubbles:
        return bubble(index, t, size);
    }
    return {};
}

void draw(GraphicsContext& context, Particles kind, const Particle& one, const Color& color) {
    const auto disc = [&one](double radius) { return Path::ellipse(squareAbout(one.center, radius)); };
    switch (kind) {
    case Particles::none:
        break;
    case Particles::sparks:
        context.fill(disc(one.radius), color.faded(one.opacity));
        break;
    case Particles::fireflies:
        context.fill(disc(haloRadius), color.faded(haloOpacity * one.opacity));
        context.fill(disc(coreRadius), color.faded(coreOpacity * one.opacity));
        break;
    case Particles::bubbles:
        context.stroke(disc(one.radius), color.faded(one.opacity), StrokeStyle::plain(1));
        break;
    }
}

constexpr int paperCount = 60;

/// Half of a paper's diagonal, rounded up.
constexpr double paperReach = 4;

Point paperCenter(int piece, double t, Size size) {
    const double i = piece;
    const double fall = fractional(i * 0.071 + t * ((piece % 7) * 0.02 + 0.18));
    return {size.width * fractional(i * across) + std::sin(2 * t + i) * 12, size.height * fall - 10};
}

} // namespace

void drawParticles(GraphicsContext& context, const PetTheme& theme, double t, Size size) {
    if (theme.particles == Particles::none || theme.particleColors.empty()) {
        return;
    }
    for (int index = 0; index < particleCount; ++index) {
        const Color& color =
            theme.particleColors[static_cast<std::size_t>(index) % theme.particleColors.size()];
        draw(context, theme.particles, particle(theme.particles, index, t, size), color);
    }
}

std::vector<Rect> particleAreas(const PetTheme& theme, double t, Size size) {
    std::vector<Rect> areas;
    if (theme.particles == Particles::none || theme.particleColors.empty()) {
        return areas;
    }
    constexpr double leastOpacity = 1.0 / 512;
    constexpr double room = 1.5; // for the half of a line, and its soft edge
    for (int index = 0; index < particleCount; ++index) {
        const Particle one = particle(theme.particles, index, t, size);
        if (one.opacity >= leastOpacity) {
            areas.push_back(squareAbout(one.center, one.radius + room));
        }
    }
    return areas;
}

void drawConfetti(GraphicsContext& context, double t, Size size) {
    constexpr std::array colors{NamedColor::pink, NamedColor::yellow, NamedColor::cyan,
                                NamedColor::mint, NamedColor::orange, NamedColor::purple};
    Path paper;
    paper.addRoundedRect({-3, -1.5, 6, 3}, 0);
    for (int piece = 0; piece < paperCount; ++piece) {
        const Point center = paperCenter(piece, t, size);
        GraphicsContext placed = context;
        placed.translateBy(center.x, center.y);
        placed.rotate(3 * t + piece);
        placed.fill(paper, Color::named(colors[static_cast<std::size_t>(piece) % colors.size()]));
    }
}

std::vector<Rect> confettiAreas(double t, Size size) {
    std::vector<Rect> areas;
    areas.reserve(paperCount);
    for (int piece = 0; piece < paperCount; ++piece) {
        areas.push_back(squareAbout(paperCenter(piece, t, size), paperReach));
    }
    return areas;
}

double glowPulse(double t) {
    return (std::sin(3.5 * t) + 1) * 0.5;
}

double glowOpacity(double t) {
    return 0.4 + 0.55 * glowPulse(t);
}

double glowLightOpacity(double t) {
    return 0.1 + 0.45 * glowPulse(t);
}

void drawGlowFrame(GraphicsContext& context, const Path& shape, const GlowFrame& frame, double t) {
    if (frame.blur > 0) {
        // Light that fades outwards, as lines laid over each other: the widest lies farthest out.
        constexpr int layers = 4;
        const Color light = frame.tint.faded(glowLightOpacity(t) / layers);
        for (int layer = layers; layer > 0; --layer) {
            context.stroke(shape, light, StrokeStyle::round(2 + 2 * frame.blur * layer / layers));
        }
    }
    context.stroke(shape, frame.tint.faded(glowOpacity(t)), StrokeStyle::plain(2));
}

} // namespace mimkins
