#include "Pet/IdleScenes.h"
#include "Pet/TrickMotion.h"

#include <cmath>

namespace mimkins::scene {

namespace {

/// Half of the hoop's ellipse: `front` +1 for the near, -1 for the far half.
void halfHoop(const PetPainter& pet, Point center, double front) {
    constexpr double halfWidth = 40;
    constexpr double halfHeight = 8;
    constexpr double roundness = 1.33;
    const auto half = [&](double lift) {
        Path path;
        path.move({center.x - halfWidth, center.y + lift});
        path.addCurve(
            {center.x + halfWidth, center.y + lift},
            {center.x - halfWidth, center.y + front * halfHeight * roundness + lift},
            {center.x + halfWidth, center.y + front * halfHeight * roundness + lift}
        );
        return path;
    };
    const Color pink{1, 0.3, 0.55};
    const Color shade{0.6, 0.08, 0.32};
    pet.stroke(half(0), front > 0 ? Color{0.35, 0.04, 0.2} : shade, 6);
    pet.stroke(half(0), front > 0 ? pink : Color{0.8, 0.2, 0.42}, 4.2);
    if (front > 0) {
        pet.stroke(half(-0.9), Color::white(0.65), 1);
    }
}

/// Legs whose roots go with the hips while the feet stay.
void swayingLegs(const PetPainter& pet, double sway) {
    pet.leg({40 + sway, pet.bob + 74}, {38, 89}, {31, 87});
    pet.leg({60 + sway, pet.bob + 74}, {62, 89}, {58, 87});
}

void board(const PetPainter& pet, double wheel) {
    pet.curve({14, 83}, {18, 87}, {26, 87}, deepBrown, 5);
    pet.curve({86, 83}, {82, 87}, {74, 87}, deepBrown, 5);
    pet.line({{26, 87}, {74, 87}}, deepBrown, 5);
    pet.curve({14, 82.5}, {18, 86}, {26, 86}, pet.colors.accent, 2.6);
    pet.curve({86, 82.5}, {82, 86}, {74, 86}, pet.colors.accent, 2.6);
    pet.line({{26, 86}, {74, 86}}, pet.colors.accent, 2.6);
    for (const double x : {29.0, 71.0}) {
        pet.disc({x, 92}, 4, Color::grey(0.15));
        pet.disc({x, 92}, 2.4, Color{1, 0.75, 0.2});
        pet.disc({x + 1.3 * std::cos(wheel), 92 + 1.3 * std::sin(wheel)}, 0.8, Color::grey(0.15));
    }
}

void helmet(const PetPainter& pet) {
    const double y = pet.bob + 37;
    Path shell;
    shell.move({19, y});
    shell.addCurve({81, y}, {19, y - 22}, {81, y - 22});
    shell.closeSubpath();
    pet.fill(shell, pet.colors.accent);
    pet.stroke(shell, deepBrown, 1.6);
    Path stripe;
    stripe.move({41, y - 0.8});
    stripe.addQuadCurve({50, y - 15.4}, {42, y - 15});
    stripe.addQuadCurve({59, y - 0.8}, {58, y - 15});
    stripe.closeSubpath();
    pet.fill(stripe, pet.colors.paper);
    pet.line({{20, y}, {80, y}}, deepBrown, 3.4);
}

void speedLines(const PetPainter& pet, double speed) {
    const double side = speed > 0 ? 9 : 91;
    const PetPainter shown = pet.faded(std::abs(speed));
    for (const double y : {48.0, 60.0, 72.0}) {
        const double reach = speed * (7 + 2 * std::sin(5 * pet.t + y));
        shown.line({{side, y}, {side - reach, y}}, Color::grey(0.62), 2);
    }
}

} // namespace

void hulaHoop(PetPainter& pet) {
    const double swing = std::sin(9 * pet.t);
    const double other = std::cos(9 * pet.t);
    const double sway = 3.5 * swing;
    pet.bob = -0.8 + 0.8 * other;
    const Point waist{50 - 4 * swing, pet.bob + 66 + 1.5 * other};
    pet.shadow();
    swayingLegs(pet, sway);
    PetPainter body = pet.turned({50, 40}, -0.07 * swing);
    const PetPainter hoop = pet.turned(waist, 0.13 * other);
    halfHoop(hoop, waist, -1);
    body.torso();
    body.eyes(Eyes::happy());
    body.mouth(Mouth::smile);
    body.arm(Side::left, {9, pet.bob + 50}, {10, pet.bob + 33 + 2 * swing});
    body.arm(Side::right, {91, pet.bob + 50}, {90, pet.bob + 33 - 2 * swing});
    halfHoop(hoop, waist, 1);
    keepTurn(pet, body);
}

void skateboard(PetPainter& pet) {
    const double place = std::sin(0.8 * pet.t);
    const double speed = std::cos(0.8 * pet.t);
    const double wobble = std::sin(5 * pet.t);
    pet.shiftX = 6.5 * place;
    pet.bob = -5 + 0.6 * wobble;
    pet.shadow();
    speedLines(pet, speed);
    board(pet, 3 * place * turn);
    pet.line({{40, pet.bob + 74}, {33, 83}}, pet.colors.limb, 6);
    pet.line({{60, pet.bob + 74}, {67, 83}}, pet.colors.limb, 6);
    pet.ellipse(25, 80, 14, 6, pet.colors.limb);
    pet.ellipse(61, 80, 14, 6, pet.colors.limb);
    PetPainter body = pet.turned({50, 84}, 0.1 * speed);
    body.torso();
    helmet(body);
    body.eyes(Eyes::look(3 * speed, 1.5));
    body.mouth(Mouth::smile);
    body.arm(Side::left, {13, pet.bob + 62}, {14, pet.bob + 50 + 4 * wobble});
    body.arm(Side::right, {87, pet.bob + 62}, {86, pet.bob + 50 - 4 * wobble});
    keepTurn(pet, body);
}

} // namespace mimkins::scene
