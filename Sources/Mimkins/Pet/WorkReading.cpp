#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mimkins::scene {

namespace {

using namespace work;

constexpr Color print = Color::grey(0.6);

/// One half of the open book: `reach` is how far its outer edge is to the right of the spine, `lift` how high
/// that edge is held.
void page(const PetPainter& pet, double reach, double lift, const Color& color) {
    const double y = pet.bob;
    edgedPolygon(
        pet, {{50, y + 67}, {50 + reach, y + 61 - lift}, {50 + reach, y + 81 - lift}, {50, y + 87}}, color
    );
    for (const double row : {0.0, 1.0, 2.0}) {
        const auto place = [&](double share) {
            return Point{50 + share * reach, y + 70 + 4.6 * row - share * (6 + lift)};
        };
        pet.line({place(0.18), place(0.82)}, print, 1.7);
    }
}

void cover(const PetPainter& pet) {
    const double y = pet.bob;
    pet.polygon({{50, y + 66}, {21, y + 60}, {21, y + 83}, {50, y + 90}}, pet.colors.accent);
    pet.polygon({{50, y + 66}, {79, y + 60}, {79, y + 83}, {50, y + 90}}, pet.colors.accent);
    const Path outline =
        Path::polyline({{21, y + 60}, {21, y + 83}, {50, y + 90}, {79, y + 83}, {79, y + 60}});
    pet.stroke(outline, edge, 1.2);
}

// The parchment hangs between two rods; the lower one winds up what isn't read.
constexpr double scrollTop = 65;
constexpr double scrollSeconds = 5;

struct Unrolled {
    double length = 0;
    double surprise = 0; ///< when it has snapped up
};

Unrolled unrolledAt(double t) {
    const double c = cycleOf(t, scrollSeconds);
    const double down = 0.35 * between(c, 0, 0.12) + 0.65 * between(c, 0.12, 0.5);
    const double up = between(c, 0.86, 0.92);
    const double bounce = 0.12 * std::sin(std::numbers::pi * between(c, 0.92, 1));
    return {8 + 15 * (down * (1 - up) + bounce), between(c, 0.86, 0.89) * (1 - between(c, 0.96, 1))};
}

void rod(const PetPainter& pet, double y, double thickness) {
    pet.line({{26, y}, {74, y}}, darkBrown, 3.4);
    pet.rounded(31, y - thickness / 2, 38, thickness, thickness / 2, Color{0.88, 0.8, 0.62});
    pet.stroke(Path::roundedRect({31, y - thickness / 2, 38, thickness}, thickness / 2), edge, 0.9);
}

void parchmentSheet(const PetPainter& pet, double length, double wound) {
    const double top = scrollTop + pet.bob;
    edgedBox(pet, {32, top, 36, length + 1}, 0, parchment, 0.9);
    constexpr double spacing = 5;
    for (double y = 5.5; y < 28; y += spacing) {
        const double shown = between(length, y, y + 3);
        if (shown > 0) {
            const double width = std::fmod(y * 7, 11.0);
            pet.faded(shown).line({{37, top + y}, {63 - width, top + y}}, brown, 1.7);
        }
    }
    rod(pet, top, 5);
    rod(pet, top + length, wound);
}

} // namespace

void book(PetPainter& pet) {
    const double c = cycleOf(pet.t, 2.6);
    const double turned = between(c, 0.66, 0.96);
    const double lift = std::sin(std::numbers::pi * turned);
    pet.bob = 0.7 * std::sin(1.5 * pet.t);
    pet.standing(Legs::still, Eyes::look(2.5 * std::sin(1.6 * pet.t), 3), Mouth::smile);
    cover(pet);
    page(pet, -26, 0, pet.colors.paper);
    page(pet, 26, 0, pet.colors.paper);
    if (turned > 0 && turned < 1) {
        page(pet, 26 * std::cos(std::numbers::pi * turned), 9 * lift, Color::grey(0.97 - 0.12 * lift));
    }
    pet.arm(Side::left, {12, pet.bob + 68}, {22, pet.bob + 76});
    pet.arm(Side::right, {88, pet.bob + 68}, {78 - 16 * lift, pet.bob + 76 - 12 * lift});
}

void scroll(PetPainter& pet) {
    const Unrolled now = unrolledAt(pet.t);
    pet.bob = -2.5 * now.surprise;
    const double reading = cycleOf(pet.t, scrollSeconds / 4);
    const double scan =
        reading < 0.8 ? mix(-2.5, 2.5, reading / 0.8) : mix(2.5, -2.5, between(reading, 0.8, 1));
    pet.standing(
        Legs::still, now.surprise > 0.3 ? Eyes::wide() : Eyes::look(scan, 3),
        now.surprise > 0.3 ? Mouth::small : Mouth::flat
    );
    parchmentSheet(pet, now.length, 11 - 5 * (now.length - 8) / 15);
    pet.arm(Side::left, {10, pet.bob + 66}, {25, pet.bob + scrollTop + 0.5});
    pet.arm(Side::right, {90, pet.bob + 66}, {75, pet.bob + scrollTop + 0.5});
}

} // namespace mimkins::scene
