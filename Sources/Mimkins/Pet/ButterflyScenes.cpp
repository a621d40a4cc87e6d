#include "Pet/IdleScenes.h"
#include "Pet/TrickMotion.h"
#include "Pet/TrickScenes.h"

#include <algorithm>
#include <cmath>

namespace mimkins::scene {

namespace {

/// The wings of one side, `side` -1 or +1, as wide as the flap leaves them.
void wings(const PetPainter& pet, Point at, double side, double open) {
    constexpr Color orange{1, 0.6, 0.1};
    const auto wing = [&](double x, double y, double width, double height, const Color& color) {
        pet.ellipse(
            at.x + side * x * open - width * open / 2, at.y + y - height / 2, width * open, height, color
        );
    };
    wing(6.4, -4, 13, 12.5, deepBrown);
    wing(5, 4.6, 10, 9.5, deepBrown);
    wing(6.2, -4, 10.6, 10, orange);
    wing(4.8, 4.4, 7.6, 7, Color{1, 0.8, 0.25});
    wing(7.4, -5, 3.6, 3.6, Color::white(0.9));
}

/// 26 wide with its wings spread, turned by an angle in radians.
void drawButterfly(const PetPainter& pet, Point at, double angle) {
    const PetPainter insect = pet.turned(at, angle).scaled(at, 1.15, 1.15);
    const double open = 0.5 + 0.5 * std::abs(std::sin(14 * pet.t));
    wings(insect, at, -1, open);
    wings(insect, at, 1, open);
    insect.curve({at.x, at.y - 5}, {at.x - 1, at.y - 9}, {at.x - 4, at.y - 10}, deepBrown, 1);
    insect.curve({at.x, at.y - 5}, {at.x + 1, at.y - 9}, {at.x + 4, at.y - 10}, deepBrown, 1);
    insect.line({{at.x, at.y - 5}, {at.x, at.y + 6}}, deepBrown, 2.6);
}

Eyes lookAt(const PetPainter& pet, Point at) {
    const double dx = at.x - 50 - pet.shiftX;
    const double dy = at.y - pet.eyeLine();
    return Eyes::look(std::clamp(dx / 11, -3.4, 3.4), std::clamp(dy / 9, -3.6, 1.5));
}

/// An arm that hangs at 0 and reaches up to a point beside the head at 1.
void reachingArm(const PetPainter& pet, Side side, double reach) {
    const double inner = inward(side);
    const Point root = pet.shoulder(side);
    const Point hand = mix({root.x - 3 * inner, pet.bob + 73}, {root.x - 12 * inner, pet.bob + 33}, reach);
    const Point bend = mix({root.x - 6 * inner, pet.bob + 64}, {root.x - 13 * inner, pet.bob + 53}, reach);
    pet.arm(side, bend, hand);
}

// The moments of the bored pet's story, in seconds.
constexpr double appears = 3.5;
constexpr double follows = 6.6;
constexpr double ends = 9;

/// In from the left, twice about the head, out to the right.
Point visitorAt(double phase) {
    const double f = (phase - appears) / (ends - appears);
    const double x = -16 + 62 * between(f, 0, 0.35) + 6 * std::sin(9 * f) +
                     90 * std::pow(std::max(f - 0.45, 0.0) / 0.55, 2);
    return {x, 18 + 7 * std::sin(5.5 * (phase - appears)) - 6 * between(f, 0.5, 1)};
}

/// Heavy lids over the upper half of the eyes, 0 to 1 closed.
void lids(const PetPainter& pet, double closed) {
    const Color& top = pet.colors.top;
    const Color& bottom = pet.colors.bottom;
    const auto mixed = [](double from, double to) { return std::lerp(from, to, 0.36); };
    const Color skin{
        mixed(top.red, bottom.red), mixed(top.green, bottom.green), mixed(top.blue, bottom.blue)};
    const double y = pet.eyeLine();
    for (const double x : {36.0, 56.0}) {
        pet.rounded(x - 0.5, y - 2, 9, 2 + 6.5 * closed, 1, skin);
        pet.line({{x - 0.5, y + 6.5 * closed}, {x + 8.5, y + 6.5 * closed}}, pet.colors.ink, 1.6);
    }
}

/// An arm that holds the chin at 1 and hangs at 0.
void chinArm(const PetPainter& pet, double held) {
    const Point bend = mix({82, pet.bob + 64}, {91, pet.bob + 74}, held);
    pet.arm(Side::right, bend, mix({79, pet.bob + 73}, {62, pet.mouthLine() + 7}, held));
}

/// The chin on a hand, the other arm down; a sigh sinks the body.
void bored(PetPainter& pet, double phase) {
    const double sigh = (1 - std::cos(turn * phase / appears)) / 2;
    pet.squash = phase < appears ? 2.5 * sigh : 0;
    pet.standing(Legs::tapping, Eyes::look(2, 2.5), Mouth::flat);
    lids(pet, 1);
    pet.armDown(Side::left);
    chinArm(pet, 1);
}

void surprised(PetPainter& pet, double phase, Point visitor) {
    const double jump = during(phase, appears + 0.5, appears + 1, 0.25);
    pet.bob = -7 * jump;
    pet.standing(Legs::still, lookAt(pet, visitor), phase > appears + 1.4 ? Mouth::smile : Mouth::open);
    pet.armDown(Side::left);
    if (phase < appears + 0.8) {
        chinArm(pet, 1 - between(phase, appears + 0.5, appears + 0.8));
    } else {
        reachingArm(pet, Side::right, between(phase, appears + 1.5, appears + 2.3));
    }
    const double mark = during(phase, appears + 0.5, appears + 1.8, 0.2);
    if (mark > 0) {
        const PetPainter shown = pet.faded(mark).scaled({50, 24}, mark, mark);
        shout(shown, "!", {50, 13}, 24, Color::named(NamedColor::orange));
    }
}

void following(PetPainter& pet, double phase, Point visitor) {
    pet.shiftX = 100 * std::pow((phase - follows) / (ends - follows), 2);
    pet.bob = -1.2 * std::abs(std::sin(9 * pet.t));
    pet.standing(Legs::walking, lookAt(pet, visitor), Mouth::smile);
    pet.armDown(Side::left, 3 * std::sin(9 * pet.t));
    reachingArm(pet, Side::right, 1);
}

} // namespace

void butterfly(PetPainter& pet) {
    const double sway = std::sin(0.9 * pet.t);
    const Point at{50 + 34 * sway, 16.5 + 3.5 * std::sin(1.7 * pet.t)};
    pet.bob = 1.2 * std::sin(1.7 * pet.t);
    pet.shiftX = 3 * sway;
    pet.standing(Legs::still, lookAt(pet, at), Mouth::smile);
    reachingArm(pet, Side::left, between(-sway, 0.1, 0.85));
    reachingArm(pet, Side::right, between(sway, 0.1, 0.85));
    pet.shiftX = 0;
    drawButterfly(pet, at, 0.35 * std::cos(0.9 * pet.t));
}

void boredThenButterfly(PetPainter& pet, double phase) {
    const Point visitor = visitorAt(phase);
    if (phase < appears + 0.5) {
        bored(pet, phase);
    } else if (phase < follows) {
        surprised(pet, phase, visitor);
    } else {
        following(pet, phase, visitor);
    }
    if (phase >= appears) {
        PetPainter air = pet;
        air.shiftX = 0;
        drawButterfly(air, visitor, 0.35);
    }
}

} // namespace mimkins::scene
