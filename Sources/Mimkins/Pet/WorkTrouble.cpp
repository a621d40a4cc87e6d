#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <cmath>
#include <numbers>

namespace mimkins::scene {

namespace {

using namespace work;

void slidingDrop(const PetPainter& pet, double x, double y, double f) {
    pet.faded(std::sin(std::numbers::pi * f)).sweatDrop(x, y + 12 * f * f);
}

/// A hand as broad as the face, seen from its back.
void broadHand(const PetPainter& pet, Point center) {
    const Color gap = pet.colors.limb;
    const PetPainter turned = pet.turned(center, -0.12);
    turned.rounded(center.x - 17, center.y - 9, 34, 18, 8, pet.colors.hand);
    turned.stroke(Path::roundedRect({center.x - 17, center.y - 9, 34, 18}, 8), gap, 1.6);
    for (const double row : {-4.2, 0.2, 4.6}) {
        turned.line({{center.x - 16, center.y + row}, {center.x - 1, center.y + row}}, gap, 1.5);
    }
}

} // namespace

void scratchHead(PetPainter& pet) {
    const double c = std::fmod(pet.t, 1.1) / 1.1;
    const double busy = gently(c, 0, 0.15) * (1 - gently(c, 0.62, 0.85));
    const double scratch = std::sin(14 * pet.t) * busy;
    pet.bob = 1.5 + 0.4 * scratch;
    pet.squash = 1.5 * busy;
    pet.standing(Legs::still, Eyes::look(-2 + 0.8 * busy, -1.5), Mouth::wavy);
    pet.line({{36, pet.eyeLine() - 4}, {44, pet.eyeLine() - 6.5}}, pet.colors.ink, 2.2);
    pet.line({{56, pet.eyeLine() - 7 + busy}, {64, pet.eyeLine() - 5 + busy}}, pet.colors.ink, 2.2);
    pet.armsOnHipsLeftOnly();
    slidingDrop(pet, 28, pet.bob + 33, cycleOf(pet.t, 2.2));
    const Point hand{66 + 3.2 * scratch, pet.bob + pet.squash + 25 - 2 * (1 - busy)};
    pet.arm(Side::right, {104, pet.bob + 26}, hand);
    for (const double x : {-3.0, 0.0, 3.0}) {
        pet.faded(busy).line(
            {{hand.x + x - 1, hand.y - 6}, {hand.x + 1.5 * x - 1.5, hand.y - 10}}, pet.colors.limb, 1.8
        );
    }
}

void facepalm(PetPainter& pet) {
    const double c = std::fmod(pet.t, 2.5) / 2.5;
    const double away = gently(c, 0.86, 0.97) * (1 - falling(c, 0.97, 1));
    const double hit = 1 - gently(c, 0, 0.22);
    const double shake = std::sin(2 * std::numbers::pi * 3 * gently(c, 0.25, 0.8));
    pet.shiftX = 2 * shake;
    pet.squash = 2.5 + 2 * hit * (1 - away);
    pet.bob = 2 + 0.8 * std::sin(1.5 * pet.t);
    pet.shadow();
    pet.legs(Legs::still);
    pet.torso();
    const double y = pet.mouthLine() + 2;
    pet.curve({44, y + 2}, {50, y - 4}, {56, y + 2}, pet.colors.ink, 2.4);
    pet.armDown(Side::left);
    const Point palm{51, pet.eyeLine() + 5 - 2 * away};
    broadHand(pet, palm);
    pet.curve(pet.shoulder(Side::right), {98, pet.bob + 66}, {palm.x + 17, palm.y}, pet.colors.limb, 5.5);
}

} // namespace mimkins::scene
