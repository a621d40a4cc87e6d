#include "Pet/IdleKit.h"
#include "Pet/IdleScenes.h"
#include "Pet/Tempo.h"

#include <cmath>

namespace mimkins::scene {

using namespace idle;
using tempo::present;

namespace {

/// Across the chest, so that the wrist is before the eyes.
ArmPose watchArm(const PetPainter& pet, double part) {
    return mix(restingArm(pet, Side::left), {{10, pet.bob + 80}, {57, pet.bob + 70}}, part);
}

Point wristOf(const PetPainter& pet, const ArmPose& pose) {
    return tempo::onCurve(pet.shoulder(Side::left), pose.control, pose.hand, 0.8);
}

/// A wrist watch whose strap runs with the arm's width; `size` from 0 to 1.
void watch(const PetPainter& pet, Point center, double size) {
    const PetPainter worn = pet.scaled(center, size, size);
    worn.line({{center.x - 2, center.y - 8}, {center.x + 2, center.y + 8}}, pet.colors.ink, 6);
    worn.disc(center, 9, pet.colors.ink);
    worn.disc(center, 7.4, Color::white());
    const double minute = 2.4 * pet.t;
    const double hour = 0.2 * pet.t + 4;
    const auto hand = [&](double angle, double length, double width) {
        worn.line(
            {center, {center.x + length * std::sin(angle), center.y - length * std::cos(angle)}},
            Color{0.9, 0.25, 0.2}, width
        );
    };
    hand(minute, 5.4, 1.5);
    hand(hour, 3.4, 2.1);
}

/// Looks for somebody, at the watch, at the sky, at the watch again.
Eyes waitingEyes(const PetPainter& pet, double phase) {
    if (phase > 1.7 && phase < 3.5) {
        return Eyes::look(-2, 4.5);
    }
    if (phase >= 3.5 && phase < 4.3) {
        return Eyes::look(3.5, -2.5);
    }
    if (phase >= 4.3 && phase < 5.3) {
        return Eyes::look(-2, 4.5);
    }
    return Eyes::look(pet.lookAround(), 0);
}

} // namespace

void checkWatch(PetPainter& pet, double phase) {
    const double part = present(phase, {1.0, 1.9, 5.3, 5.9});
    const double sigh = present(phase, {3.4, 3.8, 4.0, 4.6});
    pet.bob = breath(pet) - 1.5 * sigh;
    pet.squash = 1.5 * part - 3.5 * sigh;
    pet.shadow();
    pet.legs(part > 0.5 ? Legs::tapping : Legs::still);
    pet.torso();
    pet.eyes(waitingEyes(pet, phase));
    pet.mouth(part > 0.5 ? Mouth::flat : Mouth::smile);
    const ArmPose hip{{88, pet.bob + 63}, {74, pet.bob + 68}};
    drawArm(pet, Side::right, mix(restingArm(pet, Side::right), hip, part));
    const ArmPose raised = watchArm(pet, part);
    drawArm(pet, Side::left, raised);
    watch(pet, wristOf(pet, raised), part);
}

} // namespace mimkins::scene
