#include "Pet/WaitingKit.h"
#include "Pet/WaitingScenes.h"

#include <array>
#include <cmath>

namespace mimkins::scene {

namespace {

constexpr Point clockCenter{13, 18};

/// A point of the dial, `share` of a turn clockwise from twelve.
Point onDial(double share, double radius) {
    const double angle = 2 * pi * share;
    return {clockCenter.x + radius * std::sin(angle), clockCenter.y - radius * std::cos(angle)};
}

void dial(const PetPainter& pet) {
    pet.ellipse(2.5, 7.5, 21, 21, brown);
    pet.ellipse(4, 9, 18, 18, pet.colors.paper);
    Path ticks;
    for (int hour = 0; hour < 12; ++hour) {
        ticks.move(onDial(hour / 12.0, hour % 3 == 0 ? 7.38 : 6.3));
        ticks.addLine(onDial(hour / 12.0, 8.3));
    }
    pet.stroke(ticks, pet.colors.ink, 0.6);
}

} // namespace

void wallClock(PetPainter& pet, double minutesWaited) {
    dial(pet);
    const Color& ink = pet.colors.ink;
    pet.line({clockCenter, onDial(std::fmod(minutesWaited / 60, 12) / 12, 4.6)}, ink, 1.4);
    pet.line({clockCenter, onDial(std::fmod(minutesWaited, 60) / 60, 6.8)}, ink, 1);
    const double second = within(std::floor(pet.t), 60) / 60;
    pet.line({clockCenter, onDial(second, 7.6)}, Color{0.85, 0.15, 0.15}, 0.5);
    pet.ellipse(12.1, 17.1, 1.8, 1.8, ink);
}

void waitingWithHourglass(PetPainter& pet) {
    constexpr double length = 5;
    constexpr double flipFrom = 4.2;
    const double phase = within(pet.t, length);
    const double flip = between(phase, flipFrom, 4.9);
    const double reached = during(phase, flipFrom - 0.5, length, 0.25);
    sit(pet, std::sin(1.5 * pet.t));
    pet.shiftX = -6;
    pet.shadow();
    pet.legs(Legs::tucked);
    pet.torso();
    if (phase > 2 && phase < flipFrom - 0.35) {
        sleepyEyes(pet, 1.5);
    } else {
        pet.eyes(Eyes::look(2.8, 2.5));
    }
    pet.mouth(reached > 0.5 ? Mouth::small : Mouth::wavy);
    const Point glass{88, 75 - 6 * std::sin(pi * flip)};
    pet.drawHourglass(glass, 1.55, pi * flip, phase / flipFrom);
    const Point rest{76 - pet.thin, 81};
    const Point grip{glass.x - 9 * std::cos(pi * flip), glass.y - 9 * std::sin(pi * flip)};
    const Point hand = mix(rest, grip, reached);
    pet.arm(Side::right, {mix(82, 72, reached), 76}, hand);
    const Point chin{34, pet.mouthLine() + 4};
    pet.arm(Side::left, {10 + 0.7 * pet.thin, 84}, chin);
}

void pointAtClock(PetPainter& pet) {
    const double phase = within(pet.t, 3);
    const double toClock = during(phase, 0, 1.3, 0.2);
    pet.bob = -0.8 + 0.8 * std::cos(5 * pet.t);
    pet.shadow();
    pet.legs(Legs::still);
    pet.shiftX = 1.2 * std::sin(5 * pet.t);
    pet.torso();
    pet.eyes(Eyes::look(-3 * toClock, -3 * toClock));
    brows(pet, 1 + 1.5 * toClock, 2.5 * (1 - toClock));
    pet.mouth(toClock > 0.5 ? Mouth::small : Mouth::open);
    const double shake = std::sin(18 * pet.t);
    const Point hand{14.5 + 0.8 * shake, pet.bob + 41 - 1.2 * shake};
    finger(pet, hand, -0.12);
    pet.arm(Side::left, {12 + 0.5 * pet.thin, pet.bob + 56}, hand);
    const Point root = pet.shoulder(Side::right);
    pet.arm(Side::right, {root.x + 12, pet.bob + 63}, {root.x - 2, pet.bob + 68});
}

namespace {

constexpr Point webCorner{2, 2};
constexpr std::array<double, 5> spokes{0, 0.4, 0.8, 1.2, 1.5708};

Point inWeb(double angle, double radius) {
    return {webCorner.x + radius * std::cos(angle), webCorner.y + radius * std::sin(angle)};
}

Path web() {
    Path path;
    for (const double angle : spokes) {
        path.move(webCorner);
        path.addLine(inWeb(angle, 30));
    }
    for (const double radius : {9.0, 17.0, 25.0}) {
        path.move(inWeb(spokes[0], radius));
        for (std::size_t i = 1; i < spokes.size(); ++i) {
            const double middle = (spokes[i - 1] + spokes[i]) / 2;
            path.addQuadCurve(inWeb(spokes[i], radius), inWeb(middle, radius * 0.86));
        }
    }
    return path;
}

void spider(const PetPainter& pet, Point at) {
    const Color dark = Color::grey(0.15);
    Path feet;
    for (const double side : {-1.0, 1.0}) {
        for (const double y : {-2.6, -0.4, 1.8}) {
            feet.move(at);
            feet.addLine({at.x + 3 * side, at.y + y - 0.8});
            feet.addLine({at.x + 4.4 * side, at.y + y + 1.4});
        }
    }
    pet.stroke(feet, dark, 0.7);
    pet.disc(at, 1.8, dark);
    pet.ellipse(at.x - 1.1, at.y - 0.4, 0.9, 1.1, Color::white());
    pet.ellipse(at.x + 0.2, at.y - 0.4, 0.9, 1.1, Color::white());
}

} // namespace

void cobweb(PetPainter& pet) {
    PetPainter wall = pet;
    wall.shiftX = 0;
    const Path threads = web();
    wall.stroke(threads, Color::black(0.16), 1.1); // lets the white show on a light ground
    wall.stroke(threads, Color::white(0.4), 0.6);
    const Point anchor{16, 10};
    const Point hanging{anchor.x, anchor.y + 14 + 4 * std::sin(0.9 * pet.t + 0.9)};
    wall.line({anchor, hanging}, Color::grey(0.5, 0.7), 0.5);
    spider(wall, hanging);
}

} // namespace mimkins::scene
