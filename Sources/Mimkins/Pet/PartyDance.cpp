#include "Pet/AwayMotion.h"
#include "Pet/AwayScenes.h"

#include <array>
#include <numbers>

namespace mimkins::scene {

using namespace away;

namespace {

constexpr double beat = std::numbers::pi; ///< radians a second of the sway: two hops each way

void turningLight(const PetPainter& pet) {
    constexpr int rays = 6;
    constexpr Point center{50, 52};
    for (int ray = 0; ray < rays; ++ray) {
        const double part = static_cast<double>(ray) / rays;
        const double angle = 0.6 * pet.t + 2 * std::numbers::pi * part;
        Path light;
        light.move(center);
        light.addArc(center, 47, angle, angle + 0.66);
        light.closeSubpath();
        const double glow = 0.78 + 0.12 * std::sin(2 * beat * pet.t + 2 * ray);
        pet.fill(light, Color::hsb(part + 0.04 * pet.t, 0.75, 1, glow));
    }
}

/// Falls at both sides, where no body hides it.
void confetti(const PetPainter& pet) {
    constexpr std::array lanes{6.0, 94.0, 15.0, 86.0, 24.0, 77.0, 10.0, 90.0, 33.0, 67.0};
    for (std::size_t bit = 0; bit < lanes.size(); ++bit) {
        const auto i = static_cast<double>(bit);
        const double f = fraction((0.22 + 0.03 * std::fmod(i, 3)) * pet.t + 0.37 * i);
        const Point at{lanes[bit] + 3 * std::sin(2.4 * pet.t + i), 2 + 94 * f};
        pet.turned(at, 2 * pet.t + i)
            .faded(during(f, 0, 1, 0.12))
            .scaled(at, 1, std::sin(4 * pet.t + 2 * i))
            .rounded(at.x - 3, at.y - 2.1, 6, 4.2, 1, Color::hsb(0.29 * i, 0.8, 1));
    }
}

void partyHat(const PetPainter& pet) {
    const double top = pet.bob + pet.squash;
    const Color pink{1, 0.35, 0.6};
    pet.polygon({{35, top + 28}, {65, top + 28}, {50, top + 9}}, pink);
    pet.polygon(
        {{39.7, top + 22}, {60.3, top + 22}, {56.6, top + 17.2}, {43.4, top + 17.2}}, Color{1, 0.88, 0.3}
    );
    pet.disc({50, top + 9.5}, 4, Color{0.35, 0.8, 1});
}

/// `lift` is 1 for a hand thrown up.
void throwArm(const PetPainter& pet, Side side, double lift) {
    const double towards = inward(side);
    const Point root = pet.shoulder(side);
    const Point control{root.x - 13 * towards, pet.bob + mix(66, 42, lift)};
    const Point hand{root.x - mix(7, 13, lift) * towards, pet.bob + mix(70, 24, lift)};
    pet.arm(side, control, hand);
}

void kickLeg(const PetPainter& pet, double side, double kick) {
    const double x = 50 + 10 * side;
    const double ankle = x + 8 * side * kick;
    const double y = 89 - 10 * kick - 0.4 * std::max(-pet.bob, 0.0);
    pet.leg({x, pet.bob + 73}, {ankle, y}, {ankle - 5 + 2 * side, y - 2});
}

} // namespace

void partyDance(PetPainter& pet) {
    const double sway = std::sin(beat * pet.t);
    const double hop = std::abs(std::sin(2 * beat * pet.t));
    turningLight(pet);
    confetti(pet);
    pet.bob = 1 - 6 * hop;
    pet.squash = 3 * (1 - hop) * (1 - hop);
    pet.shiftX = 4 * sway;
    pet.shadow();
    const PetPainter tilted = pet.turned({50, 88}, 0.08 * sway);
    kickLeg(tilted, -1, hop * between(sway, 0.1, 0.9));
    kickLeg(tilted, 1, hop * between(-sway, 0.1, 0.9));
    tilted.torso();
    tilted.eyes(Eyes::happy());
    tilted.mouth(Mouth::open);
    partyHat(tilted);
    const double up = between(sway, -0.8, 0.8);
    throwArm(tilted, Side::left, 1 - up);
    throwArm(tilted, Side::right, up);
    pet.notes(78, 34);
}

} // namespace mimkins::scene
