#include "Pet/WaitingKit.h"
#include "Pet/WaitingScenes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mimkins::scene {

namespace {

constexpr Color pale = Color::grey(0.94);
constexpr Color dull = Color::grey(0.85);
constexpr Color hollow = Color::grey(0.12);
constexpr Color edge = Color::grey(0.45);

/// A shaft with two knobs at its far end.
void bone(const PetPainter& pet, Point from, Point to, const Color& color) {
    const double length = std::max(std::hypot(to.x - from.x, to.y - from.y), 0.1);
    const Point across{-(to.y - from.y) / length * 1.7, (to.x - from.x) / length * 1.7};
    pet.line({from, to}, edge, 4.4);
    pet.line({from, to}, color, 3.2);
    Path knobs;
    for (const double side : {-1.0, 1.0}) {
        knobs.addEllipse({to.x + side * across.x - 2.1, to.y + side * across.y - 2.1, 4.2, 4.2});
    }
    pet.fill(knobs, color);
}

void boneHand(const PetPainter& pet, Point wrist, double angle) {
    Path fingers;
    for (const double spread : {-0.55, 0.0, 0.55}) {
        const double direction = angle + spread;
        fingers.move(wrist);
        fingers.addLine({wrist.x + 7 * std::sin(direction), wrist.y - 7 * std::cos(direction)});
    }
    pet.stroke(fingers, edge, 3);
    pet.stroke(fingers, pale, 2);
}

void boneLegs(const PetPainter& pet) {
    for (const double side : {-1.0, 1.0}) {
        const double x = 50 + 10 * side;
        bone(pet, {x, pet.bob + 72}, {x, 88}, dull);
        pet.ellipse(x - 5.5 + 2 * side, 86.5, 11, 5.5, edge);
        pet.ellipse(x - 5 + 2 * side, 87, 10, 4.5, pale);
    }
}

void skull(const PetPainter& pet) {
    const double top = pet.bob + 26 + pet.squash;
    const double eyes = pet.eyeLine() + 5.5;
    const Path cranium = Path::roundedRect({22, top, 56, 37}, 17, CornerStyle::continuous);
    pet.fill(cranium, LinearGradient{{pale, dull}, {50, top}, {50, top + 37}});
    pet.stroke(cranium, edge, 1);
    for (const double x : {40.0, 60.0}) {
        pet.ellipse(x - 7, eyes - 8, 14, 15, hollow);
    }
    pet.polygon({{50, eyes + 4}, {53, eyes + 9.5}, {47, eyes + 9.5}}, hollow);
    pet.line({{66, top + 2}, {63, top + 7}, {67, top + 10}, {64.5, top + 14}}, edge, 1.1);
}

void jaw(const PetPainter& pet, double drop) {
    const double top = pet.bob + 60 + drop;
    pet.rounded(34, top, 32, 16 - drop, 7, edge);
    pet.rounded(35, top + 1, 30, 14 - drop, 6, dull);
    pet.rounded(38, top + 1.5, 24, 8 - drop, 2.5, pale);
    Path teeth;
    for (const double x : {44.0, 48.0, 52.0, 56.0}) {
        teeth.move({x, top + 2});
        teeth.addLine({x, top + 8.5 - drop});
    }
    pet.stroke(teeth, hollow, 0.8);
}

/// The right arm is still up; every few seconds it finds the strength for a small wave.
void waitingArm(const PetPainter& pet) {
    constexpr double length = 5.5;
    const double phase = within(pet.t, length);
    const double strength = during(phase, 1, 3.2, 0.4);
    const double tilt = 0.28 * std::sin(2 * pi * (phase - 1) / 1.1) * strength;
    const Point elbow{88, pet.bob + 55};
    const Point wrist{89 + 18 * std::sin(tilt), elbow.y - 19 * std::cos(tilt)};
    bone(pet, {78, pet.bob + 60}, elbow, dull);
    bone(pet, elbow, wrist, pale);
    boneHand(pet, wrist, tilt + 0.1 - 0.5 * (1 - strength));
}

} // namespace

void skeleton(PetPainter& pet) {
    pet.bob = 5 + 0.5 * std::sin(0.8 * pet.t + 0.8);
    pet.squash = 2;
    const double late = (within(pet.t, 5) / 5 - 0.85) / 0.15;
    const double drop = 3 * during(late, 0, 1, 0.3);
    pet.shadow();
    boneLegs(pet);
    jaw(pet, drop);
    skull(pet);
    const Point elbow{14, pet.bob + 64};
    bone(pet, {22, pet.bob + 58}, elbow, dull);
    bone(pet, elbow, {16, pet.bob + 74}, pale);
    boneHand(pet, {16, pet.bob + 74}, pi);
    waitingArm(pet);
    cobweb(pet);
}

namespace {

struct Fly {
    double width;
    double rateX;
    double shiftX;
    double rateY;
    double shiftY;
};

constexpr std::array<Fly, 3> flies{{
    {20, 2.1, 0, 3.3, 0.4},
    {14, 2.5, 2.1, 3.8, 1.7},
    {20, 2.9, 4.2, 4.3, 3.1},
}};

void drawFly(const PetPainter& pet, const Fly& fly, double flutter) {
    const Point at{
        50 + fly.width * std::sin(fly.rateX * pet.t + fly.shiftX),
        58 + 8 * std::sin(fly.rateY * pet.t + fly.shiftY)};
    const double open = 1.5 + 4 * std::fabs(std::sin(40 * pet.t + flutter));
    for (const double side : {-1.0, 1.0}) {
        const PetPainter wing = pet.turned(at, 0.55 * side);
        wing.ellipse(at.x - 1.8 + 1.6 * side, at.y - 1 - open, 3.6, open, Color::grey(0.82, 0.85));
    }
    pet.ellipse(at.x - 3.2, at.y - 2.2, 6.4, 4.4, Color::grey(0.2));
    pet.disc({at.x + 2.2, at.y - 0.6}, 1, Color{0.9, 0.3, 0.3});
}

void mound(const PetPainter& pet) {
    Path heap;
    heap.move({12, 92});
    heap.addQuadCurve({36, 72}, {26, 88});
    heap.addQuadCurve({58, 71}, {47, 60});
    heap.addQuadCurve({88, 92}, {70, 88});
    heap.addQuadCurve({12, 92}, {50, 97});
    heap.closeSubpath();
    pet.fill(heap, LinearGradient{{Color::grey(0.78), Color::grey(0.48)}, {50, 66}, {50, 94}});
    pet.ellipse(37, 69, 13, 4, Color::white(0.22));
    for (const Point grain : {Point{30, 84}, Point{44, 78}, Point{57, 86}, Point{68, 81}, Point{40, 90}}) {
        pet.ellipse(grain.x, grain.y, 5, 2.4, Color::grey(0.38, 0.6));
    }
}

/// Dust that the air takes off the top.
void motes(const PetPainter& pet) {
    for (const double shift : {0.0, 0.5}) {
        const double share = fraction(0.18 * pet.t + shift);
        const double drift = 3 * std::sin(6 * share);
        pet.faded(during(share, 0, 1, 0.3))
            .disc({54 + 22 * share + drift, 70 - 14 * share}, 1.5, Color::grey(0.65));
    }
}

} // namespace

void dustPile(PetPainter& pet) {
    pet.ellipse(8, 89, 84, 8, Color::black(0.22));
    bone(pet, {62, 84}, {69, 66}, pale);
    boneHand(pet, {70, 64}, 0.25);
    mound(pet);
    motes(pet);
    double flutter = 0;
    for (const Fly& fly : flies) {
        drawFly(pet, fly, flutter);
        flutter += 1;
    }
    pet.faded(0.7 + 0.3 * std::sin(6 * pet.t)).word("bzz", {30, 44}, 6, Color::grey(0.55));
}

} // namespace mimkins::scene
