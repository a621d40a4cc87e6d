#include "Pet/WaitingKit.h"
#include "Pet/WaitingScenes.h"

#include <cmath>
#include <cstdint>

namespace mimkins::scene {

namespace {

constexpr double postX = 81;

/// A board on a post, with a plan of three steps.
void sign(const PetPainter& pet, double lift, double tilt) {
    constexpr Color green{0.13, 0.6, 0.3};
    const PetPainter held = pet.turned({postX, 70}, tilt).moved(0, -lift);
    held.line({{postX, 30}, {postX, 88}}, brown, 3.6);
    held.rounded(62, 5, 34, 30, 3.5, brown);
    held.rounded(64, 7, 30, 26, 2, pet.colors.paper);
    for (const double y : {12.5, 20.0, 27.5}) {
        held.disc({69, y}, 2.4, green);
        held.line({{75.5, y}, {y > 27 ? 84.0 : 89.5, y}}, green, 3.2);
    }
}

void marcher(PetPainter& pet, double phase) {
    constexpr double trip = 3;
    const double angle = 2 * pi * within(phase, trip) / trip;
    pet.bob = -0.8 + 0.8 * std::cos(18 * pet.t);
    pet.shiftX = -4.5 * (1 - std::cos(angle));
    pet.shadow();
    pet.legs(Legs::walking);
    pet.torso();
    pet.eyes(Eyes::look(-3 * std::sin(angle), 0));
    brows(pet, 0, 1.6);
    pet.mouth(Mouth::open);
    pet.armDown(Side::left, 4 * std::sin(9 * pet.t));
}

void bearer(PetPainter& pet, double phase) {
    pet.bob = -0.6 - 0.6 * std::sin(3 * pet.t);
    pet.shadow();
    pet.legs(Legs::still);
    pet.shiftX = 0.8 * std::sin(1.3 * pet.t);
    pet.torso();
    const double glance = during(phase, 2.2, 3.8, 0.3);
    pet.eyes(Eyes::look(3 * glance, -2.5 * glance));
    pet.mouth(Mouth::smile);
    const double waving = during(phase, 3.9, 5.7, 0.35);
    const Point root = pet.shoulder(Side::left);
    const Point waved{root.x - 12 + 5 * std::sin(9 * pet.t), pet.bob + 30};
    const Point control = mix({root.x - 12, pet.bob + 63}, {root.x - 10, pet.bob + 46}, waving);
    pet.arm(Side::left, control, mix({root.x + 2, pet.bob + 68}, waved, waving));
}

} // namespace

void planSign(PetPainter& pet, Sign manner) {
    constexpr double slot = 6;
    const double phase = within(pet.t, slot);
    const double settled = during(phase, 0, slot, 0.4);
    double lift = 0;
    if (manner == Sign::walking) {
        marcher(pet, phase);
        lift = (2.5 + 1.2 * std::sin(9 * pet.t)) * settled;
    } else {
        bearer(pet, phase);
        lift = (1.5 + 1.5 * std::sin(3 * pet.t)) * settled;
    }
    sign(pet, lift, 0.035 * std::sin(1.3 * pet.t));
    pet.arm(Side::right, {pet.shoulder(Side::right).x + 2, 70 + pet.bob}, {postX, 60 - lift});
}

namespace {

constexpr double parcelWidth = 34;
constexpr double parcelHeight = 21;

void bow(const PetPainter& pet, Point knot, double flutter) {
    constexpr Color yellow{1, 0.83, 0.2};
    constexpr Color shade{0.86, 0.6, 0.08};
    for (const double side : {-1.0, 1.0}) {
        const PetPainter loop = pet.turned(knot, side * (0.35 + flutter));
        loop.ellipse(knot.x + (side > 0 ? 0.0 : -10.0), knot.y - 4.5, 10, 7, shade);
        loop.ellipse(knot.x + (side > 0 ? 1.2 : -9.0), knot.y - 3.6, 7.8, 5, yellow);
    }
    pet.disc(knot, 2.8, yellow);
}

void parcel(const PetPainter& pet, Point center, double flutter) {
    const double left = center.x - parcelWidth / 2;
    const double top = center.y - parcelHeight / 2;
    constexpr Color yellow{1, 0.83, 0.2};
    pet.rounded(left, top, parcelWidth, parcelHeight, 3, Color::black(0.35));
    pet.rounded(left + 0.8, top + 0.8, parcelWidth - 1.6, parcelHeight - 1.6, 2.4, pet.colors.accent);
    pet.rounded(left + 0.8, top + 0.8, parcelWidth - 1.6, 5.5, 2.4, Color::white(0.3));
    pet.rounded(center.x - 2.8, top + 0.8, 5.6, parcelHeight - 1.6, 0, yellow);
    bow(pet, {center.x, top}, flutter);
}

/// 0 with the parcel in front, 1 with the parcel overhead, and for a moment between them.
double parcelRaised(const PetPainter& pet) {
    constexpr double every = 7.5;
    constexpr std::uint64_t salt = 32;
    const SlotChoice now = pet.choose(2, every, salt);
    PetFrame before = pet;
    before.t = pet.t - now.phase - every / 2;
    return mix(before.choose(2, every, salt).index, now.index, between(now.phase, 0, 0.9));
}

} // namespace

void presentParcel(PetPainter& pet) {
    const double raised = parcelRaised(pet);
    const double offer = during(within(pet.t, 2.5), 0.4, 1.7, 0.35);
    const double heave = 4 * raised * (1 - raised);
    pet.bob = -0.7 - 0.7 * std::sin(6 * pet.t) + 1.5 * raised - 2 * offer * (1 - raised);
    pet.squash = 2.5 * raised + 2 * heave;
    pet.shadow();
    pet.legs(Legs::still);
    pet.shiftX = 1.2 * std::sin(3 * pet.t);
    pet.torso();
    pet.eyes(offer > 0.5 ? Eyes::happy() : Eyes::look(0, mix(2, -2, raised)));
    if (offer > 0.5 && raised > 0.5) {
        grin(pet);
    } else {
        pet.mouth(Mouth::smile);
    }
    const double head = pet.bob + 26 + pet.squash;
    const Point center{50, mix(79.5 + pet.bob, head - parcelHeight / 2 + 1, raised)};
    const double size = 1 + 0.1 * offer * (1 - raised);
    parcel(pet.scaled({50, 90}, size, size), center, 0.12 * std::sin(6 * pet.t));
    for (const Side side : {Side::left, Side::right}) {
        const double out = -inward(side);
        const Point hand{50 + out * (parcelWidth / 2 + 0.5) * size, center.y + mix(1, 5, raised)};
        pet.arm(side, {50 + out * mix(36, 44, raised), pet.bob + mix(76, 38, raised)}, hand);
    }
}

} // namespace mimkins::scene
