#include "Pet/WaitingKit.h"
#include "Pet/WaitingScenes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mimkins::scene {

namespace {

/// The seconds for which a pet calls in one way.
constexpr double callLength = 3.2;

/// The right hand keeps below the bubble.
constexpr double bubbleFloor = 30;

/// Strokes beside the foot that taps, seen while it strikes.
void tapMarks(const PetPainter& pet) {
    Path marks;
    marks.addLines(std::array<Point, 2>{{{73.5, 81.5}, {77.5, 75.5}}});
    marks.addLines(std::array<Point, 2>{{{77, 85}, {84, 81.5}}});
    marks.addLines(std::array<Point, 2>{{{77.5, 89.5}, {85.5, 89.5}}});
    const PetPainter struck = pet.faded(-std::sin(18 * pet.t));
    struck.stroke(marks, Color::black(0.5), 4);
    struck.stroke(marks, Color{1, 0.86, 0.4}, 2.2);
}

/// A cloud of breath that leaves the mouth, from 0 to 1.
void sighCloud(const PetPainter& pet, double share) {
    const PetPainter cloud = pet.faded(0.9 * during(share, 0, 1, 0.3));
    const Point at = mix({53, pet.mouthLine() + 2}, {70, pet.mouthLine() + 9}, share);
    const double size = 1.5 + 3 * share;
    Path puffs;
    const auto add = [&](double x, double y, double radius) {
        puffs.addEllipse({at.x + x - radius, at.y + y - radius, 2 * radius, 2 * radius});
    };
    add(0, 0, size);
    add(size, -0.6 * size, 0.8 * size);
    add(1.4 * size, 0.5 * size, 0.7 * size);
    cloud.stroke(puffs, Color::black(0.4), 2.4);
    cloud.fill(puffs, Color::white());
}

/// An arm between hanging (0) and the hand on the hip (1).
void armToHip(const PetPainter& pet, Side side, double share) {
    const Point root = pet.shoulder(side);
    const double out = -inward(side);
    const Point control{root.x + mix(6, 12, share) * out, pet.bob + mix(64, 63, share)};
    pet.arm(side, control, {root.x + mix(3, -2, share) * out, pet.bob + mix(73, 68, share)});
}

} // namespace

void bothArmsWave(PetPainter& pet) {
    const double phase = within(pet.t, callLength);
    const double pause = during(phase, 2.1, 3.2, 0.25);
    const double swing = std::sin(9 * pet.t) * (1 - pause);
    pet.bob = -1.5 * (1 - std::cos(9 * pet.t)) * (1 - pause);
    pet.shadow();
    pet.legs(Legs::still);
    pet.shiftX = 2 * std::sin(9 * pet.t - 0.7) * (1 - pause);
    pet.torso();
    if (pause > 0.5) {
        pet.eyes(Eyes::look(0, -1));
        brows(pet, 1.5, -2);
        pet.mouth(Mouth::flat);
    } else {
        pet.eyes(Eyes::wide());
        pet.mouth(Mouth::open);
    }
    for (const Side side : {Side::left, Side::right}) {
        const Point root = pet.shoulder(side);
        const double out = -inward(side);
        const double y = pet.bob + 33 + (side == Side::left ? -8 : 0);
        pet.arm(side, {root.x + 11 * out, pet.bob + 47}, {root.x + 6 * swing + 12 * out, y});
    }
}

void impatient(PetPainter& pet) {
    const double phase = within(pet.t, callLength);
    const double rolling = during(phase, 0.9, 2.1, 0.3);
    pet.squash = 3 * during(phase, 2.3, 3.1, 0.25) - 2 * during(phase, 1.8, 2.4, 0.3);
    pet.shadow();
    pet.legs(Legs::tapping);
    tapMarks(pet);
    pet.shiftX = 0.8 * std::sin(2 * pi * phase / callLength);
    pet.torso();
    const double angle = 2 * pi * between(phase, 0.9, 2.1);
    pet.eyes(
        Eyes::look(-2.5 * std::cos(angle) * (1 - rolling) + 3.5 * std::sin(angle) * rolling, -3.5 * rolling)
    );
    brows(pet, -0.5 + 2 * rolling, 2.4 - 2.4 * rolling);
    pet.mouth(phase > 2.3 && phase < 3 ? Mouth::whistle : Mouth::flat);
    pet.armsOnHips();
    if (phase > 2.3 && phase < 3.15) {
        sighCloud(pet, (phase - 2.3) / 0.85);
    }
}

void jumpWave(PetPainter& pet) {
    const double phase = fraction(pet.t / (callLength / 3));
    const Hop now = hop(phase);
    leap(pet, now, 14);
    pet.shadow();
    hopLegs(pet, now);
    pet.torso();
    pet.eyes(Eyes::wide());
    pet.mouth(now.height > 0.05 ? Mouth::open : Mouth::flat);
    const double raised = during(phase, 0.04, 1, 0.4);
    const double wave = 2.5 * std::sin(12 * pet.t) * now.height;
    const double leftY = pet.bob + mix(72, 24, raised);
    const double rightY = std::max(pet.bob + mix(72, 30, raised), bubbleFloor);
    pet.arm(Side::left, {8, pet.bob + 52}, {mix(17, 9, raised) + wave, leftY});
    pet.arm(Side::right, {92, pet.bob + 54}, {mix(83, 92, raised) + wave, rightY});
}

namespace {

constexpr double poseLength = 6;

/// How far the raised hand has sunk in a moment of weariness, 0 to 1; it starts up again.
double weariness(double phase) {
    return between(phase, 0.8, 4.3) - between(phase, 4.4, 4.9);
}

void eagerFace(const PetPainter& pet) {
    pet.eyes(Eyes::wide());
    pet.mouth(Mouth::open);
}

void wearyFace(const PetPainter& pet, double phase) {
    if (phase > 4.4) {
        eagerFace(pet);
    } else if (phase > 2.4) {
        sleepyEyes(pet, 0);
        pet.mouth(Mouth::flat);
    } else {
        pet.eyes(Eyes::look(0, 0));
        pet.mouth(Mouth::flat);
    }
}

} // namespace

void handUp(PetPainter& pet) {
    enum Pose { asking, eager, weary };

    const SlotChoice pose = pet.choose(3, poseLength, 31);
    const double settled = during(pose.phase, 0, poseLength, 0.5);
    const double sunk = pose.index == weary ? weariness(pose.phase) : 0;
    const double tiptoe = pose.index == eager ? settled : 0;
    pet.bob = -(1.2 + 1.2 * std::sin(6 * pet.t)) * (0.4 + 1.4 * tiptoe) * (1 - sunk);
    pet.squash = 3 * sunk;
    pet.shadow();
    pet.legs(Legs::still);
    pet.shiftX = 1.2 * std::sin(4 * pet.t) * (1 - sunk);
    pet.torso();
    if (pose.index == eager) {
        eagerFace(pet);
    } else if (pose.index == weary) {
        wearyFace(pet, pose.phase);
    } else {
        pet.eyes(Eyes::look(pet.lookAround(), -0.5));
        brows(pet, 1, -1.5);
        pet.mouth(Mouth::small);
    }
    armToHip(pet, Side::right, settled * (pose.index == weary ? 0.0 : 1.0));
    const double sway = 2.5 * std::sin(4 * pet.t) * (1 + 0.6 * tiptoe) * (1 - sunk);
    const Point up{14 + sway, pet.bob + 15 - 1.5 * std::sin(6 * pet.t)};
    const Point hand = mix(up, {8, pet.bob + 52}, sunk);
    finger(pet, hand, sway * 0.04 - 1.1 * sunk);
    pet.arm(Side::left, mix({13, pet.bob + 44}, {9, pet.bob + 66}, sunk), hand);
    pet.bubble("?", Color::named(NamedColor::pink), Pulse::beating);
}

} // namespace mimkins::scene
