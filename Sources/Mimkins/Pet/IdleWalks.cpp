#include "Pet/IdleKit.h"
#include "Pet/IdleScenes.h"
#include "Pet/Tempo.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mimkins::scene {

using namespace idle;
using tempo::between;
using tempo::pi;
using tempo::present;

namespace {

/// The feet kick up a little dust behind them; `heading` from -1 to 1 is the pace to the right.
void heelDust(const PetPainter& pet, double heading) {
    const double behind = heading < 0 ? 1 : -1;
    for (const double foot : {0.0, 0.5}) {
        const double f = fraction(9 * pet.t / (2 * pi) + foot);
        const Point at{50 + behind * (17 + 9 * f), 88.5 - 4 * f};
        pet.faded(0.85 * std::fabs(heading) * std::sin(pi * f)).disc(at, 2 + 2.2 * f, Color::grey(0.66));
    }
}

} // namespace

void stepSideTo(PetPainter& pet, Aside aside) {
    const bool waves = aside == Aside::waving;
    const double side = std::sin(1.6 * pet.t);
    const double step = std::sin(9 * pet.t);
    pet.shiftX = waves ? 5 * side - 4 : 10 * side;
    pet.bob = -1.8 * std::fabs(step);
    pet.squash = 0.8 * std::cos(18 * pet.t);
    const double heading = std::cos(1.6 * pet.t);
    heelDust(pet, heading);
    pet.standing(Legs::walking, Eyes::look((waves ? 2 : 5) * heading, 0), Mouth::smile);
    const double swing = waves ? 5 : 7;
    pet.armDown(Side::left, swing * step);
    if (waves) {
        cheeks(pet, 1);
        pet.waveArm(Side::right, 9);
    } else {
        pet.armDown(Side::right, swing * step);
    }
}

namespace {

/// One arm up to the side, the other on its way; `beat` from -1 to 1 tells which.
void dancingArm(const PetPainter& pet, Side side, double beat) {
    const double up = (1 - inward(side) * beat) / 2;
    const double wiggle = 2 * std::sin(6 * pet.t);
    const Point low{8, pet.bob + 66 + wiggle};
    const Point high{13, pet.bob + 30 + wiggle};
    const Point bend{6, pet.bob + tempo::mix(62, 52, up)};
    drawArm(pet, side, {mirrored(side, bend), mirrored(side, tempo::mix(low, high, up))});
}

} // namespace

void dance(PetPainter& pet) {
    const double beat = std::sin(3 * pet.t);
    const double bounce = std::fabs(std::cos(3 * pet.t));
    pet.shiftX = 6 * beat;
    pet.bob = -4 * bounce;
    pet.squash = 2.5 - 4.5 * bounce;
    pet.standing(Legs::walking, Eyes::happy(), Mouth::none);
    cheeks(pet, 1);
    const double y = pet.mouthLine();
    pet.ellipse(45.5, y - 2.5, 9, 7.5, pet.colors.ink);
    pet.ellipse(47, y + 1.2, 6, 3, Color{0.95, 0.4, 0.42});
    dancingArm(pet, Side::left, beat);
    dancingArm(pet, Side::right, beat);
    pet.notes(72, 34);
}

namespace {

/// Arms and legs of a cartwheel lie on a wheel about this point.
constexpr Point hub{50, 56};

constexpr std::array<Point, 4> spokes{{{22, 22}, {78, 22}, {33, 88}, {67, 88}}};
constexpr std::array<Point, 4> corners{{{28, 32}, {72, 32}, {26, 72}, {74, 72}}};

/// How far the lowest point of the turned creature lies below the hub.
double reachBelow(double angle) {
    const auto depth = [&](Point point, double radius) {
        return (point.x - hub.x) * std::sin(angle) + (point.y - hub.y) * std::cos(angle) + radius;
    };
    double deepest = 0;
    for (const Point spoke : spokes) {
        deepest = std::max(deepest, depth(spoke, 3.5));
    }
    for (const Point corner : corners) {
        deepest = std::max(deepest, depth(corner, 6));
    }
    return deepest;
}

/// A spread leg, `part` of the way from standing.
void spreadingLeg(const PetPainter& pet, double side, double part) {
    const double x = 50 + 10 * side + 7 * side * part;
    pet.leg({50 + 10 * side, pet.bob + 74}, {x, 89}, {x - 5.5 + 2 * side, 87});
}

void wheelArm(const PetPainter& pet, Side side, double part) {
    const ArmPose up{mirrored(side, {12, pet.bob + 42}), mirrored(side, {22, pet.bob + 22})};
    drawArm(pet, side, mix(restingArm(pet, side), up, part));
}

double wheelShift(double phase) {
    return -12 * between(phase, 0, 1.1) + 24 * between(phase, 1.5, 3.3) - 12 * between(phase, 4.8, 5.9);
}

} // namespace

void cartwheel(PetPainter& pet, double phase) {
    const double turning = between(phase, 1.5, 3.3);
    const double angle = 2 * pi * turning;
    const bool walks = phase < 1.05 || phase > 4.85;
    const bool wheeling = turning > 0 && turning < 1;
    const double spread = present(phase, {1.1, 1.5, 4.3, 4.8});
    const double landing = tempo::tremor(phase - 3.3, 11, 4);
    pet.shiftX = wheelShift(phase);
    pet.squash = wheeling ? 0 : 3 * present(phase, {1.1, 1.3, 1.35, 1.5}) + 4 * landing;
    const double lift = wheeling ? std::max(reachBelow(angle) - 35.5, 0.0) : 0;
    pet.ellipse(50 - 21 + lift / 3, 91, 42 - 2 * lift / 3, 6, Color::black(0.22 - lift / 120));
    if (wheeling) {
        pet.gc = pet.moved(0, -lift).turned(hub, angle).gc;
    }
    if (walks) {
        pet.legs(Legs::walking);
    } else {
        spreadingLeg(pet, -1, spread);
        spreadingLeg(pet, 1, spread);
    }
    pet.torso();
    pet.eyes(wheeling ? Eyes::wide() : phase > 3.3 && phase < 4.8 ? Eyes::happy() : Eyes::look(2, 0));
    pet.mouth(wheeling ? Mouth::small : Mouth::smile);
    wheelArm(pet, Side::left, spread);
    wheelArm(pet, Side::right, spread);
}

} // namespace mimkins::scene
