#include "Pet/IdleScenes.h"
#include "Pet/TrickMotion.h"
#include "Pet/TrickScenes.h"

#include <array>
#include <cmath>

namespace mimkins::scene {

namespace {

/// Crossed legs in front of the body, the soles at the knees.
void lotusLegs(const PetPainter& pet) {
    const double y = pet.bob + 75;
    pet.ellipse(30, y - 5, 40, 14, pet.colors.limb);
    pet.curve({34, y - 2}, {20, y + 10}, {56, y + 8}, pet.colors.limb, 7);
    pet.curve({66, y - 2}, {80, y + 10}, {44, y + 8}, Color::black(0.2), 9);
    pet.curve({66, y - 2}, {80, y + 10}, {44, y + 8}, pet.colors.limb, 7);
    pet.ellipse(54, y + 4, 12, 7, pet.colors.hand);
    pet.ellipse(34, y + 4, 12, 7, pet.colors.hand);
}

/// Hands on the knees, palms up.
void restingArms(const PetPainter& pet, double breath) {
    pet.arm(Side::left, {6, pet.bob + 64}, {21, pet.bob + 77 + breath});
    pet.arm(Side::right, {94, pet.bob + 64}, {79, pet.bob + 77 + breath});
}

void mat(const PetPainter& pet) {
    pet.rounded(10, 88.5, 80, 6, 3, deepBrown);
    pet.rounded(11, 88, 78, 5, 2.5, pet.colors.accent);
    for (const double x : {16.0, 80.0}) {
        pet.rounded(x, 88, 4, 5, 0.5, pet.colors.paper);
    }
}

/// Rings of calm that widen behind the head.
void calm(const PetPainter& pet) {
    const double f = fraction(1.2 / turn * pet.t);
    const Point center{50, 49 + pet.bob};
    for (const double shift : {0.0, 0.5}) {
        const double grown = fraction(f + shift);
        pet.faded(0.8 * std::sin(std::numbers::pi * grown))
            .ring(center, 29 + 11 * grown, pet.colors.accent, 2.2);
    }
}

struct Orb {
    Point at;
    double depth; ///< -1 far behind the pet, 1 nearest
    Color color;
};

Orb orb(const PetPainter& pet, std::size_t index) {
    constexpr std::array<Color, 3> orbColors{{{1, 0.42, 0.5}, {0.35, 0.8, 0.5}, {0.4, 0.62, 1}}};
    const double angle = 1.2 * pet.t + turn * static_cast<double>(index) / 3;
    const double depth = std::sin(angle);
    const double x = 50 + 41 * std::cos(angle);
    return {{x, 50 + 0.7 * pet.bob + 19 * depth + 3 * std::cos(angle)}, depth, orbColors[index]};
}

void drawOrb(const PetPainter& pet, const Orb& orb) {
    const double radius = 6.2 + 1.6 * orb.depth;
    pet.disc(orb.at, radius + 1.1, Color::black(0.3));
    pet.disc(orb.at, radius, orb.color);
    pet.disc({orb.at.x - 0.3 * radius, orb.at.y - 0.35 * radius}, 0.3 * radius, Color::white(0.8));
}

void drawOrbs(const PetPainter& pet, bool front) {
    for (std::size_t index = 0; index < 3; ++index) {
        const Orb one = orb(pet, index);
        if ((one.depth >= 0) == front) {
            drawOrb(pet, one);
        }
    }
}

/// A drop-shaped jewel on the forehead that glows with the breath.
void jewel(const PetPainter& pet, double glow) {
    const Point at{50, pet.bob + 34.5};
    pet.disc(at, 5 + glow, Color::white(0.25 + 0.15 * glow));
    pet.polygon(
        {{at.x, at.y - 5}, {at.x + 3.6, at.y}, {at.x, at.y + 4}, {at.x - 3.6, at.y}}, Color{0.85, 0.15, 0.4}
    );
    pet.disc({at.x - 0.8, at.y - 1.2}, 0.9, Color::white(0.8));
}

} // namespace

void meditate(PetPainter& pet) {
    pet.bob = -6 + 2.5 * std::sin(1.2 * pet.t);
    const double breath = std::sin(1.5 * pet.t);
    pet.squash = 0.6 * breath;
    calm(pet);
    mat(pet);
    pet.shadow();
    pet.torso();
    pet.eyes(Eyes::closed());
    pet.mouth(Mouth::smile);
    lotusLegs(pet);
    restingArms(pet, 0.6 * breath);
}

void guruHover(PetPainter& pet) {
    pet.bob = -7 + 3 * std::sin(0.9 * pet.t) + 1.5 * std::sin(0.45 * pet.t);
    const double breath = std::sin(1.2 * pet.t);
    pet.shadow();
    drawOrbs(pet, false);
    pet.torso();
    pet.eyes(Eyes::closed());
    pet.mouth(Mouth::smile);
    jewel(pet, 0.5 + 0.5 * breath);
    lotusLegs(pet);
    const double palms = pet.bob + 71 + 0.5 * breath;
    pet.arm(Side::left, {16, pet.bob + 74}, {46.8, palms});
    pet.arm(Side::right, {84, pet.bob + 74}, {53.2, palms});
    drawOrbs(pet, true);
}

} // namespace mimkins::scene
