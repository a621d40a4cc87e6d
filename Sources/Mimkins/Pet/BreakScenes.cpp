#include "Pet/TrickMotion.h"
#include "Pet/TrickScenes.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace mimkins::scene {

namespace {

// The moments of the wipe, in seconds.
constexpr double atBrow = 0.45;
constexpr double flicks = 1.7;
constexpr double flicked = 1.95;

constexpr double sip = 3.2; // seconds from one sip to the next

/// From one side of the forehead to the other and back.
double wiped(double phase) {
    return (1 - std::cos(turn * (phase - atBrow) / (flicks - atBrow) * 1.5)) / 2;
}

Point wipingHand(const PetPainter& pet, double phase) {
    const Point down{79, pet.bob + 73};
    const Point brow{std::lerp(62.0, 36.0, wiped(std::clamp(phase, atBrow, flicks))), pet.bob + 35};
    const Point out{93, pet.bob + 48};
    if (phase < flicks) {
        return mix(down, brow, between(phase, 0, atBrow));
    }
    return mix(mix(brow, out, between(phase, flicks, flicked)), down, between(phase, 2.2, 2.7));
}

void bigDrop(const PetPainter& pet, Point at) {
    pet.scaled(at, 2.1, 2.1).sweatDrop(at.x, at.y);
    pet.disc({at.x - 1.6, at.y + 3}, 1.5, Color::white(0.75));
}

/// A cloth that hangs from the hand and trails behind it by so much.
void cloth(const PetPainter& pet, Point hand, double trail) {
    const auto corner = [&](double x, double y) { return Point{hand.x + x + trail * y / 14, hand.y + y}; };
    const std::initializer_list<Point> edges{corner(-8, -4), corner(6, -4), corner(7, 13), corner(-7, 13)};
    pet.polygon(edges, Color::white());
    pet.line({corner(-6.8, 8.5), corner(6.8, 8.5)}, pet.colors.accent, 2.4);
    pet.line({corner(-8, -4), corner(6, -4), corner(7, 13), corner(-7, 13), corner(-8, -4)}, deepBrown, 1.3);
}

/// Drops that stand at the head until they are wiped, then fly off the cloth.
void sweat(const PetPainter& pet, double phase) {
    const double wet = 1 - between(phase, atBrow + 0.2, atBrow + 0.7);
    if (wet > 0) {
        const double slide = 5 * between(phase, 0, atBrow + 0.4);
        bigDrop(pet.faded(wet), {19, 35 + slide});
        bigDrop(pet.faded(wet), {83, 27 + slide});
        bigDrop(pet.faded(wet), {30, 16 + slide});
    }
    const double flight = (phase - flicked + 0.1) / 0.6;
    if (flight < 0 || flight > 1) {
        return;
    }
    const PetPainter flying = pet.faded(1 - flight * flight);
    flying.sweatDrop(90 + 5 * flight, 40 - 18 * flight + 20 * flight * flight);
    flying.sweatDrop(88 - 2 * flight, 34 - 26 * flight + 16 * flight * flight);
    flying.sweatDrop(92 + 3 * flight, 50 + 30 * flight * flight);
}

/// A breath of relief beside the mouth.
void phew(const PetPainter& pet, double phase) {
    const double f = (phase - flicked) / 0.8;
    if (f <= 0 || f >= 1) {
        return;
    }
    const PetPainter puff = pet.faded(0.9 * std::sin(std::numbers::pi * f));
    const Point at{40 - 14 * f, pet.mouthLine() + 2 - 3 * f};
    puff.disc(at, 3 + 2 * f, Color::white(0.9));
    puff.disc({at.x - 5, at.y + 1}, 2 + 2 * f, Color::white(0.9));
    puff.disc({at.x - 2, at.y - 3}, 2 + 2 * f, Color::white(0.9));
}

void bigMug(const PetPainter& pet, Point at, double tilt) {
    constexpr double scale = 1.9;
    const PetPainter cup = pet.turned(at, -tilt).scaled(at, scale, scale);
    cup.mug(at, tilt > 0.05 ? Steam::none : Steam::rising);
}

} // namespace

void wipeBrow(PetPainter& pet, double phase) {
    const double relief = during(phase, flicked, 2.75, 0.25);
    pet.squash = 1.5 * during(phase, 0, flicks, 0.4) + 2.5 * relief;
    pet.shadow();
    pet.legs(Legs::still);
    pet.torso();
    pet.eyes(phase < 0.2 ? Eyes::look(0, 0) : (phase < 2.5 ? Eyes::closed() : Eyes::happy()));
    pet.mouth(phase < flicked ? Mouth::wavy : (phase < 2.5 ? Mouth::small : Mouth::smile));
    sweat(pet, phase);
    phew(pet, phase);
    pet.armDown(Side::left);
    const double up = between(phase, 0, atBrow) * (1 - between(phase, 2.2, 2.7));
    const Point hand = wipingHand(pet, phase);
    cloth(pet, hand, std::clamp(0.5 * (wipingHand(pet, phase - 0.08).x - hand.x), -4.0, 4.0));
    pet.arm(Side::right, mix({82, pet.bob + 64}, {96, pet.bob + 46}, up), hand);
}

void coffee(PetPainter& pet, Posture posture) {
    const double phase = within(pet.t, sip);
    const double raised = during(phase, 1, 2.6, 0.4);
    const double drinking = during(phase, 1.3, 2.3, 0.3);
    const bool sits = posture == Posture::sitting;
    pet.bob = (sits ? 9.0 : 0.0) - 0.8 * drinking;
    pet.shadow();
    pet.legs(sits ? Legs::tucked : Legs::still);
    const PetPainter body = pet.turned({50, 80}, -0.03 * drinking);
    body.torso();
    body.eyes(raised > 0.4 ? Eyes::closed() : (phase > 2.4 ? Eyes::happy() : Eyes::look(1.5, 1)));
    body.mouth(Mouth::smile);
    body.armDown(Side::left);
    const Point at = mix({62, pet.bob + 68}, {54, pet.bob + 58}, raised);
    bigMug(body, at, 0.55 * drinking);
    body.arm(Side::right, {93, pet.bob + 72 - 4 * raised}, {at.x + 13, at.y + 1 - 4 * drinking});
    keepTurn(pet, body);
}

} // namespace mimkins::scene
