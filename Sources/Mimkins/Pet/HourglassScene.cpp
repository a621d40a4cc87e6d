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
    pet.moved(-18, 3).shadow();
    pet.moved(28, 3).scaled({50, 94}, 0.8, 1).shadow();
    PetPainter body = pet.moved(-19, 0).scaled({50, 95}, 0.84, 0.84);
    body.bob = 11;
    body.squash = 1.5 + 0.8 * std::sin(1.2 * pet.t) - 1.5 * std::sin(std::numbers::pi * flip);
    body.legs(Legs::tucked);
    body.torso();
    body.eyes(Eyes::look(3, mix(-2, 4, run) * (1 - reach)));
    body.mouth(reach > 0.5 ? Mouth::small : Mouth::flat);
    body.arm(Side::left, mix(Point{20, 88}, Point{12, 78}, reach), mix(Point{41, 79}, Point{21, 84}, reach));
    pet.drawHourglass({76.5, 72 - hop}, 2, std::numbers::pi * flip, run);
    const Point touching = mix(Point{66, 58}, Point{79, 49}, flip);
    const Point pushing{(touching.x - 50 + 19) / 0.84 + 50, (touching.y - hop - 95) / 0.84 + 95};
    body.arm(Side::right, {88, mix(78, 66, reach)}, mix(Point{78, 84}, pushing, reach));
}

} // namespace mimkins::scene
