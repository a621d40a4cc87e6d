#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <cmath>
#include <numbers>

namespace mimkins::scene {

namespace {

using namespace work;

constexpr double planeSeconds = 2.4;
constexpr double released = 0.54; ///< of the cycle

struct Throw {
    Point hand;
    double flight = 0; ///< 0 until released
    double held = 1;   ///< how much of a new plane there is
    double lean = 0;   ///< back below 0
};

Throw throwAt(double t) {
    const double c = cycleOf(t, planeSeconds);
    const double raise = between(c, 0.06, 0.28);
    const double back = between(c, 0.3, 0.44);
    const double forth = falling(c, 0.46, released);
    const double rest = between(c, 0.64, 0.9);
    Throw now;
    now.hand = mix({69, 70}, {73, 47}, raise);
    now.hand = mix(now.hand, {67, 37}, back);
    now.hand = mix(now.hand, {81, 42}, forth);
    now.hand = mix(now.hand, {69, 70}, rest);
    now.flight = std::max((c - released) / (1 - released), 0.0);
    now.held = between(c, 0.02, 0.14);
    now.lean = -back * (1 - forth) + forth * (1 - rest);
    return now;
}

void edgedPlane(const PetPainter& pet, Point at, double scale, double angle) {
    const PetPainter turned = pet.turned(at, angle);
    const auto place = [&](double x, double y) { return Point{at.x + scale * x, at.y + scale * y}; };
    turned.line(
        {place(8, 0), place(-8, -6), place(-4.5, 0), place(-7, 5), place(8, 0)}, Color::grey(0.25),
        1.6 * scale
    );
    turned.plane(at, scale);
}

Point flightPath(double f) {
    const Point from{86, 38};
    const Point over{92, 41};
    const Point to{97, 6};
    return mix(mix(from, over, f), mix(over, to, f), f);
}

void flyingPlane(const PetPainter& pet, double f) {
    const double eased = 1 - (1 - f) * (1 - f);
    const Point at = flightPath(eased);
    const Point before = flightPath(std::max(eased - 0.25, 0.0));
    const double left = 1 - between(f, 0.75, 1);
    pet.faded(0.6 * left * between(f, 0.05, 0.2)).line({before, mix(before, at, 0.5)}, pet.colors.accent, 2);
    edgedPlane(pet.faded(left), at, mix(1.7, 0.7, eased), -0.15 - 0.9 * eased);
}

void horn(const PetPainter& pet, Point mouth, double angle) {
    const PetPainter aimed = pet.turned(mouth, angle);
    const auto place = [&](double x, double y) { return Point{mouth.x + x, mouth.y + y}; };
    const Color orange = Color::named(NamedColor::orange);
    aimed.line({place(17, 2), place(16, 12)}, darkBrown, 4.5);
    edgedPolygon(aimed, {place(4, -4), place(33, -15), place(33, 15), place(4, 4)}, orange);
    aimed.polygon({place(5, -3), place(32, -12), place(32, -6), place(5, -1)}, Color::white(0.35));
    aimed.rounded(mouth.x - 1, mouth.y - 5, 6.5, 10, 2.5, darkBrown);
    edgedBox(aimed, {mouth.x + 30, mouth.y - 17, 7, 34}, 3.5, pet.colors.paper);
}

void soundArcs(const PetPainter& pet, Point mouth, double angle) {
    const PetPainter aimed = pet.turned(mouth, angle);
    for (const double shift : {0.0, 0.333, 0.667}) {
        const double f = fraction(1.1 * pet.t + shift);
        const Point center{mouth.x + 30, mouth.y};
        Path arc;
        arc.addArc(center, 11 + 16 * f, -0.62, 0.62);
        aimed.faded(std::sin(std::numbers::pi * f)).stroke(arc, Color::named(NamedColor::orange), 3);
    }
}

} // namespace

void planes(PetPainter& pet) {
    const Throw now = throwAt(pet.t);
    pet.shiftX = -14 + 3 * now.lean;
    pet.bob = -1.2 * std::fabs(now.lean);
    const bool flies = now.flight > 0 && now.flight < 0.9;
    const double up = flies ? -4 * between(now.flight, 0, 0.7) * (1 - between(now.flight, 0.7, 0.9)) : 0;
    pet.standing(Legs::still, Eyes::look(2.8, up), flies && now.flight < 0.4 ? Mouth::open : Mouth::smile);
    pet.armDown(Side::left, -3 * now.lean);
    const PetPainter stage = unshifted(pet);
    if (now.flight > 0) {
        flyingPlane(stage, now.flight);
    } else if (now.held > 0) {
        edgedPlane(
            stage, {now.hand.x + 5, now.hand.y - 4}, 1.7 * now.held, -0.15 + 0.35 * std::min(now.lean, 0.0)
        );
    }
    armTo(pet, Side::right, {80, 60}, now.hand);
}

void megaphone(PetPainter& pet) {
    const double shout = std::sin(16 * pet.t);
    const double angle = -0.14 + 0.12 * std::sin(0.5 * pet.t);
    pet.shiftX = -14;
    pet.squash = 0.8 + 0.5 * shout;
    pet.bob = -0.4;
    pet.standing(Legs::still, Eyes::look(2.8, -1 + 4 * angle), Mouth::open);
    pet.armsOnHipsLeftOnly();
    const PetPainter stage = unshifted(pet);
    const Point mouth{41, pet.mouthLine() + 1.5};
    soundArcs(stage, mouth, angle);
    const Point hand{57.5, pet.bob + 73};
    armTo(pet, Side::right, {74, 72}, hand);
    horn(stage, {mouth.x + 0.5 * shout, mouth.y}, angle);
    stage.disc(hand, 3.6, pet.colors.hand);
}

} // namespace mimkins::scene
