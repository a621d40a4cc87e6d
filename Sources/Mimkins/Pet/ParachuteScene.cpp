#include "Pet/AwayMotion.h"
#include "Pet/AwayScenes.h"

#include <numbers>

namespace mimkins::scene {

using namespace away;

namespace {

constexpr double touchdown = 3.1;
constexpr double settled = 4.4;

struct Descent {
    double near = 0;   ///< 0 far off and small, 1 on the ground
    double height = 0; ///< above the ground, units
    double landed = 0; ///< 0 until the feet touch, 1 when all is put away
    double jolt = 0;   ///< of the landing
};

/// Falls fast at first, and most of the way floats so low that the canopy is in sight.
Descent descent(double time) {
    const double left = 1 - std::clamp(time / touchdown, 0.0, 1.0);
    const double since = std::max(time - touchdown, 0.0);
    return {
        1 - left * left, 4 * left + 76 * left * left * left, between(time, touchdown + 0.15, settled),
        std::sin(std::numbers::pi * std::clamp(since / 0.5, 0.0, 1.0))};
}

double bodyScale(const Descent& way) {
    return mix(0.66, 1, way.near);
}

/// Where a hand of the upright, scaled body is.
Point gripOf(Side side, const Descent& way) {
    return {50 - inward(side) * 38 * bodyScale(way), 95 - 62 * bodyScale(way)};
}

void canopy(const PetPainter& pet) {
    Path silk;
    silk.move({6, 26});
    silk.addCurve({94, 26}, {8, -7}, {92, -7});
    for (const double x : {72.0, 50.0, 28.0, 6.0}) {
        silk.addQuadCurve({x, 26}, {x + 11, 21});
    }
    silk.closeSubpath();
    pet.fill(silk, Color::white());
    Path middle;
    middle.move({28, 26});
    middle.addQuadCurve({50, 1.4}, {31, 6});
    middle.addQuadCurve({72, 26}, {69, 6});
    middle.addQuadCurve({50, 26}, {61, 21});
    middle.addQuadCurve({28, 26}, {39, 21});
    pet.fill(middle, Color{0.84, 0.89, 0.96});
    pet.stroke(middle, pet.colors.accent, 1.6);
    pet.stroke(silk, pet.colors.accent, 2.2);
    pet.line({{50, 2}, {50, 26}}, pet.colors.accent, 1.6);
}

void cords(const PetPainter& pet, const Descent& way, double rim) {
    Path all;
    for (const Side side : {Side::left, Side::right}) {
        const Point grip = gripOf(side, way);
        for (const double x : {44.0, 22.0}) {
            all.move({50 - inward(side) * x, rim});
            all.addLine(grip);
        }
    }
    pet.stroke(all, Color::grey(0.6), 1);
}

/// Of a canopy that comes down beside the pet once it stands.
void canopyAndCords(const PetPainter& pet, const Descent& way) {
    if (way.landed >= 1) {
        return;
    }
    const double up = -10 * way.near;
    const PetPainter silk =
        pet.faded(1 - way.landed).moved(0, 70 * way.landed).turned({50, 26}, 0.5 * way.landed);
    if (way.landed <= 0) {
        cords(silk, way, 26 + up);
    }
    canopy(silk.moved(0, up).scaled(
        {50, 26}, 1 - 0.2 * way.landed, (1 - 0.4 * way.near) * (1 - 0.6 * way.landed)
    ));
}

void dangle(const PetPainter& body, const Descent& way) {
    const double air = 1 - between(way.near, 0.9, 1);
    for (const double side : {-1.0, 1.0}) {
        const double x = 50 + 10 * side + 3 * air * std::sin(2.6 * body.t + 1.5 * side);
        const double y = 89 - 3 * air;
        body.leg({50 + 10 * side, body.bob + 74}, {x, y}, {x - 5 + 2 * side, y - 2});
    }
}

void holdOn(const PetPainter& body, Side side, double landed) {
    const double towards = inward(side);
    const Point root = body.shoulder(side);
    const Point control =
        mix(Point{root.x - 12 * towards, 50}, {root.x - 6 * towards, body.bob + 64}, landed);
    const Point hand = mix(Point{50 - 38 * towards, 33}, {root.x - 3 * towards, body.bob + 73}, landed);
    body.arm(side, control, hand);
}

void hanging(const PetPainter& pet, const Descent& way) {
    canopyAndCords(pet, way);
    PetPainter body = pet.scaled({50, 95}, bodyScale(way), bodyScale(way));
    body.squash = 6 * way.jolt;
    dangle(body, way);
    body.torso();
    const bool down = way.near >= 1;
    body.eyes(!down ? Eyes::look(0, 2.5) : way.landed < 0.9 ? Eyes::happy() : Eyes::look(0, 0));
    body.mouth(way.height > 0 ? Mouth::open : Mouth::smile);
    holdOn(body, Side::left, way.landed);
    holdOn(body, Side::right, way.landed);
}

void cloud(const PetPainter& pet, double x, double shift) {
    const double f = fraction(0.13 * pet.t + shift);
    const double y = 104 - 112 * f;
    Path puffs;
    puffs.addEllipse({x - 10, y - 3, 20, 8});
    puffs.addEllipse({x - 7, y - 8, 10, 11});
    puffs.addEllipse({x - 1, y - 6, 9, 9});
    pet.faded(std::sin(std::numbers::pi * f)).fill(puffs, mist);
}

} // namespace

void parachute(PetPainter& pet, std::optional<double> landingAt) {
    if (!landingAt) {
        cloud(pet, 14, 0);
        cloud(pet, 86, 0.55);
        hanging(pet.turned({50, 4}, 0.13 * std::sin(1.3 * pet.t)), {});
        return;
    }
    const Descent way = descent(*landingAt);
    pet.faded(way.near * way.near).shadow();
    const double swing = 0.16 * std::sin(2.4 * *landingAt) * (1 - between(way.near, 0.6, 1));
    hanging(pet.moved(0, -way.height).turned({50, 4}, swing), way);
}

} // namespace mimkins::scene
