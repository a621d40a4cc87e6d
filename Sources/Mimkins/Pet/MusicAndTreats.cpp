#include "Pet/IdleScenes.h"
#include "Pet/TrickMotion.h"

#include <cmath>

namespace mimkins::scene {

namespace {

/// Lies along the x axis: the body about (58, 68), the neck to the left.
void drawUkulele(const PetPainter& pet) {
    constexpr Color wood{0.87, 0.56, 0.24};
    constexpr double y = 68;
    pet.disc({66, y}, 13.4, deepBrown);
    pet.disc({52, y}, 10.4, deepBrown);
    pet.disc({66, y}, 12, wood);
    pet.disc({52, y}, 9, wood);
    pet.line({{50, y}, {19, y}}, deepBrown, 5.4);
    pet.rounded(10, y - 4.5, 11, 9, 2, deepBrown);
    pet.disc({57, y}, 4.4, deepBrown);
    pet.line({{70, y - 4}, {70, y + 4}}, deepBrown, 2.4);
    pet.line({{13, y - 1.2}, {70, y - 1.2}}, Color::white(0.9), 0.8);
    pet.line({{13, y + 1.2}, {70, y + 1.2}}, Color::white(0.9), 0.8);
    for (const double peg : {-6.0, 6.0}) {
        pet.disc({15.5, y + peg}, 2, Color::white());
    }
}

// The popcorn's cycle and its moments, as fractions of it.
constexpr double popcornCycle = 1.6;
constexpr double released = 0.25;
constexpr double caught = 0.72;

void kernel(const PetPainter& pet, Point at, double scale) {
    constexpr Color edge{0.72, 0.5, 0.2};
    constexpr Color puff{1, 0.95, 0.75};
    pet.disc(at, 3.8 * scale, edge);
    pet.disc({at.x - 1.3 * scale, at.y - 0.8 * scale}, 2.4 * scale, puff);
    pet.disc({at.x + 1.4 * scale, at.y + 0.3 * scale}, 2.3 * scale, puff);
}

void heap(const PetPainter& pet, double y) {
    kernel(pet, {30, y}, 1.2);
    kernel(pet, {48, y}, 1.2);
    kernel(pet, {39, y - 2.5}, 1.4);
}

/// A striped tub, wider at its rim, which lies at a height.
void tub(const PetPainter& pet, double rim) {
    constexpr Color red{0.88, 0.18, 0.2};
    const double foot = rim + 24;
    pet.polygon({{23, rim - 0.5}, {55, rim - 0.5}, {51.5, foot + 1.2}, {26.5, foot + 1.2}}, deepBrown);
    pet.polygon({{24.5, rim}, {53.5, rim}, {50, foot}, {28, foot}}, Color::white());
    pet.polygon({{24.5, rim}, {30.3, rim}, {32.4, foot}, {28, foot}}, red);
    pet.polygon({{36.1, rim}, {41.9, rim}, {41.2, foot}, {36.8, foot}}, red);
    pet.polygon({{47.7, rim}, {53.5, rim}, {50, foot}, {45.6, foot}}, red);
}

/// From the throwing hand over the head into the mouth, for a fraction of the flight.
Point kernelAt(double f, double mouth) {
    const double height = 4 * f * (1 - f);
    return {std::lerp(86.0, 50.0, f), std::lerp(36.0, mouth, f) - 40 * height + 8 * height * f};
}

} // namespace

void ukulele(PetPainter& pet) {
    const double sway = std::sin(1.6 * pet.t);
    pet.bob = std::sin(3.2 * pet.t);
    const double strum = std::sin(14 * pet.t);
    pet.shadow();
    pet.legs(Legs::still);
    const PetPainter body = pet.turned({50, 84}, 0.05 * sway);
    body.torso();
    body.eyes(Eyes::happy());
    body.mouth(Mouth::smile);
    const PetPainter tune = body.moved(0, pet.bob).turned({55, 68}, 0.3);
    drawUkulele(tune);
    body.arm(Side::left, {10, pet.bob + 66}, {26 + 1.5 * sway, pet.bob + 63});
    body.arm(Side::right, {91, pet.bob + 70}, {66 + 0.8 * strum, pet.bob + 71 + 3 * strum});
    pet.notes(80, 36);
    keepTurn(pet, body);
}

void popcorn(PetPainter& pet) {
    const double f = fraction(pet.t / popcornCycle);
    const double chewing = during(f, caught, 1, 0.06);
    pet.squash = 1.2 * chewing * (1 - std::cos(4 * turn * (f - caught) / (1 - caught))) / 2 +
                 2 * during(f, 0, released, 0.1);
    const double mouth = pet.mouthLine() + 1;
    const double flight = (f - released) / (caught - released);
    const bool flying = flight >= 0 && flight <= 1;
    const Point at = kernelAt(flight, mouth);
    pet.shadow();
    pet.legs(Legs::still);
    pet.torso();
    pet.eyes(
        flying ? Eyes::look((at.x - 50) / 11, (at.y - 50) / 11)
               : (f > caught ? Eyes::happy() : Eyes::look(-2.5, 2))
    );
    pet.mouth(flying ? Mouth::open : (f > caught ? Mouth::smile : Mouth::small));
    heap(pet, 69);
    const double thrown = between(f, 0.1, released) * (1 - between(f, 0.55, 0.85));
    pet.arm(Side::right, mix({90, 72}, {92, 56}, thrown), mix({50, 68}, {87, 40}, thrown));
    tub(pet, 70);
    pet.arm(Side::left, {12, 72}, {27, 81});
    if (flying) {
        kernel(pet, at, 1.6);
    }
}

} // namespace mimkins::scene
