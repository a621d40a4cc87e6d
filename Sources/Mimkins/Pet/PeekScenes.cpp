#include "Pet/IdleScenes.h"
#include "Pet/TrickMotion.h"

#include <algorithm>
#include <cmath>

namespace mimkins::scene {

namespace {

// The moments of the game, as fractions of its cycle.
constexpr double peekabooCycle = 3;
constexpr double standsUp = 0.6;
constexpr double sitsDown = 0.85;

void bush(const PetPainter& pet, double rustle) {
    constexpr Color edge{0.1, 0.3, 0.14};
    constexpr Color leaf{0.27, 0.62, 0.3};
    constexpr Color light{0.45, 0.78, 0.42};
    constexpr Point clumps[]{{20, 80}, {36, 77}, {52, 79}, {66, 76}, {81, 80}};
    for (const Point& clump : clumps) {
        pet.disc({clump.x + rustle, clump.y}, 13.4, edge);
    }
    pet.rounded(8, 78, 84, 15.5, 6, edge);
    for (const Point& clump : clumps) {
        pet.disc({clump.x + rustle, clump.y}, 12, leaf);
    }
    pet.rounded(9.4, 78, 81.2, 14.2, 5, leaf);
    for (const Point& clump : clumps) {
        pet.disc({clump.x - 3 + rustle, clump.y - 4}, 4, light);
    }
    pet.disc({30, 84}, 2.4, Color{1, 0.45, 0.6});
    pet.disc({58, 86}, 2.4, Color{1, 0.9, 0.5});
    pet.disc({74, 82}, 2.4, Color{1, 0.45, 0.6});
}

/// How far the pet has stood up: 0 hidden, 1 standing, a little more as it springs up.
double stoodUp(double f) {
    const double up = between(f, standsUp, standsUp + 0.05);
    const double spring = 0.2 * during(f, standsUp + 0.02, standsUp + 0.12, 0.05);
    return (up + spring) * (1 - between(f, sitsDown - 0.06, sitsDown));
}

// The moments of the peek round the edge, as fractions of its length.
constexpr double isOut = 0.22;
constexpr double peeks = 0.29;
constexpr double enters = 0.68;
constexpr double isBack = 0.82;

constexpr double outside = 92;
constexpr double edge = 47;

/// How far the pet is off to the right.
double offset(double f) {
    const double leaving = outside * std::pow(std::clamp(f / isOut, 0.0, 1.0), 2);
    const double peeking = (outside - edge) * between(f, peeks, peeks + 0.09);
    return leaving - peeking - (edge + 2) * between(f, enters, isBack);
}

void peekIn(PetPainter& pet, double f) {
    const double lean = during(f, peeks, enters + 0.06, 0.09);
    PetPainter body = pet.turned({80, 90}, -0.28 * lean);
    pet.shadow();
    body.legs(Legs::still);
    body.torso();
    body.eyes(Eyes::look(-3.2 + 0.6 * std::sin(1.6 * pet.t), 0));
    body.mouth(Mouth::smile);
    body.armDown(Side::right);
    body.waveArm(Side::left, 8);
    const double word = during(f, peeks + 0.06, enters, 0.04);
    if (word > 0) {
        PetPainter air = pet;
        air.shiftX = 0;
        shout(
            air.faded(word).scaled({22, 30}, word, word), "hi!", {22, 22}, 20,
            Color::named(NamedColor::orange)
        );
    }
    keepTurn(pet, body);
}

void walkOut(PetPainter& pet) {
    pet.bob = -1.2 * std::abs(std::sin(9 * pet.t));
    const double swing = 3 * std::sin(9 * pet.t);
    pet.standing(Legs::walking, Eyes::look(2.5, 0), Mouth::smile);
    pet.armDown(Side::left, swing);
    pet.armDown(Side::right, swing);
}

/// An arm that hangs at 0 and waves at 1.
void risingArm(const PetPainter& pet, Side side, double raised) {
    const Point root = pet.shoulder(side);
    const double outer = -inward(side);
    const Point waving{root.x + 8 * std::sin(8 * pet.t) + 12 * outer, pet.bob + 32};
    pet.arm(
        side, mix({root.x + 6 * outer, pet.bob + 64}, {root.x + 10 * outer, pet.bob + 46}, raised),
        mix({root.x + 3 * outer, pet.bob + 73}, waving, raised)
    );
}

/// Back to the middle; one arm takes over the waving from the other.
void walkIn(PetPainter& pet, double f) {
    pet.bob = -1.2 * std::abs(std::sin(9 * pet.t));
    pet.standing(Legs::walking, Eyes::look(-2.5, 0), Mouth::smile);
    const double turned = between(f, enters + 0.06, isBack);
    risingArm(pet, Side::left, 1 - turned);
    risingArm(pet, Side::right, turned);
}

} // namespace

void peekaboo(PetPainter& pet) {
    const double f = fraction(pet.t / peekabooCycle);
    const double up = stoodUp(f);
    const double peep = during(f, 0.28, standsUp, 0.05);
    pet.bob = 16 - 18 * up;
    pet.squash = 14 * (1 - std::min(up, 1.0)) * (1 - peep);
    pet.shadow();
    pet.torso();
    if (up > 0.5) {
        pet.eyes(Eyes::wide());
        pet.mouth(Mouth::open);
    } else {
        pet.eyes(Eyes::look(2.6 * std::sin(turn * (f - 0.28) / (standsUp - 0.28)) * peep, 0));
    }
    const double raised = std::min(up, 1.0);
    pet.arm(Side::left, mix({12, 74}, {8, 52}, raised), mix({14, 78}, {9, 33}, raised));
    pet.arm(Side::right, mix({88, 74}, {92, 52}, raised), mix({86, 78}, {91, 33}, raised));
    bush(pet, 1.2 * std::sin(20 * pet.t) * during(f, standsUp - 0.1, standsUp + 0.1, 0.08));
    const double word = during(f, standsUp, sitsDown, 0.04);
    if (word > 0) {
        shout(
            pet.faded(word).scaled({80, 18}, word, word), "boo!", {80, 18}, 15, Color::named(NamedColor::pink)
        );
    }
}

void peekAround(PetPainter& pet, double phase, double length) {
    const double f = phase / length;
    pet.shiftX = offset(f);
    if (f < isOut) {
        walkOut(pet);
    } else if (f < peeks) {
        return;
    } else if (f < enters + 0.06) {
        peekIn(pet, f);
    } else if (f < isBack) {
        walkIn(pet, f);
    } else {
        pet.shiftX = 0;
        hello(pet);
    }
}

} // namespace mimkins::scene
