#include "Pet/IdleKit.h"
#include "Pet/IdleScenes.h"
#include "Pet/Tempo.h"

#include <algorithm>
#include <cmath>

namespace mimkins::scene {

using namespace idle;
using tempo::between;

namespace {

constexpr double ground = 87.5;
constexpr double kickTime = 1.5;
constexpr double half = 3;

/// The pebble rolls in to the foot, is kicked out by the same side, and comes back round on the other: `time`
/// counts from its coming, and everything is told for the right side.
double pebbleX(double time) {
    const double in = std::clamp(time / 1.0, 0.0, 1.0);
    const double out = std::max(time - kickTime, 0.0);
    return std::min(110 - 29 * (1 - (1 - in) * (1 - in)) + 42 * out, 112.0);
}

double pebbleY(double time) {
    const double out = std::max(time - kickTime, 0.0);
    return ground - 9 * std::fabs(std::sin(6.5 * out)) * std::exp(-1.5 * out);
}

/// -1 drawn back, +1 at the kick.
double swing(double time) {
    return -between(time, 0.8, 1.25) + 2 * between(time, 1.28, kickTime + 0.08) - between(time, 1.8, 2.3);
}

void pebble(const PetPainter& pet, Point center, double angle) {
    const PetPainter rolling = pet.turned(center, angle);
    rolling.ellipse(center.x - 7.6, center.y - 6, 15.2, 12, Color::grey(0.22));
    rolling.ellipse(center.x - 6.5, center.y - 5, 13, 9.8, Color{0.68, 0.67, 0.7});
    rolling.ellipse(center.x - 4.4, center.y - 3.8, 5, 3, Color::white(0.75));
}

void dust(const PetPainter& pet, Point at, double since, double side) {
    if (since <= 0 || since >= 0.5) {
        return;
    }
    const double f = since / 0.5;
    const PetPainter fading = pet.faded(0.7 * (1 - f));
    fading.disc({at.x - side * 4 * f, at.y + 2 - 3 * f}, 2 + 2 * f, Color::grey(0.72));
    fading.disc({at.x - side * 9 * f, at.y + 3 - 5 * f}, 1.5 + 1.5 * f, Color::grey(0.72));
}

void kickingLegs(const PetPainter& pet, double side, double part) {
    const double root = pet.bob + 74;
    const double still = 50 - 10 * side;
    pet.leg({still, root}, {still, 89}, {still - 5.5 - 2 * side, 87});
    const double x = 50 + side * (10 + 12 * part);
    const double lift = 5 * part * part;
    pet.leg({50 + 10 * side, root}, {x, 89 - lift}, {x - 5.5 + 2 * side, 87 - lift});
}

Eyes followingEyes(double time, double side) {
    const double far = between(time, kickTime, kickTime + 0.6);
    return time < 2.1 ? Eyes::look(side * (2.5 + 1.5 * far), 3.5 - 2 * far) : Eyes::happy();
}

} // namespace

void kickPebble(PetPainter& pet, double phase) {
    const double side = phase < half ? 1 : -1;
    const double time = phase < half ? phase : phase - half;
    const double part = swing(time);
    const double recoil = tempo::tremor(time - kickTime, 10, 4);
    pet.bob = breath(pet) - 1.5 * std::max(part, 0.0);
    pet.squash = 2 * std::max(-part, 0.0) - 2 * recoil;
    pet.shadow();
    kickingLegs(pet, side, part);
    pet.torso();
    pet.eyes(followingEyes(time, side));
    pet.mouth(part < -0.4 ? Mouth::flat : Mouth::smile);
    pet.armDown(Side::left, 5 * part);
    pet.armDown(Side::right, 5 * part);
    const double x = pebbleX(time);
    dust(pet, {50 + side * 30, 88}, time - kickTime, side);
    pebble(pet, {50 + side * (x - 50), pebbleY(time)}, side * x / 5.5);
}

} // namespace mimkins::scene
