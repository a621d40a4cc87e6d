#include "Pet/TrickMotion.h"
#include "Pet/TrickScenes.h"

#include <cmath>

namespace mimkins::scene {

namespace {

/// Brows that slant towards the middle.
void brows(const PetPainter& pet) {
    const double y = pet.eyeLine() - 3;
    pet.line({{34, y - 2}, {44, y + 2}}, pet.colors.ink, 2.4);
    pet.line({{66, y - 2}, {56, y + 2}}, pet.colors.ink, 2.4);
}

/// One hand out, the other fist at the chest.
void guard(const PetPainter& pet, double sway) {
    pet.arm(Side::left, {9, pet.bob + 66}, {9, pet.bob + 44 + sway});
    pet.arm(Side::right, {95, pet.bob + 68}, {71, pet.bob + 66 - sway});
}

// The moments of the flying kick, in seconds.
constexpr double leaps = 0.5;
constexpr double kicks = 0.8;
constexpr double falls = 1.5;
constexpr double lands = 1.75;
constexpr double settled = 2.2;

constexpr double kickAngle = -0.2443;

/// The crouch before and the stance after the flight.
void fightingStance(PetPainter& pet, double phase) {
    const double crouch = between(phase, 0, 0.35) * (1 - between(phase, 0.4, leaps));
    const double landing = during(phase, lands - 0.02, settled, 0.12);
    pet.bob = 5 * crouch + 4 * landing + 0.8 * std::sin(6 * pet.t) * between(phase, settled, settled + 0.4);
    pet.squash = 5 * crouch + 5 * landing;
    pet.shadow();
    pet.stanceLegs();
    pet.torso();
    pet.eyes(Eyes::look(1.5, 1));
    brows(pet);
    pet.mouth(Mouth::flat);
    guard(pet, std::sin(6 * pet.t));
}

void kickingLegs(const PetPainter& pet, double out) {
    const double y = pet.bob;
    const Point knee = mix({42, y + 84}, {36, y + 82}, out);
    pet.leg({40, y + 72}, knee, {knee.x - 7, knee.y - 2});
    const Point heel = mix({62, y + 84}, {93, y + 70}, out);
    pet.line({{60, y + 70}, heel}, pet.colors.limb, 7);
    pet.turned(heel, -1.2 * out).ellipse(heel.x - 5, heel.y - 3, 12, 7, pet.colors.limb);
}

void flight(PetPainter& pet, double phase) {
    const double up = between(phase, leaps, kicks) * (1 - between(phase, falls, lands));
    const double out = during(phase, leaps + 0.1, lands - 0.05, 0.18);
    pet.bob = -11 * up;
    pet.shiftX = -7 * up;
    pet.shadow();
    PetPainter body = pet.turned({50, 50 + pet.bob}, kickAngle * up);
    kickingLegs(body, out);
    body.torso();
    body.eyes(Eyes::wide());
    body.mouth(Mouth::open);
    body.arm(Side::left, {9, pet.bob + 66 - 4 * out}, mix({9, pet.bob + 44}, {17, pet.bob + 38}, out));
    body.arm(Side::right, {95, pet.bob + 68 - 6 * out}, mix({71, pet.bob + 66}, {89, pet.bob + 44}, out));
    const double word = during(phase, kicks - 0.1, falls + 0.1, 0.12);
    if (word > 0) {
        shout(
            pet.moved(-pet.shiftX, 0).faded(word).scaled({38, 7}, word, word), "HI-YAH!", {38, 7}, 15,
            Color::named(NamedColor::orange)
        );
    }
    keepTurn(pet, body);
}

// The moments of the chop, in seconds.
constexpr double strikes = 1.18;
constexpr double breaks = 1.3;
constexpr double clears = 2.5;
constexpr double chopCycle = 3;

constexpr double breakAngle = 0.3142;
constexpr Color wood{0.93, 0.74, 0.45};

void blocks(const PetPainter& pet) {
    for (const double x : {8.0, 76.0}) {
        pet.rounded(x - 1, 80, 18, 13.5, 2, deepBrown);
        pet.rounded(x, 81, 16, 11.5, 1.4, Color::grey(0.62));
    }
}

void plank(const PetPainter& pet, double x, double width) {
    pet.rounded(x - 1, 72.5, width + 2, 8.5, 2, deepBrown);
    pet.rounded(x, 73.5, width, 6.5, 1.2, wood);
    pet.line({{x + 4, 76.6}, {x + width - 4, 76.6}}, brown, 1);
}

/// Whole until it breaks; then both halves tip into the gap, and at the end a new one slides in.
void boardOnBlocks(const PetPainter& pet, double phase) {
    blocks(pet);
    if (phase < breaks) {
        plank(pet, 9, 82);
        return;
    }
    const double tilt = breakAngle * between(phase, breaks, breaks + 0.12);
    const double left = 1 - between(phase, clears, clears + 0.25);
    if (left > 0) {
        plank(pet.scaled({12, 80}, left, left).turned({16, 80}, tilt), 9, 40.5);
        plank(pet.scaled({88, 80}, left, left).turned({84, 80}, -tilt), 50.5, 40.5);
    }
    const double next = between(phase, clears + 0.1, chopCycle - 0.05);
    if (next > 0) {
        plank(pet.moved(100 * (next - 1), 0), 9, 82);
    }
}

Point choppingHand(double phase, double bob) {
    const Point rest{78, bob + 62};
    const Point high{86, bob + 20};
    const Point broken{55, bob + 77};
    if (phase < strikes) {
        return mix(rest, high, between(phase, 0.1, 0.8));
    }
    return mix(mix(high, broken, between(phase, strikes, breaks)), rest, between(phase, 1.9, 2.4));
}

void splinters(const PetPainter& pet, double phase) {
    const double f = (phase - breaks) / 0.5;
    if (f < 0 || f > 1) {
        return;
    }
    const PetPainter shown = pet.faded(1 - f);
    const double fall = 26 * f * f - 20 * f;
    shown.polygon({{44 - 18 * f, 70 + fall}, {48 - 18 * f, 68 + fall}, {46 - 18 * f, 74 + fall}}, wood);
    shown.polygon({{64 + 20 * f, 70 + fall}, {69 + 20 * f, 69 + fall}, {66 + 20 * f, 74 + fall}}, wood);
    shown.polygon(
        {{56 + 6 * f, 66 + 1.3 * fall}, {60 + 6 * f, 67 + 1.3 * fall}, {57 + 6 * f, 71 + 1.3 * fall}}, wood
    );
}

void chopFace(const PetPainter& pet, double phase) {
    if (phase < strikes) {
        pet.eyes(phase < 0.7 ? Eyes::look(0, 2.5) : Eyes::closed());
        pet.mouth(Mouth::flat);
    } else {
        pet.eyes(phase < 1.9 ? Eyes::wide() : Eyes::happy());
        pet.mouth(phase < 1.9 ? Mouth::open : Mouth::smile);
    }
    if (phase < 1.9) {
        brows(pet);
    }
}

// Punches: two a cycle, by turns.
constexpr double punchCycle = 0.8;
constexpr double punchReach = 0.3; // of half a cycle, when the fist is at the target

double punched(double half) {
    return between(half, 0.06, punchReach) * (1 - between(half, punchReach + 0.1, 0.85));
}

void boxingArm(const PetPainter& pet, Side side, Point bend, Point hand) {
    constexpr Color red{0.9, 0.16, 0.2};
    pet.arm(side, bend, hand);
    pet.disc(hand, 7.4, Color{0.42, 0.03, 0.08});
    pet.disc(hand, 6.2, red);
    pet.disc({hand.x - 2, hand.y - 2.4}, 1.8, Color::white(0.6));
}

void target(const PetPainter& pet, double hit) {
    constexpr Point foot{80, 91};
    pet.ellipse(68, 88, 24, 7, deepBrown);
    const PetPainter swung = pet.turned(foot, 0.12 * hit);
    swung.line({foot, {80, 60}}, Color::grey(0.5), 3.4);
    const Point at{80, 48};
    swung.ellipse(at.x - 12 + hit, at.y - 15, 24 - 2 * hit, 30, deepBrown);
    swung.ellipse(at.x - 10.6 + hit, at.y - 13.6, 21.2 - 2 * hit, 27.2, Color{1, 0.82, 0.15});
    swung.ellipse(at.x - 6.5, at.y - 8.5, 13, 17, Color::white());
    swung.ellipse(at.x - 3.4, at.y - 4.4, 6.8, 8.8, Color{0.9, 0.2, 0.2});
}

/// Strokes that spring off the target at a hit.
void impact(const PetPainter& pet, double half) {
    const double f = (half - punchReach) / 0.35;
    if (f < 0 || f > 1) {
        return;
    }
    const PetPainter shown = pet.faded(1 - f);
    const Color spark = Color::named(NamedColor::orange);
    shown.line({{71, 28 - 5 * f}, {68, 21 - 7 * f}}, spark, 2.6);
    shown.line({{81, 27 - 5 * f}, {81, 19 - 7 * f}}, spark, 2.6);
    shown.line({{90, 29 - 5 * f}, {93, 22 - 7 * f}}, spark, 2.6);
}

} // namespace

void flyingKick(PetPainter& pet, double phase) {
    if (phase >= leaps && phase < lands) {
        flight(pet, phase);
    } else {
        fightingStance(pet, phase);
    }
}

void karateChop(PetPainter& pet, double phase) {
    const double moment = within(phase, chopCycle);
    const double wound = between(moment, 0.1, 0.9) * (1 - between(moment, strikes, breaks));
    const double struck = during(moment, strikes, 2.1, 0.12);
    pet.bob = -3 * wound + 3 * struck;
    pet.squash = 3 * struck;
    pet.shadow();
    pet.stanceLegs();
    pet.torso();
    chopFace(pet, moment);
    pet.arm(Side::left, {8, pet.bob + 64}, {22, pet.bob + 68});
    boardOnBlocks(pet, moment);
    splinters(pet, moment);
    const Point hand = choppingHand(moment, pet.bob);
    const double tremble = 0.7 * std::sin(40 * pet.t) * during(moment, 0.7, strikes, 0.1);
    pet.arm(Side::right, mix({92, pet.bob + 60}, {96, pet.bob + 44}, wound), {hand.x + tremble, hand.y});
    const double word = during(moment, breaks - 0.05, 2.2, 0.12);
    if (word > 0) {
        shout(
            pet.faded(word).scaled({74, 22}, word, word), "chop!", {74, 22}, 17,
            Color::named(NamedColor::yellow)
        );
    }
}

void punches(PetPainter& pet) {
    const double cycle = 2 * fraction(pet.t / punchCycle);
    const double half = fraction(cycle);
    const double reach = punched(half);
    const double rightReach = cycle < 1 ? reach : 0;
    const double leftReach = cycle < 1 ? 0 : reach;
    pet.shiftX = -12 + 3 * reach;
    pet.bob = 2 - 1.5 * reach;
    pet.shadow();
    pet.stanceLegs();
    PetPainter props = pet;
    props.shiftX = 0;
    target(
        props, between(half, punchReach - 0.06, punchReach) * (1 - between(half, punchReach + 0.05, 0.95))
    );
    pet.torso();
    pet.eyes(Eyes::look(3, 0));
    brows(pet);
    pet.mouth(reach > 0.5 ? Mouth::open : Mouth::flat);
    boxingArm(pet, Side::left, mix({6, 66}, {44, 92}, leftReach), mix({21, 66}, {75, 49}, leftReach));
    boxingArm(
        pet, Side::right, mix({95, 68}, {82, 62}, rightReach),
        mix({74 + 3 * leftReach, 64 + 6 * leftReach}, {77, 45}, rightReach)
    );
    impact(props, half);
}

} // namespace mimkins::scene
