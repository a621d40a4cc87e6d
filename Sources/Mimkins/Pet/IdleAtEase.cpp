#include "Pet/IdleKit.h"
#include "Pet/IdleScenes.h"
#include "Pet/Tempo.h"

#include <cmath>

namespace mimkins::scene {

using namespace idle;
using tempo::present;

void lookAroundScene(PetPainter& pet) {
    pet.bob = breath(pet);
    pet.squash = -0.6 * std::sin(1.7 * pet.t + 0.6);
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    const double swing = 0.8 * std::sin(1.7 * pet.t - 0.7);
    pet.armDown(Side::left, -swing);
    pet.armDown(Side::right, swing);
}

void hello(PetPainter& pet) {
    pet.bob = -1.4 + 1.4 * std::sin(4 * pet.t);
    pet.squash = -1.2 * std::sin(4 * pet.t + 0.8);
    pet.shiftX = -3 + 1.2 * std::sin(2 * pet.t);
    const bool beaming = std::sin(2 * pet.t) > 0.3;
    pet.standing(Legs::still, beaming ? Eyes::happy() : Eyes::look(0, -0.5), Mouth::smile);
    cheeks(pet, 1);
    pet.armDown(Side::left, 1.5 * std::sin(4 * pet.t));
    pet.waveArm(Side::right, 8);
}

void whistle(PetPainter& pet, Posture posture) {
    const bool sits = posture == Posture::sitting;
    const double sway = std::sin(1.2 * pet.t);
    pet.bob = (sits ? 9 : 0) - 1.5 * std::fabs(std::sin(2.4 * pet.t));
    pet.squash = 0.8 * std::cos(4.8 * pet.t);
    pet.shiftX = 3 * sway;
    const Eyes eyes = sway > 0 ? Eyes::look(2.5 * sway, -2.5) : Eyes::happy();
    pet.standing(sits ? Legs::spread : Legs::still, eyes, Mouth::none);
    cheeks(pet, 1);
    pet.scaled({50, pet.mouthLine() + 0.5}, 1.7, 1.7).mouth(Mouth::whistle);
    pet.armsOnHips();
    pet.notes(70, 40);
}

namespace {

/// Up on the toes with the hands above the head, from 0 to 1.
double stretchedBy(double phase) {
    return present(phase, {0.7, 1.9, 4.0, 5.0});
}

void stretchingFace(const PetPainter& pet, double part, double phase) {
    if (part > 0.55 && phase < 4.2) {
        pet.eyes(Eyes::closed());
        pet.scaled({50, pet.mouthLine() + 2}, 1.2, part).mouth(Mouth::open);
    } else if (phase > 4.2 && phase < 5.6) {
        pet.eyes(Eyes::happy());
        pet.mouth(Mouth::smile);
    } else {
        pet.eyes(Eyes::look(0, -2 * part));
        pet.mouth(Mouth::smile);
    }
}

/// From hanging down out to the side and up over the head.
ArmPose stretchingArm(const PetPainter& pet, Side side, double part, double lean) {
    const ArmPose rest = restingArm(pet, side);
    const Point overHead{50 - 4.5 * inward(side) + lean, pet.bob + 12};
    const Point hand = tempo::onCurve(rest.hand, mirrored(side, {-8, 34}), overHead, part);
    const Point out{4, pet.bob + 26};
    return {tempo::mix(rest.control, mirrored(side, out), part), hand};
}

} // namespace

void stretch(PetPainter& pet, double phase) {
    const double crouch = present(phase, {0.1, 0.5, 0.6, 1.2}) + present(phase, {4.6, 5.0, 5.0, 5.8});
    const double part = stretchedBy(phase);
    const double strain = part * std::sin(26 * phase);
    pet.bob = breath(pet) + 2 * crouch - 5 * part;
    pet.squash = 3.5 * crouch - 5 * part + 0.35 * strain;
    const double lean = part * std::sin(3 * (phase - 1.6));
    pet.shiftX = 4 * lean;
    pet.shadow();
    pet.legs(Legs::still);
    pet.torso();
    stretchingFace(pet, part, phase);
    drawArm(pet, Side::left, stretchingArm(pet, Side::left, part, 8 * lean));
    drawArm(pet, Side::right, stretchingArm(pet, Side::right, part, 8 * lean));
}

} // namespace mimkins::scene
