#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <cmath>

namespace mimkins::scene {

namespace {

using namespace work;

constexpr double beatRate = 3.2;

void bowTie(const PetPainter& pet, double y) {
    const Color black = Color::grey(0.12);
    pet.polygon({{50, y}, {41, y - 5}, {41, y + 5}}, black);
    pet.polygon({{50, y}, {59, y - 5}, {59, y + 5}}, black);
    pet.disc({50, y}, 2.6, Color::named(NamedColor::red));
}

void baton(const PetPainter& pet, Point hand, double angle) {
    const PetPainter turned = pet.turned(hand, angle);
    turned.line({hand, {hand.x, hand.y - 24}}, edge, 3.8);
    turned.line({hand, {hand.x, hand.y - 24}}, Color::white(), 2.4);
    turned.disc({hand.x, hand.y + 2}, 3.4, darkBrown);
}

} // namespace

void conductor(PetPainter& pet) {
    const double beat = std::sin(beatRate * pet.t);
    const double lag = std::sin(beatRate * pet.t - 0.6);
    pet.shiftX = 2 * std::sin(beatRate / 2 * pet.t);
    pet.bob = -1.5 + 1.5 * std::sin(2 * beatRate * pet.t);
    pet.standing(Legs::still, Eyes::closed(), Mouth::smile);
    bowTie(pet, pet.bob + 70);
    pet.arm(Side::left, {8, pet.bob + 58 - 6 * beat}, {14 + 3 * lag, pet.bob + 40 + 9 * beat});
    const Point hand{86 - 3 * lag, pet.bob + 40 - 9 * beat};
    baton(pet, hand, -0.35 + 0.6 * lag);
    pet.arm(Side::right, {92, pet.bob + 58 + 6 * beat}, hand);
    pet.notes(4, 30);
}

} // namespace mimkins::scene
