#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace mimkins::scene {

namespace {

using namespace work;

constexpr double radiansPerDegree = 0.0175;

struct Blow {
    double swing = 1;   ///< 0 far back, 1 on the anvil
    double impact = 0;  ///< of the pet's own weight
    double sparks = -1; ///< how far they have flown, below 0 for none
};

Blow blowAt(double t) {
    constexpr double raised = 0.2;
    constexpr double fallsAt = 0.6;
    constexpr double restsAt = 0.75;
    const double c = std::fmod(t, 0.7) / 0.7;
    if (c < fallsAt) {
        const double lift = between(c, 0, fallsAt);
        return {mix(1, raised, lift), 0, -1};
    }
    if (c < restsAt) {
        const double swing = std::clamp((c - fallsAt) / (restsAt - fallsAt) * 0.8 + raised, 0.0, 1.0);
        return {swing, falling(c, 0.68, restsAt), -1};
    }
    const double rest = (c - restsAt) / (1 - restsAt);
    return {1, 1 - between(rest, 0.3, 1), rest};
}

void anvil(const PetPainter& pet) {
    const Color iron = Color::grey(0.36);
    pet.rounded(74, 84, 25, 7, 2, iron);
    pet.polygon({{80, 76}, {93, 76}, {96, 85}, {77, 85}}, iron);
    pet.rounded(73, 71, 27, 8, 3, iron);
    pet.rounded(75, 72, 23, 2, 1, Color::white(0.35));
    pet.rounded(77, 67.5, 19, 4.5, 2, Color::named(NamedColor::orange));
}

/// The handle begins at the hand; `angle` is 0 when it lies flat to the right.
void heavyHammer(const PetPainter& pet, Point hand, double angle) {
    const PetPainter turned = pet.turned(hand, angle);
    turned.rounded(hand.x - 6, hand.y - 2.2, 26, 4.4, 2.2, brown);
    turned.rounded(hand.x + 13, hand.y - 12, 14, 22, 3, Color::grey(0.55));
    turned.rounded(hand.x + 13, hand.y + 5.5, 14, 4.5, 2, Color::grey(0.85));
    turned.rounded(hand.x + 13, hand.y - 12, 14, 4.5, 2, Color::grey(0.85));
    turned.stroke(Path::roundedRect({hand.x + 13, hand.y - 12, 14, 22}, 3), edge, 1);
}

void sparks(const PetPainter& pet, Point from, double flown) {
    if (flown < 0) {
        return;
    }
    constexpr std::array<double, 6> angles{-2.95, -2.6, -2.2, -0.95, -0.55, -0.2};
    const PetPainter fading = pet.faded(1 - flown * flown);
    for (std::size_t index = 0; index < angles.size(); ++index) {
        const double near = 9 + (index < 3 ? 9 : 3) * flown;
        const double far = near + 6 * (1 - flown) + 1;
        const Point way{std::cos(angles[index]), std::sin(angles[index])};
        fading.line(
            {{from.x + near * way.x, from.y + near * way.y}, {from.x + far * way.x, from.y + far * way.y}},
            Color::named(index % 2 == 0 ? NamedColor::orange : NamedColor::yellow), 2.6
        );
    }
}

constexpr Point cogCenter{78.5, 57};
constexpr std::size_t cogTeeth = 8;

Path cogOutline(Point center, double inner, double outer, double angle) {
    constexpr double step = std::numbers::pi / 4; // eight teeth, 45 degrees apart
    std::array<Point, 4 * cogTeeth> points;
    for (std::size_t index = 0; index < points.size(); ++index) {
        constexpr std::array<double, 4> shifts{-0.29, -0.19, 0.19, 0.29};
        const std::size_t tooth = index / 4;
        const std::size_t corner = index % 4;
        const double at = angle + step * static_cast<double>(tooth) + shifts[corner];
        const double radius = corner == 0 || corner == 3 ? inner : outer;
        points[index] = {center.x + radius * std::cos(at), center.y + radius * std::sin(at)};
    }
    Path path;
    path.addLines(points);
    path.closeSubpath();
    return path;
}

void cog(const PetPainter& pet, double angle, Point crank) {
    pet.polygon({{74.5, 57}, {82.5, 57}, {88, 91}, {69, 91}}, steel);
    const Path outline = cogOutline(cogCenter, 15, 21, angle);
    pet.fill(outline, Color::white());
    pet.stroke(outline, edge, 1.4);
    pet.disc(cogCenter, 6.5, pet.colors.accent);
    pet.disc(cogCenter, 2.4, darkBrown);
    pet.line({cogCenter, crank}, darkBrown, 3);
}

/// How high the hand is over the button: 0 pressing, 1 far up.
double handHeight(double c) {
    return between(c, 0.1, 0.46) - falling(c, 0.56, 0.66);
}

void buttonOnBox(const PetPainter& pet, double pressed) {
    const double top = 59 + 6 * pressed;
    pet.rounded(68, top, 27, 20, 9, Color{0.72, 0.13, 0.15});
    pet.rounded(68, top, 27, 11, 5.5, Color::named(NamedColor::red));
    pet.rounded(72, top + 2, 10, 3, 1.5, Color::white(0.5));
    edgedBox(pet, {64, 70, 35, 21}, 4, Color::grey(0.32));
    pet.rounded(64, 70, 35, 4.5, 2.2, Color::grey(0.5));
    pet.polygon({{81.5, 76}, {90, 89}, {73, 89}}, Color::named(NamedColor::yellow));
    pet.line({{81.5, 80.5}, {81.5, 84}}, pet.colors.ink, 2);
    pet.disc({81.5, 87}, 1.1, pet.colors.ink);
}

void buttonRays(const PetPainter& pet, double c) {
    const double grown = between(c, 0.64, 0.84);
    const double left = 1 - between(c, 0.78, 1);
    if (grown <= 0 || left <= 0) {
        return;
    }
    const PetPainter fading = pet.faded(left);
    for (const double angle : {-2.6, -2.05, -1.1, -0.6}) {
        const Point way{std::cos(angle), std::sin(angle)};
        const double far = 18 + 6 * grown;
        fading.line(
            {{80.5 + 17 * way.x, 68 + 17 * way.y}, {80.5 + far * way.x, 68 + far * way.y}},
            Color::named(NamedColor::yellow), 2.8
        );
    }
}

} // namespace

void hammer(PetPainter& pet) {
    const Blow blow = blowAt(pet.t);
    pet.shiftX = -13;
    pet.bob = 1.5 * blow.impact - 1.5 * (1 - blow.swing);
    pet.squash = 1.5 * blow.impact;
    pet.standing(Legs::still, Eyes::look(2.5, 0), blow.impact > 0.3 ? Mouth::small : Mouth::flat);
    pet.armDown(Side::left, -2 * blow.swing);
    const PetPainter floor = unshifted(pet);
    anvil(floor);
    const Point hand{mix(70, 66, blow.swing), mix(38, 57, blow.swing)};
    heavyHammer(floor, hand, mix(-130, 4, blow.swing) * radiansPerDegree);
    sparks(floor, {86, 69}, blow.sparks);
    armTo(pet, Side::right, {mix(78, 66, blow.swing), mix(58, 72, blow.swing)}, hand);
}

void gear(PetPainter& pet) {
    // Each push takes the cog on, and between the pushes it all but stands.
    const double angle = 1.6 * pet.t - 0.5 * std::sin(3.2 * pet.t);
    const Point crank{cogCenter.x + 10 * std::cos(angle), cogCenter.y + 10 * std::sin(angle)};
    pet.shiftX = -12 + 1.6 * std::cos(angle);
    pet.bob = 0.8 + 1.2 * std::sin(angle);
    pet.standing(
        Legs::spread, Eyes::look(2.5 + 0.8 * std::cos(angle), 1.5 + 1.2 * std::sin(angle)), Mouth::wavy
    );
    pet.armsOnHipsLeftOnly();
    const double f = cycleOf(pet.t, 1.9);
    pet.faded(std::sin(std::numbers::pi * f)).sweatDrop(21 - 5 * f, pet.bob + 27 - 6 * f + 14 * f * f);
    cog(unshifted(pet), angle, crank);
    armTo(pet, Side::right, {68, 70}, crank);
}

void bigButton(PetPainter& pet) {
    const double c = std::fmod(pet.t, 1.1) / 1.1;
    const double height = handHeight(c);
    const double pressed = std::clamp(1 - 5 * height, 0.0, 1.0);
    const double joy = pressed * (1 - between(c, 0.02, 0.12) * (c < 0.5 ? 1.0 : 0.0));
    pet.shiftX = -12;
    pet.bob = 2 * pressed - 4 * height;
    pet.squash = 2.5 * pressed;
    pet.standing(
        Legs::still, joy > 0.5 ? Eyes::happy() : Eyes::look(2.5, 2 - 3 * height),
        joy > 0.5 ? Mouth::open : Mouth::smile
    );
    pet.armDown(Side::left, -3 * height);
    const PetPainter floor = unshifted(pet);
    buttonRays(floor, c);
    buttonOnBox(floor, pressed);
    const Point hand{mix(80, 74, height), mix(57 + 6 * pressed, 27, height)};
    armTo(pet, Side::right, {mix(70, 82, height), mix(50, 48, height)}, hand);
}

} // namespace mimkins::scene
