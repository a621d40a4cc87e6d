#include "Pet/AwayMotion.h"
#include "Pet/AwayScenes.h"

#include <numbers>

namespace mimkins::scene {

using namespace away;

namespace {

constexpr double rim = 63;

void backOfTub(const PetPainter& pet) {
    pet.ellipse(6, rim - 7, 88, 14, brown);
    pet.ellipse(10, rim - 4.5, 80, 11, Color{0.24, 0.56, 0.78});
}

/// The water before the body.
void water(const PetPainter& pet) {
    Path surface;
    surface.move({10, rim});
    const double wave = 0.8 * std::sin(1.2 * pet.t);
    surface.addCurve({90, rim}, {34, rim + 4 + wave}, {66, rim + 4 - wave});
    surface.addQuadCurve({10, rim}, {50, rim + 16});
    surface.closeSubpath();
    pet.fill(surface, Color{0.45, 0.78, 0.93, 0.9});
}

void frontOfTub(const PetPainter& pet) {
    Path staves;
    staves.move({7, rim});
    staves.addQuadCurve({93, rim}, {50, rim + 17});
    staves.addLine({86, 90});
    staves.addQuadCurve({14, 90}, {50, 99});
    staves.closeSubpath();
    pet.fill(staves, LinearGradient{{lightWood, brown}, {7, 80}, {93, 80}});
    for (const double x : {-26.0, -9.0, 9.0, 26.0}) {
        const double sag = 0.0035 * x * x;
        pet.line({{50 + x, 73 - sag}, {50 + 0.86 * x, 93 - sag}}, brown, 1.2);
    }
    pet.curve({11, 79}, {50, 94}, {89, 79}, Color::grey(0.55), 2.4);
    pet.curve({7.5, rim + 0.5}, {50, rim + 17.5}, {92.5, rim + 0.5}, darkBrown, 3);
}

void steam(const PetPainter& pet) {
    for (const double i : {0.0, 1.0, 2.0}) {
        const double f = fraction(0.22 * pet.t + 0.4 * i);
        const double x = 16 + 32 * i + 3 * std::sin(0.7 * pet.t + 2 * i);
        const double y = (i == 1 ? 30 : 40) - 14 * f;
        const double curl = 5 * std::cos(1.2 * pet.t + i);
        Path wisp;
        wisp.move({x, y});
        wisp.addCurve({x, y - 18}, {x + curl, y - 6}, {x - curl, y - 12});
        pet.faded(0.85 * std::sin(std::numbers::pi * f)).stroke(wisp, mist, 3.4);
    }
}

void bubbles(const PetPainter& pet) {
    for (const double i : {0.0, 1.0, 2.0, 3.0, 4.0}) {
        const double f = fraction(0.45 * pet.t + 0.37 * i);
        const double x = 22 + 13 * i + (i > 1 ? 6 : 0);
        const double depth = 0.0042 * (x - 50) * (x - 50);
        const double radius = 2.7 * std::sin(std::numbers::pi * std::sqrt(f));
        pet.disc({x, 68 - depth - 5 * f}, radius, Color::white(0.85));
    }
}

void duck(const PetPainter& pet) {
    const Color yellow{1, 0.83, 0.2};
    const double x = 25 + 3 * std::sin(0.7 * pet.t);
    const double y = 64 + 0.7 * std::sin(1.2 * pet.t + 1);
    const PetPainter rocking = pet.turned({x, y}, 0.09 * std::sin(1.2 * pet.t));
    rocking.polygon({{x - 9, y - 4.5}, {x, y - 1}, {x - 3, y + 4}}, yellow);
    rocking.ellipse(x - 7.5, y - 3, 15, 8.5, yellow);
    rocking.polygon({{x + 6, y - 7.5}, {x + 11, y - 5.2}, {x + 6, y - 3.6}}, Color{0.95, 0.45, 0.12});
    rocking.disc({x + 3.6, y - 5.6}, 4.3, yellow);
    rocking.disc({x + 4.6, y - 6.6}, 0.9, pet.colors.ink);
}

/// Its foot stands in the hand.
void cocktail(const PetPainter& pet, Point hand) {
    const auto place = [&](double x, double y) { return Point{hand.x + x, hand.y + y}; };
    pet.line({place(1, -8), place(6, -21)}, Color{0.95, 0.3, 0.4}, 1.6);
    pet.polygon({place(-7, -15), place(7, -15), place(3.5, 0), place(-3.5, 0)}, Color{0.86, 0.94, 1, 0.9});
    pet.polygon({place(-6, -12), place(6, -12), place(3.2, -1), place(-3.2, -1)}, Color{1, 0.62, 0.2});
    pet.disc(place(-6.5, -15), 4, Color{0.7, 0.85, 0.3});
    pet.disc(place(-6.5, -15), 2.6, Color{0.93, 0.97, 0.65});
}

void towelOnHead(const PetPainter& pet) {
    const double top = pet.bob + pet.squash;
    pet.rounded(33, top + 19.2, 34, 9.6, 4.2, Color::grey(0.74));
    pet.rounded(33.6, top + 19.2, 32.8, 8.6, 4, pet.colors.paper);
    pet.rounded(42, top + 19.2, 4, 8.6, 0, pet.colors.accent);
}

} // namespace

void hotTub(PetPainter& pet) {
    pet.bob = -5 + std::sin(1.2 * pet.t);
    pet.squash = 0.8 * std::sin(0.7 * pet.t);
    steam(pet);
    backOfTub(pet);
    pet.torso();
    pet.eyes(Eyes::happy());
    pet.mouth(Mouth::smile);
    towelOnHead(pet);
    water(pet);
    bubbles(pet);
    duck(pet);
    frontOfTub(pet);
    pet.arm(Side::left, {10, 52}, {11, rim});
    const Point hand{88, 51 + 2.5 * std::sin(0.7 * pet.t)};
    cocktail(pet, {hand.x, hand.y - 1});
    pet.arm(Side::right, {82, 64}, hand);
}

} // namespace mimkins::scene
