#include "Pet/WaitingKit.h"
#include "Pet/WaitingScenes.h"

#include <array>
#include <cmath>

namespace mimkins::scene {

namespace {

constexpr std::array<Point, 6> sparkles{{{9, 12}, {30, 7}, {72, 8}, {92, 14}, {93, 66}, {7, 66}}};

void twinkle(const PetPainter& pet) {
    PetPainter air = pet;
    air.shiftX = 0;
    double shift = 0;
    for (const Point& at : sparkles) {
        const double beat = std::sin(5 * pet.t + shift);
        sparkle(air, {at.x, at.y + 2 * std::cos(5 * pet.t + shift)}, 2.5 + 4 * beat * beat);
        shift += 1.1;
    }
}

} // namespace

void celebrate(PetPainter& pet) {
    constexpr double length = 0.9;
    const Hop now = hop(within(pet.t, length) / length);
    leap(pet, now, 13);
    pet.shadow();
    twinkle(pet);
    hopLegs(pet, now);
    pet.torso();
    pet.eyes(Eyes::happy());
    grin(pet);
    const double swing = 3 * std::sin(5 * pet.t);
    for (const Side side : {Side::left, Side::right}) {
        const Point root = pet.shoulder(side);
        const double out = -inward(side);
        const double y = pet.bob + 24 + 6 * now.crouch;
        pet.arm(side, {root.x + 12 * out, pet.bob + 46}, {root.x + 11 * out + swing, y});
    }
}

namespace {

constexpr Color sheetEdge = Color::grey(0.5);
constexpr Color sealRed{0.86, 0.2, 0.27};

/// A closed envelope of 34 by 23.
void envelope(const PetPainter& pet, Point center) {
    const double left = center.x - 17;
    const double top = center.y - 11.5;
    pet.rounded(left, top, 34, 23, 2.5, sheetEdge);
    pet.rounded(left + 1, top + 1, 32, 21, 1.8, Color::white());
    pet.line({{left + 2, top + 21}, {left + 13, top + 11}}, Color::grey(0.75), 1.2);
    pet.line({{left + 32, top + 21}, {left + 21, top + 11}}, Color::grey(0.75), 1.2);
    pet.line({{left + 2, top + 2}, {center.x, top + 13}, {left + 32, top + 2}}, sheetEdge, 1.6);
    pet.disc({center.x, top + 12.5}, 3.6, sealRed);
    pet.disc({center.x - 1, top + 11.5}, 1.1, Color::white(0.45));
}

} // namespace

void holdingEnvelope(PetPainter& pet) {
    const double beat = std::sin(3 * pet.t);
    pet.bob = -0.8 - 0.8 * beat;
    pet.shadow();
    pet.legs(Legs::still);
    pet.shiftX = 0.6 * std::sin(3 * pet.t - 1);
    pet.torso();
    const double glance = during(within(pet.t, 5), 0.5, 2, 0.25);
    pet.eyes(Eyes::look(2.8 * glance, -2.5 * glance));
    pet.mouth(Mouth::smile);
    pet.armsOnHipsLeftOnly();
    const Point hand{84, pet.bob + 38 - 2 * beat};
    envelope(pet.turned(hand, 0.12 + 0.07 * std::sin(3 * pet.t - 0.6)), {hand.x - 4, hand.y - 11});
    pet.arm(Side::right, {90, pet.bob + 56}, hand);
}

namespace {

void letter(const PetPainter& pet, Point center) {
    const double left = center.x - 16;
    const double top = center.y - 13;
    pet.rounded(left, top, 32, 27, 1.8, sheetEdge);
    pet.rounded(left + 1, top + 1, 30, 25, 1.2, Color::white());
    for (const double y : {6.0, 11.0, 16.0}) {
        pet.line({{left + 5, top + y}, {left + 27, top + y}}, Color::grey(0.62), 1.8);
    }
    pet.line({{left + 5, top + 21}, {left + 14, top + 21}}, Color::grey(0.62), 1.8);
    pet.disc({left + 24.5, top + 21}, 2.8, sealRed);
}

/// From -1 to 1 along a line, then quickly back to its start.
double scanning(double t) {
    const double share = fraction(t / 1.6);
    return share < 0.82 ? -1 + 2 * share / 0.82 : 1 - 2 * between(share, 0.82, 1);
}

} // namespace

void readingLetter(PetPainter& pet) {
    const double phase = within(pet.t, 6.4);
    const double touched = during(phase, 4.2, 6.2, 0.3);
    sit(pet, std::sin(1.4 * pet.t));
    pet.shadow();
    pet.legs(Legs::tucked);
    pet.torso();
    if (touched > 0.5) {
        pet.eyes(Eyes::happy());
    } else {
        pet.eyes(Eyes::look(2.4 * scanning(pet.t), 1));
        brows(pet, 0.5 + std::sin(1.4 * pet.t), -1);
    }
    const Point center{50, 77 + 1.2 * std::sin(1.4 * pet.t) - 2 * touched};
    letter(pet, center);
    pet.arm(Side::left, {14, 80}, {center.x - 16, center.y + 3});
    pet.arm(Side::right, {86, 80}, {center.x + 16, center.y + 3});
    pet.faded(touched).word("aww", {72, 30 - 2 * touched}, 9, Color::named(NamedColor::pink));
}

namespace {

/// A mouth that opens from a line (0) to a great yawn (1).
void yawningMouth(const PetPainter& pet, double open) {
    const double width = mix(7, 15, open);
    const double height = mix(2.2, 17, open);
    const Point center{50, pet.mouthLine() + 2 * open};
    pet.ellipse(center.x - width / 2, center.y - height / 2, width, height, pet.colors.ink);
    pet.ellipse(
        center.x - 0.32 * width, center.y + 0.08 * height, 0.64 * width, 0.36 * height,
        Color{0.93, 0.42, 0.47}
    );
}

} // namespace

void yawnSitting(PetPainter& pet) {
    const double phase = within(pet.t, 6);
    const double yawn = during(phase, 1, 4.2, 0.9);
    const double nodding = during(within(pet.t + 1.4, 6), 0, 2.4, 0.9);
    sit(pet, 0.5 * std::sin(1.5 * pet.t) + 3.5 * yawn - 4 * nodding);
    pet.shadow();
    pet.legs(Legs::tucked);
    pet.shiftX = std::sin(0.125 * pet.t);
    pet.torso();
    yawn > 0.35 || nodding > 0.9 ? pet.eyes(Eyes::closed()) : sleepyEyes(pet, 0);
    yawningMouth(pet, yawn);
    const double tremble = 0.7 * std::sin(18 * pet.t) * during(phase, 2, 3.4, 0.4);
    const Point stretched{11 + tremble, 27};
    pet.arm(Side::left, {mix(16, 8, yawn), mix(75, 50, yawn)}, mix({21, 82}, stretched, yawn));
    const double pat = 1.5 * std::sin(8 * pet.t) * yawn;
    const Point covering{63, pet.mouthLine() + 3 + pat};
    pet.arm(Side::right, {mix(82, 90, yawn), mix(75, 80, yawn)}, mix({79, 82}, covering, yawn));
    pet.faded(between(phase, 2.4, 3) - between(phase, 4, 4.6)).sweatDrop(33, pet.eyeLine() + 12);
}

} // namespace mimkins::scene
