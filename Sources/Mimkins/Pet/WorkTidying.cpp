#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <array>
#include <cmath>
#include <numbers>

namespace mimkins::scene {

namespace {

using namespace work;

constexpr double sweepRate = 5;

/// A broom about the upper hand, standing straight at angle 0.
void broomAbout(const PetPainter& pet, Point hand, double angle, double bend) {
    const PetPainter turned = pet.turned(hand, angle);
    const auto place = [&](double x, double y) { return Point{hand.x + x, hand.y + y}; };
    turned.line({place(0, -16), place(0, 30)}, darkBrown, 5.2);
    turned.line({place(0, -16), place(0, 30)}, brown, 3.6);
    edgedPolygon(turned, {place(-6, 29), place(6, 29), place(13 + bend, 46), place(-13 + bend, 46)}, straw);
    turned.line({place(-2, 34), place(-6 + bend, 44)}, brown, 1.5);
    turned.line({place(2, 34), place(6 + bend, 44)}, brown, 1.5);
    turned.line({place(-5.5, 30), place(5.5, 30)}, Color::named(NamedColor::red), 4.6);
}

/// Flies up to the right after each stroke.
void dustPuffs(const PetPainter& pet) {
    const double f = fraction((sweepRate * pet.t - std::numbers::pi / 2) / (2 * std::numbers::pi));
    const double gone = std::clamp((f - 0.42) / 0.58, 0.0, 1.0);
    if (gone <= 0) {
        return;
    }
    const PetPainter fading = pet.faded(std::sin(std::numbers::pi * gone));
    for (const double i : {0.0, 1.0, 2.0}) {
        const double far = (3 + 5 * i) * gone;
        const Point at{83 + 1.5 * i + far, 88 - (12 - 4 * i) * std::sin(2.2 * gone)};
        fading.disc(at, 4.2 - 0.7 * i + 1.2 * gone, dust);
    }
}

// The hose goes from the canister behind the pet over its arm to the nozzle.
constexpr Point canister{13, 79};

struct Hose {
    Point start;
    Point control;
    Point hand;
    Point nozzle;
};

/// From the nozzle at 0 to the canister at 1.
Point along(const Hose& hose, double f) {
    constexpr double wand = 0.35;
    if (f < wand) {
        return mix(hose.nozzle, hose.hand, f / wand);
    }
    const double g = (f - wand) / (1 - wand);
    return mix(mix(hose.hand, hose.control, g), mix(hose.control, hose.start, g), g);
}

void canisterBody(const PetPainter& pet, double swell) {
    const PetPainter fat = pet.scaled({canister.x, 90}, 1 + 0.16 * swell, 1 + 0.22 * swell);
    edgedBox(fat, {canister.x - 11, canister.y - 8, 24, 17}, 7.5, Color::named(NamedColor::red));
    fat.rounded(canister.x - 7, canister.y - 5, 11, 3.4, 1.7, Color::white(0.45));
    pet.disc({canister.x - 5, 88}, 4, Color::grey(0.2));
    pet.disc({canister.x + 8, 88}, 4, Color::grey(0.2));
    pet.disc({canister.x - 5, 88}, 1.4, Color::grey(0.8));
    pet.disc({canister.x + 8, 88}, 1.4, Color::grey(0.8));
}

void hoseAndWand(const PetPainter& pet, const Hose& hose) {
    const Color rubber = Color::grey(0.32);
    pet.curve(hose.start, hose.control, hose.hand, rubber, 4.6);
    pet.line({hose.hand, hose.nozzle}, Color::grey(0.7), 4);
    pet.stroke(
        Path::polyline({{hose.nozzle.x - 7, hose.nozzle.y + 1}, {hose.nozzle.x + 7, hose.nozzle.y + 1}}),
        Color::grey(0.2), 5
    );
}

/// A small heap of dust with eyes, that sees what comes.
void dustBunny(const PetPainter& pet, Point at, double size, double worry) {
    const PetPainter small = pet.scaled(at, size, size);
    small.disc(at, 5, dust);
    small.disc({at.x - 4.5, at.y + 1.5}, 3.4, dust);
    small.disc({at.x + 4.5, at.y + 1.5}, 3.4, dust);
    small.disc({at.x - 1.8, at.y - 1}, 1 + 0.5 * worry, pet.colors.ink);
    small.disc({at.x + 1.8, at.y - 1}, 1 + 0.5 * worry, pet.colors.ink);
}

void specks(const PetPainter& pet, Point nozzle) {
    for (const double shift : {0.0, 0.5}) {
        const double f = fraction(0.9 * pet.t + shift);
        const Point from{nozzle.x + 14 - 6 * shift, 82 + 7 * shift};
        pet.faded(std::sin(std::numbers::pi * f)).disc(mix(from, {nozzle.x + 6, 88}, f * f), 1.6, dust);
    }
}

} // namespace

void broom(PetPainter& pet) {
    const double sweep = std::sin(sweepRate * pet.t);
    const double speed = std::cos(sweepRate * pet.t);
    pet.shiftX = -14 + 2 * sweep;
    pet.bob = -0.9 + 0.9 * std::sin(2 * sweepRate * pet.t);
    pet.standing(Legs::still, Eyes::look(2.5 + 0.8 * sweep, 2.5), Mouth::whistle);
    const PetPainter floor = unshifted(pet);
    dustPuffs(floor);
    const Point upper{70 + 2.5 * sweep, 44 + pet.bob};
    const double angle = -0.12 - 0.26 * sweep;
    broomAbout(floor, upper, angle, 3 * speed);
    armTo(pet, Side::right, {76, 60}, upper);
    pet.armDown(Side::left, -2 - 3 * sweep);
}

void vacuum(PetPainter& pet) {
    const double c = cycleOf(pet.t, 5);
    const double push = std::sin(3 * pet.t);
    pet.shiftX = -2 + 1.5 * std::sin(1.3 * pet.t);
    pet.bob = 0.5 * std::sin(6 * pet.t);
    const double swallowed = between(c, 0.46, 0.52);
    const double arrives = between(c, 0.84, 0.89) * (1 - between(c, 0.9, 1));
    const Point nozzle{77 + 4 * push, 88};
    const Hose hose{
        {canister.x + 8, canister.y - 3}, {48, 102}, {70 + 2 * push, 63 + pet.bob}, {nozzle.x, nozzle.y - 1}};
    const PetPainter floor = unshifted(pet);
    pet.shadow();
    pet.legs(Legs::still);
    pet.torso();
    pet.eyes(arrives > 0.3 ? Eyes::happy() : Eyes::look(2.5 + 0.6 * push, 2.5));
    pet.mouth(Mouth::smile);
    canisterBody(floor, arrives + 0.12 * (1 + std::sin(6 * pet.t)));
    specks(floor, nozzle);
    const double size = between(c, 0, 0.12) * (1 - swallowed);
    if (size > 0) {
        const Point at = mix({89.5, 86}, {nozzle.x + 4, 87}, falling(c, 0.36, 0.5));
        dustBunny(floor, {at.x + 0.5 * std::sin(20 * pet.t), at.y}, 1.15 * size, between(c, 0.2, 0.4));
    }
    hoseAndWand(floor, hose);
    if (c > 0.46 && c < 0.86) {
        floor.disc(along(hose, (c - 0.46) / 0.4), 4.6 * between(c, 0.46, 0.52), Color::grey(0.32));
    }
    pet.armsOnHipsLeftOnly();
    armTo(pet, Side::right, {84, 70}, hose.hand);
}

} // namespace mimkins::scene
