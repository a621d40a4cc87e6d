#include "Pet/AwayMotion.h"
#include "Pet/AwayScenes.h"

#include <numbers>

namespace mimkins::scene {

using namespace away;

namespace {

constexpr double waterLine = 83;

void jetty(const PetPainter& pet) {
    pet.rounded(8, 76, 6, 18, 2, darkBrown);
    pet.rounded(46, 76, 6, 18, 2, darkBrown);
    pet.rounded(2, 74, 57, 7, 2.5, brown);
    pet.rounded(4, 75, 53, 2, 1, lightWood);
}

void danglingLegs(const PetPainter& pet) {
    for (const double side : {-1.0, 1.0}) {
        const double swing = 2 * std::sin(1.1 * pet.t + side);
        const double x = 30 + 8 * side;
        pet.line({{x, 74}, {x + swing, 85}}, pet.colors.limb, 5);
        pet.ellipse(x + swing - 4.5 + side, 83, 9, 5.5, pet.colors.limb);
    }
}

void fish(const PetPainter& pet) {
    const Color scales{1, 0.6, 0.25};
    const double way = 0.5 * pet.t;
    const Point at{76 + 13 * std::sin(way), 91 + 0.8 * std::sin(1.3 * pet.t)};
    const double facing = std::clamp(3 * std::cos(way), -1.0, 1.0);
    const PetPainter swimming = pet.moved(at.x, at.y).scaled({0, 0}, facing, 1);
    const double wag = 1.2 * std::sin(4 * pet.t);
    swimming.polygon({{-3, 0}, {-9, -3.4 + wag}, {-9, 3.4 + wag}}, scales);
    swimming.ellipse(-6, -3.2, 12, 6.4, scales);
    swimming.disc({3, -0.8}, 0.9, pet.colors.ink);
}

void water(const PetPainter& pet) {
    const Color shallow{0.42, 0.74, 0.95, 0.88};
    const Color deep{0.16, 0.45, 0.78, 0.94};
    pet.rounded(1, waterLine, 98, 14, 7, LinearGradient{{shallow, deep}, {50, waterLine}, {50, 97}});
    for (const double i : {0.0, 1.0}) {
        const double x = 12 + 18 * i + 4 * std::sin(0.6 * pet.t + 2 * i);
        pet.line({{x, 89 + 3 * i}, {x + 8, 89 + 3 * i}}, Color::white(0.5), 1.3);
    }
}

void ripples(const PetPainter& pet, double x) {
    for (const double i : {0.0, 0.5}) {
        const double f = fraction(0.35 * pet.t + i);
        pet.faded(std::sin(std::numbers::pi * f))
            .stroke(
                Path::ellipse({x - 3 - 8 * f, waterLine + 1.5 - 2 * f, 6 + 16 * f, 2 + 4 * f}),
                Color::white(0.9), 1
            );
    }
}

void bobber(const PetPainter& pet, Point at) {
    pet.disc(at, 4.6, Color::white());
    Path cap;
    cap.addArc(at, 4.6, std::numbers::pi, 2 * std::numbers::pi);
    cap.closeSubpath();
    pet.fill(cap, Color{0.92, 0.2, 0.2});
    pet.line({{at.x, at.y - 4}, {at.x, at.y - 7}}, pet.colors.ink, 1.4);
}

void strawHat(const PetPainter& pet) {
    const Color straw{0.93, 0.78, 0.44};
    const double top = pet.bob + pet.squash;
    pet.rounded(33, top + 8, 34, 20, 9, straw);
    pet.rounded(33, top + 19, 34, 6, 0, pet.colors.accent);
    pet.ellipse(15, top + 22, 70, 9, Color{0.86, 0.68, 0.34});
    pet.ellipse(17, top + 22, 66, 6.5, straw);
}

void rod(const PetPainter& pet, Point tip, Point end) {
    pet.curve(tip, {tip.x + 1, (tip.y + end.y) / 2}, end, Color::grey(0.62), 1.1);
    pet.line({{55, 74}, {64, 61.5}}, darkBrown, 4.2);
    pet.curve({60, 67}, {77, 43}, tip, brown, 2.4);
}

} // namespace

void fishing(PetPainter& pet) {
    const double bite = between(std::sin(0.7 * pet.t), 0.86, 0.98);
    const double tug = bite * std::sin(16 * pet.t);
    const Point floating{87, waterLine - 1 + 1.2 * std::sin(1.6 * pet.t) + 3 * bite + 1.2 * tug};
    const Point tip{88, 22 + 6 * bite + 1.5 * tug + 0.8 * std::sin(1.6 * pet.t)};
    pet.squash = 1 + 0.8 * std::sin(1.2 * pet.t);
    jetty(pet);
    danglingLegs(pet);
    water(pet);
    fish(pet);
    const PetPainter body = pet.moved(-19, -1).scaled({50, 76}, 0.8, 0.8);
    body.torso();
    const bool awake = bite > 0.3;
    body.eyes(awake ? Eyes::wide() : Eyes::look(2.5, 2));
    body.mouth(awake ? Mouth::open : Mouth::smile);
    strawHat(body);
    ripples(pet, floating.x);
    rod(pet, tip, {floating.x, floating.y - 7});
    bobber(pet, floating);
    body.arm(Side::right, {84, 72}, {87, 65 + tug});
    body.arm(Side::left, {16, 66}, {32, 74});
}

} // namespace mimkins::scene
