#include "Pet/AwayMotion.h"
#include "Pet/AwayScenes.h"

#include <numbers>

namespace mimkins::scene {

using namespace away;

namespace {

constexpr double cycle = 6;
constexpr double flipFrom = 5;

} // namespace

void hourglass(PetPainter& pet) {
    const double c = within(pet.t, cycle);
    const double flip = between(c, flipFrom + 0.25, cycle);
    const double run = std::clamp((c - 0.2) / (flipFrom - 0.4), 0.0, 1.0);
    const double reach = during(c, flipFrom - 0.5, cycle, 0.4);
    const double hop = 5 * std::sin(std::numbers::pi * flip);
    const double lean = 1.5 * std::sin(std::numbers::pi * flip);
    pet.shiftX = -21;
    pet.bob = 11;
    pet.squash = 1.5 + 0.8 * std::sin(1.2 * pet.t) - lean;
    pet.moved(0, 2).shadow();
    pet.moved(48, 2).shadow();
    pet.legs(Legs::tucked);
    pet.torso();
    pet.eyes(Eyes::look(3, mix(-1.5, 3.5, run) * (1 - reach)));
    pet.mouth(reach > 0.5 ? Mouth::small : Mouth::flat);
    pet.arm(Side::left, {mix(10, 14, reach), 82}, mix(Point{38, 77}, Point{24, 84}, reach));
    PetPainter glass = pet;
    glass.shiftX = 0;
    glass.drawHourglass({78, 70.5 - hop}, 2.05, std::numbers::pi * flip, run);
    const Point touching = mix(Point{88, 60}, Point{100, 80}, flip);
    const Point hand = mix(Point{76, 84}, {touching.x - 1, touching.y - hop}, reach);
    pet.arm(Side::right, {86, mix(78, 70, reach)}, hand);
}

} // namespace mimkins::scene
