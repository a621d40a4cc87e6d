#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <array>
#include <cmath>
#include <numbers>

namespace mimkins::scene {

namespace {

using namespace work;

void slidingDrop(const PetPainter& pet, double x, double y, double f) {
    pet.faded(std::sin(std::numbers::pi * f)).sweatDrop(x, y + 12 * f * f);
}

void fingers(const PetPainter& pet, Point palm, const Color& color, double width) {
    constexpr std::array<double, 4> tips{-20, -23, -22.5, -19};
    for (std::size_t index = 0; index < tips.size(); ++index) {
        const double y = palm.y - 7.8 + 5.2 * static_cast<double>(index);
        pet.line({{palm.x - 2, y}, {palm.x + tips[index], y}}, color, width);
    }
    pet.line({{palm.x + 3, palm.y - 7}, {palm.x - 3, palm.y - 14.5}}, color, width + 0.4);
}

/// A hand as broad as the face, seen from its back, the fingers to the left.
void broadHand(const PetPainter& pet, Point palm) {
    const PetPainter turned = pet.turned(palm, -0.1);
    fingers(turned, palm, pet.colors.limb, 6.6);
    turned.rounded(palm.x - 7, palm.y - 11.2, 21, 22.4, 8, pet.colors.limb);
    fingers(turned, palm, pet.colors.hand, 4.4);
    turned.rounded(palm.x - 6, palm.y - 10, 19, 20, 7, pet.colors.hand);
}

} // namespace

void scratchHead(PetPainter& pet) {
    const double c = std::fmod(pet.t, 1.1) / 1.1;
    const double busy = between(c, 0, 0.15) * (1 - between(c, 0.62, 0.85));
    const double scratch = std::sin(14 * pet.t) * busy;
    pet.bob = 1.5 + 0.4 * scratch;
    pet.squash = 1.5 * busy;
    pet.standing(Legs::still, Eyes::look(-2 + 0.8 * busy, -1.5), Mouth::wavy);
    pet.line({{36, pet.eyeLine() - 4}, {44, pet.eyeLine() - 6.5}}, pet.colors.ink, 2.2);
    pet.line({{56, pet.eyeLine() - 7 + busy}, {64, pet.eyeLine() - 5 + busy}}, pet.colors.ink, 2.2);
    pet.armsOnHipsLeftOnly();
    slidingDrop(pet, 16.5, pet.bob + 32, cycleOf(pet.t, 2.2));
    const Point hand{66 + 3.2 * scratch, pet.bob + pet.squash + 25 - 2 * (1 - busy)};
    pet.arm(Side::right, {104, pet.bob + 26}, hand);
    for (const double x : {-3.0, 0.0, 3.0}) {
        pet.faded(busy).line(
            {{hand.x + x - 1, hand.y - 6}, {hand.x + 1.5 * x - 1.5, hand.y - 10}}, pet.colors.limb, 2.2
        );
    }
}

void facepalm(PetPainter& pet) {
    const double c = std::fmod(pet.t, 2.5) / 2.5;
    const double away = between(c, 0.86, 0.97) * (1 - falling(c, 0.97, 1));
    const double hit = 1 - between(c, 0, 0.22);
    const double shake = std::sin(2 * std::numbers::pi * 3 * between(c, 0.25, 0.8));
    pet.shiftX = 2 * shake;
    pet.squash = 2.5 + 2 * hit * (1 - away);
    pet.bob = 2 + 0.8 * std::sin(1.5 * pet.t);
    pet.shadow();
    pet.legs(Legs::still);
    pet.torso();
    const double y = pet.mouthLine() + 3;
    pet.curve({44, y + 2}, {50, y - 4}, {56, y + 2}, pet.colors.ink, 2.4);
    pet.armDown(Side::left);
    const Point palm{57, pet.eyeLine() + 5 - 2 * away};
    broadHand(pet, palm);
    Path folded;
    folded.move({76, pet.bob + 58});
    folded.addCurve({palm.x + 12, palm.y + 1}, {91, pet.bob + 73}, {96, pet.bob + 46});
    pet.stroke(folded, pet.colors.limb, 5.5);
}

} // namespace mimkins::scene
