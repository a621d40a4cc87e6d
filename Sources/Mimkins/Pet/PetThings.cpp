#include "Pet/PetPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

constexpr double turn = 2 * std::numbers::pi;
constexpr Color brown{0.55, 0.38, 0.22};
constexpr Color darkBrown{0.36, 0.23, 0.13};
constexpr Color sand{0.96, 0.8, 0.45};
/// Lies under light things, so that they stand out from a light ground; a dark one swallows it.
constexpr Color edge = Color::black(0.42);
constexpr double edgeWidth = 1.3;

/// A word with a dark edge to its lower right.
void edgedWord(const PetPainter& pet, std::string_view text, Point center, double size, const Color& color) {
    pet.word(text, {center.x + 0.8, center.y + 0.8}, size, Color::black(0.6));
    pet.word(text, center, size, color);
}

} // namespace

void PetPainter::bubble(std::string_view text, const Color& color, Pulse pulse) const {
    PetPainter still = *this;
    still.shiftX = 0;
    constexpr Point center{86, 11};
    const double p = pulse == Pulse::beating ? 1 + 0.06 * std::sin(6 * t) : 1;
    const Rect box{center.x - 10 * p, center.y - 9 * p, 20 * p, 18 * p};
    const Path tail = Path::polygon({{79, 17}, {84, 18}, {76, 25}});
    Path silhouette = Path::roundedRect(box, 6);
    silhouette.addLines(std::array<Point, 4>{{{79, 17}, {84, 18}, {76, 25}, {79, 17}}});
    still.stroke(silhouette, edge, 2 * edgeWidth);
    still.rounded(box.x, box.y, box.width, box.height, 6, colors.paper);
    still.fill(tail, colors.paper);
    // The signs are thin: set twice, a little apart, they hold their own where a unit is half a pixel.
    for (const double shift : {-0.6, 0.6}) {
        still.word(text, {center.x + shift, center.y}, 14 * p, color);
    }
}

void PetPainter::sweatDrop(double x, double y) const {
    Path drop;
    drop.move({x, y - 5});
    drop.addQuadCurve({x, y + 4}, {x + 6, y + 4});
    drop.addQuadCurve({x, y - 5}, {x - 6, y + 4});
    fill(drop, Color{0.55, 0.8, 1});
}

void PetPainter::notes(double x, double y) const {
    constexpr std::array<std::string_view, 2> glyphs{"♪", "♫"};
    for (std::size_t index = 0; index < glyphs.size(); ++index) {
        const auto i = static_cast<double>(index);
        const double f = fraction(0.6 * t + 0.5 * i);
        const Point at{x + 18 * f, y - 30 * f + 2 * std::sin(5 * t + i)};
        edgedWord(faded(1 - f), glyphs[index], at, 10, Color::white());
    }
}

void PetPainter::thoughtDots() const {
    const double step = std::floor(2 * t);
    const double count = step - 4 * std::floor(step / 4);
    const auto dot = [&](Point center, double radius) {
        disc(center, radius + edgeWidth, edge);
        disc(center, radius, colors.paper);
    };
    if (count >= 1) {
        dot({77.5, 17.5}, 2.5);
    }
    if (count >= 2) {
        dot({83.8, 8.8}, 3.2);
    }
    if (count >= 3) {
        dot({90, 0}, 4);
    }
}

void PetPainter::mug(Point at, Steam steam) const {
    ring({at.x + 5, at.y}, 2.6, darkBrown, 3.2);
    rounded(at.x - 5.7, at.y - 5.7, 11.4, 11.4, 2.8, darkBrown);
    ring({at.x + 5, at.y}, 2.6, colors.paper, 1.8);
    rounded(at.x - 5, at.y - 5, 10, 10, 2.2, colors.paper);
    rounded(at.x - 5, at.y - 0.6, 10, 2.6, 0, colors.accent);
    ellipse(at.x - 4.2, at.y - 5.4, 8.4, 2, Color{0.35, 0.22, 0.14});
    if (steam == Steam::none) {
        return;
    }
    for (const double i : {0.0, 1.0}) {
        const double f = fraction(0.5 * t + 0.5 * i);
        const double x = at.x - 2 + 4 * i;
        const double y = at.y - 7 - 8 * f;
        const Point bend{x + 2.5 * std::sin(3 * t + i), y - 3};
        const PetPainter wisp = faded(0.8 * std::sin(std::numbers::pi * f));
        wisp.curve({x, y}, bend, {x, y - 6}, Color::black(0.2), 2.6);
        wisp.curve({x, y}, bend, {x, y - 6}, Color::white(), 1.6);
    }
}

void PetPainter::plane(Point at, double scale) const {
    const PetPainter placed = moved(at.x, at.y).scaled({-shiftX, 0}, scale, scale);
    placed.polygon({{8, 0}, {-8, -6}, {-4, 0}}, Color::white());
    placed.polygon({{8, 0}, {-4, 0}, {-7, 5}}, Color::grey(0.82));
    placed.polygon({{8, 0}, {-4, 0}, {-4, 3.4}}, Color::grey(0.68));
}

void PetPainter::drawHourglass(Point at, double scale, double angle, double run) const {
    const PetPainter glass = turned(at, angle).scaled(at, scale, scale);
    const auto place = [&](double x, double y) { return Point{at.x + x, at.y + y}; };
    const Color pane{0.82, 0.93, 1, 0.55};
    glass.polygon(
        {place(-5, -7), place(5, -7), place(0.7, 0), place(5, 7), place(-5, 7), place(-0.7, 0)}, pane
    );
    const double left = 1 - std::clamp(run, 0.0, 1.0);
    const double level = -6.4 * left;
    const double half = 0.6 + 4 * left;
    glass.polygon({place(-half, level), place(half, level), place(0.4, 0), place(-0.4, 0)}, sand);
    const double heap = 6 * (1 - left);
    glass.polygon({place(-4.4, 7), place(4.4, 7), place(1, 7 - heap), place(-1, 7 - heap)}, sand);
    if (run > 0 && run < 1) {
        glass.line({place(0, 0), place(0, 6)}, sand, 0.8);
    }
    glass.rounded(at.x - 7, at.y - 9, 14, 2.6, 1.2, brown);
    glass.rounded(at.x - 7, at.y + 6.4, 14, 2.6, 1.2, brown);
}

void PetPainter::drawHourglass(Point at, double scale) const {
    constexpr double cycle = 4;
    constexpr double flip = 0.5;
    const double phase = t - cycle * std::floor(t / cycle);
    const double turning = std::clamp((phase - (cycle - flip)) / flip, 0.0, 1.0);
    const double eased = turning * turning * (3 - 2 * turning);
    drawHourglass(at, scale, std::numbers::pi * eased, phase / (cycle - flip));
}

void PetPainter::headband() const {
    if (effort != 1) {
        return;
    }
    const Color red{0.9, 0.2, 0.25};
    const double y = bob + 31 + squash;
    const double wind = 3 * std::sin(10 * t);
    rounded(22 + thin, y, 56 - 2 * thin, 4.5, 1.5, red);
    line({{77 - thin, y + 2}, {88 - thin, y - 2 + wind}}, red, 2.4);
    line({{77 - thin, y + 2}, {87 - thin, y + 5 + 0.7 * wind}}, red, 2.4);
    disc({77.5 - thin, y + 2.2}, 3, Color{0.68, 0.1, 0.16});
}

namespace {

void highAura(const PetPainter& pet) {
    const Color glow{1, 0.55, 0.4, 0.28};
    const Point center{50, 50 + pet.bob};
    pet.disc(center, 40, RadialGradient{{glow, glow.faded(0)}, center, 0, 40});
}

void rays(const PetPainter& pet, Point center, double pulse) {
    const Color gold{1, 0.88, 0.55};
    const PetPainter turning = pet.turned(center, 0.25 * pet.t).faded(0.4 + 0.15 * pulse);
    const RadialGradient fading{{gold, gold.faded(0)}, center, 0, 50};
    Path all;
    for (int ray = 0; ray < 12; ++ray) {
        const double angle = turn * ray / 12;
        const auto rim = [&](double shift) {
            return Point{center.x + 50 * std::cos(angle + shift), center.y + 50 * std::sin(angle + shift)};
        };
        all.addLines(std::array{center, rim(-0.09), rim(0.09)});
        all.closeSubpath();
    }
    turning.fill(all, fading);
}

void topAura(const PetPainter& pet) {
    const Color core{1, 0.98, 0.9};
    const Point center{50, 50 + pet.bob};
    const double pulse = (std::sin(1.6 * pet.t) + 1) / 2;
    rays(pet, center, pulse);
    const double radius = 36 + 6 * pulse;
    pet.disc(center, radius, RadialGradient{{core.faded(0.75), core.faded(0)}, center, 0, radius});
    for (const double shift : {0.0, 0.5}) {
        const double f = fraction(0.35 * pet.t + shift);
        pet.faded(1 - f).ring(center, 28 + 24 * f, core, 1.2);
    }
}

} // namespace

void PetPainter::powerAura() const {
    if (effort >= 2) {
        topAura(*this);
    } else if (effort == 1) {
        highAura(*this);
    }
}

} // namespace mimkins
