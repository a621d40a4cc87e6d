#include "Pet/AwayMotion.h"
#include "Pet/AwayScenes.h"

#include <numbers>

namespace mimkins::scene {

using namespace away;

namespace {

constexpr Color nightBlue{0.36, 0.47, 0.78};
constexpr Color paleBlue{0.86, 0.9, 0.98};
constexpr Color starYellow{1, 0.88, 0.5};

void nightcap(const PetPainter& pet, double sway) {
    const double top = pet.bob + pet.squash;
    const Point tassel{12 + sway, top + 33 + 0.4 * sway};
    Path cap;
    cap.move({28, top + 29});
    cap.addCurve(tassel, {30, top + 6}, {16 + 0.5 * sway, top + 6});
    cap.addCurve({72, top + 29}, {26 + 0.5 * sway, top + 6}, {60, top - 2});
    cap.closeSubpath();
    pet.fill(cap, nightBlue);
    pet.disc({42, top + 18}, 2.4, starYellow);
    pet.disc({57, top + 19}, 2.4, starYellow);
    pet.rounded(25, top + 25, 50, 7, 3.5, paleBlue);
    pet.disc(tassel, 5, starYellow);
}

void blanket(const PetPainter& pet) {
    const double fold = pet.bob + 66 + 0.5 * pet.squash;
    Path cloth;
    cloth.move({18, fold});
    cloth.addLine({82, fold});
    cloth.addQuadCurve({88, 91}, {88, fold + 6});
    cloth.addQuadCurve({12, 91}, {50, 95});
    cloth.addQuadCurve({18, fold}, {12, fold + 6});
    cloth.closeSubpath();
    pet.fill(cloth, nightBlue);
    pet.disc({30, 86}, 2.4, starYellow);
    pet.disc({50, 88}, 2.4, starYellow);
    pet.disc({70, 86}, 2.4, starYellow);
    pet.rounded(15, fold - 2, 70, 6.5, 3.2, paleBlue);
}

void risingLetters(const PetPainter& pet) {
    for (const double i : {0.0, 0.5}) {
        const double f = fraction(0.3 * pet.t + i);
        pet.faded(std::sin(std::numbers::pi * f))
            .word("z", {78 + 12 * f, 30 - 26 * f}, 9 + 6 * f, Color{0.5, 0.62, 0.93});
    }
}

/// `breath` is 1 when the lungs are full.
void asleep(PetPainter& pet, double breath, Mouth mouth) {
    pet.bob = 9;
    pet.squash = 3.5 - 3 * breath;
    pet.moved(0, 1).shadow();
    pet.rounded(10, 56, 80, 24, 10, Color::grey(0.78));
    pet.rounded(10, 55, 80, 23, 10, pet.colors.paper);
    pet.legs(Legs::tucked);
    const PetPainter nodding = pet.turned({50, 85}, -0.05 + 0.03 * breath);
    nodding.torso();
    nodding.eyes(Eyes::closed());
    nodding.mouth(mouth);
    nightcap(nodding, 1.5 * std::sin(1.6 * pet.t - 0.9));
    blanket(pet);
    pet.arm(Side::left, {18, 70}, {27, 76});
    pet.arm(Side::right, {82, 70}, {73, 76});
    risingLetters(pet);
}

} // namespace

void sleep(PetPainter& pet) {
    asleep(pet, (1 + std::sin(1.6 * pet.t)) / 2, Mouth::smile);
}

void snore(PetPainter& pet) {
    const double breath = (1 + std::sin(1.6 * pet.t)) / 2;
    asleep(pet, breath, Mouth::small);
    const double radius = 2 + 7 * (1 - breath);
    const Point center{56 + radius, 66 + 0.5 * pet.squash - 0.15 * radius};
    pet.disc(center, radius, Color{0.72, 0.9, 1, 0.8});
    pet.ring(center, radius, Color{0.36, 0.6, 0.85}, 1.1);
    pet.disc({center.x - 0.35 * radius, center.y - 0.35 * radius}, 0.22 * radius, Color::white(0.95));
}

} // namespace mimkins::scene
