#include "Pet/IdleKit.h"
#include "Pet/IdleScenes.h"
#include "Pet/Tempo.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mimkins::scene {

using namespace idle;
using tempo::pi;

namespace {

constexpr Color red{0.93, 0.24, 0.28};
constexpr Color yellow{1, 0.8, 0.18};
constexpr Color blue{0.2, 0.5, 0.95};

void ball(const PetPainter& pet, Point center, const Color& color) {
    pet.disc(center, 6.9, pet.colors.ink.faded(0.8));
    pet.disc(center, 6, color);
    pet.ellipse(center.x - 3.6, center.y - 4.2, 4, 3, Color::white(0.7));
}

/// How much later than the side the height of a ball comes, so that balls pass inside of those they meet.
constexpr double late = 0.6;

/// Round a lying eight, high in the middle and low at the hands.
Point juggled(double angle) {
    return {50 + 37 * std::sin(angle), 25 - 16.5 * std::cos(2 * angle - late)};
}

/// Beneath the ball that comes down on its side, which happens three times a turn.
void throwingArm(const PetPainter& pet, Side side, double angle) {
    const double dip = std::cos(3 * angle - 1.5 * late + (side == Side::left ? -pi / 2 : pi / 2));
    const Point hand{14.5, 49 + 2.5 * dip};
    drawArm(pet, side, {mirrored(side, {6, 66}), mirrored(side, hand)});
}

} // namespace

void juggle(PetPainter& pet) {
    const double angle = 2.4 * pet.t;
    pet.bob = 1 + 1.2 * std::sin(4.8 * pet.t);
    pet.squash = 2 - 1.2 * std::sin(4.8 * pet.t + 0.6);
    pet.standing(Legs::still, Eyes::look(3 * std::sin(4.8 * pet.t), -3), Mouth::none);
    pet.ellipse(46, pet.mouthLine() - 2, 8, 5, pet.colors.ink);
    throwingArm(pet, Side::left, angle);
    throwingArm(pet, Side::right, angle);
    constexpr std::array<Color, 3> colors{red, yellow, blue};
    for (std::size_t index = 0; index < colors.size(); ++index) {
        ball(pet, juggled(angle + 2 * pi * static_cast<double>(index) / 3), colors[index]);
    }
}

namespace {

void spool(const PetPainter& pet, Point center, double angle) {
    pet.disc(center, 8, pet.colors.ink.faded(0.85));
    pet.disc(center, 7, red);
    const PetPainter spinning = pet.turned(center, angle);
    spinning.line({{center.x - 4.2, center.y}, {center.x + 4.2, center.y}}, Color::white(), 2.2);
    spinning.line({{center.x, center.y - 4.2}, {center.x, center.y + 4.2}}, Color::white(), 2.2);
    pet.disc(center, 2, yellow);
}

} // namespace

void yoyo(PetPainter& pet) {
    const double out = (1 - std::cos(3 * pet.t)) / 2;
    pet.bob = 1.2 * std::sin(3 * pet.t + 0.5);
    pet.squash = 1 - std::sin(6 * pet.t) * 0.8;
    pet.shiftX = -3;
    const Point hand{89, 43 - 5 * std::sin(3 * pet.t)};
    const Point at{90, hand.y + 11 + 27 * out};
    const Eyes eyes = Eyes::look(3.5, -1.5 + 5 * out);
    pet.standing(Legs::still, eyes, Mouth::smile);
    pet.armsOnHipsLeftOnly();
    pet.line({hand, at}, Color::grey(0.5), 1.4);
    pet.arm(Side::right, {90, 60}, hand);
    spool(pet, at, 20 * out);
}

namespace {

/// From hand to hand, its middle at a height.
void rope(const PetPainter& pet, const Point& left, double middle) {
    Path path;
    path.move(left);
    const double control = (middle - left.y / 4) / 0.75;
    path.addCurve({100 - left.x, left.y}, {left.x - 9, control}, {109 - left.x, control});
    pet.stroke(path, Color{0.5, 0.16, 0.1}, 3.6);
    pet.stroke(path, Color{0.98, 0.5, 0.2}, 2.2);
}

void handle(const PetPainter& pet, Side side, Point hand, double lean) {
    const Point at = mirrored(side, hand);
    pet.line({{at.x, at.y - 3 * lean}, {at.x, at.y + 5 * lean}}, pet.colors.ink, 4);
    pet.disc(at, 3.6, pet.colors.hand);
}

} // namespace

void skippingRope(PetPainter& pet) {
    const double angle = 4.5 * pet.t;
    const double low = std::cos(angle);
    const double jump = std::max(low + 0.1, 0.0) / 1.1;
    pet.bob = -10 * jump * (2 - jump);
    pet.squash = low < 0 ? 2.5 * std::fabs(std::sin(2 * angle)) : -1.5 * jump;
    const Point hand{12, 58 + 2 * low};
    const double middle = low > 0 ? hand.y + (94.5 - hand.y) * low : hand.y + (hand.y - 8) * low;
    const bool before = std::sin(angle) < 0;
    if (!before) {
        rope(pet, hand, middle);
    }
    pet.shadow();
    hangingLegs(pet, -pet.bob, 0);
    pet.torso();
    pet.eyes(jump > 0.4 ? Eyes::happy() : Eyes::look(0, 0));
    pet.mouth(Mouth::smile);
    for (const Side side : {Side::left, Side::right}) {
        drawArm(pet, side, {mirrored(side, {8, pet.bob + 66}), mirrored(side, hand)});
        handle(pet, side, hand, low);
    }
    if (before) {
        rope(pet, hand, middle);
    }
}

} // namespace mimkins::scene
