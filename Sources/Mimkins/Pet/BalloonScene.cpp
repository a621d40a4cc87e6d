#include "Pet/IdleScenes.h"
#include "Pet/TrickMotion.h"

#include <cmath>

namespace mimkins::scene {

namespace {

constexpr Color red{0.93, 0.2, 0.26};
constexpr Color darkRed{0.55, 0.05, 0.12};

void drawBalloon(const PetPainter& pet, Point at) {
    pet.polygon({{at.x, at.y + 13}, {at.x - 3, at.y + 18}, {at.x + 3, at.y + 18}}, darkRed);
    pet.ellipse(at.x - 13.2, at.y - 14.7, 26.4, 30.4, darkRed);
    pet.ellipse(at.x - 12, at.y - 13.5, 24, 28, red);
    pet.turned({at.x - 5, at.y - 6}, 0.5).ellipse(at.x - 7, at.y - 10.5, 4.5, 9, Color::white(0.65));
}

/// Legs that dangle from the body, the feet swinging.
void danglingLegs(const PetPainter& pet, double swing) {
    const double lift = pet.bob;
    pet.leg({40, lift + 74}, {40 + swing, 89 + lift}, {33 + swing, 87 + lift});
    pet.leg({60, lift + 74}, {60 + swing, 89 + lift}, {57 + swing, 87 + lift});
}

} // namespace

void balloon(PetPainter& pet) {
    const double rise = (1 - std::cos(1.3 * pet.t)) / 2;
    const double drift = std::sin(1.7 * pet.t);
    pet.bob = -7 * rise;
    pet.shiftX = -5;
    const Point at{81 + 2.5 * drift, 18.5 - 1.5 * rise};
    const Point hand{91, pet.bob + 56};
    pet.shadow();
    danglingLegs(pet, 1.6 * drift * rise);
    pet.torso();
    pet.eyes(Eyes::look(2.8, -2.5));
    pet.mouth(rise > 0.5 ? Mouth::open : Mouth::smile);
    pet.arm(Side::left, {12 - 3 * rise, pet.bob + 62}, {16 - 5 * rise, pet.bob + 72 - 10 * rise});
    const Point knot{at.x, at.y + 17};
    pet.curve(knot, {knot.x + 6 - 3 * drift, (knot.y + hand.y) / 2}, hand, Color::grey(0.55), 1.5);
    drawBalloon(pet, at);
    pet.arm(Side::right, {84, pet.bob + 66}, hand);
}

} // namespace mimkins::scene
