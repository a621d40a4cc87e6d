#include "Pet/AwayMotion.h"
#include "Pet/BeachParts.h"

#include <numbers>

namespace mimkins::seaside {

using namespace away;

namespace {

constexpr Color red{0.93, 0.27, 0.27};
constexpr Color wetSand{0.86, 0.68, 0.4};
constexpr Color dampSand{0.76, 0.57, 0.32};

Path dome(double half, double top, double rim) {
    Path path;
    path.move({70 - half, rim});
    path.addCurve({70 + half, rim}, {70 - 0.95 * half, top}, {70 + 0.95 * half, top});
    path.closeSubpath();
    return path;
}

} // namespace

Stay stay(std::optional<double> minutesOut) {
    if (!minutesOut) {
        return {};
    }
    const double minutes = *minutesOut;
    return {
        std::clamp(minutes / 120, 0.0, 1.0),
        between(minutes, 5, 60),
        mix(0.25, 1, between(minutes, 1, 10)),
        between(minutes, 10, 22),
        between(minutes, 24, 30),
        std::clamp(minutes / 45, 0.0, 1.0),
        minutes >= 24 * 60};
}

void parasol(const PetPainter& pet) {
    const PetPainter breezy = pet.turned({82, 88}, -0.13 + 0.02 * std::sin(0.9 * pet.t)).moved(7, 0);
    breezy.line({{74, 88}, {71, 10}}, Color{0.93, 0.9, 0.84}, 2.6);
    breezy.fill(dome(28, -2, 28), red);
    breezy.fill(dome(17, -2, 28), Color::white());
    breezy.fill(dome(7, -2, 28), red);
    breezy.disc({70, 5}, 2.2, Color::white());
}

void deckChair(const PetPainter& pet) {
    pet.line({{35, 79}, {76, 94.5}}, darkBrown, 2.6);
    pet.line({{91, 57}, {46, 95}}, darkBrown, 2.6);
    const Color cloth{0.16, 0.42, 0.76};
    pet.curve({36, 79}, {70, 103}, {90, 58}, cloth, 7);
    pet.curve({36, 79}, {70, 103}, {90, 58}, Color::white(0.9), 2);
}

void castle(const PetPainter& pet, const Stay& stay) {
    const double top = 91 - 12 * stay.walls;
    for (const double x : {4.0, 17.0}) {
        const PetPainter rising = pet.scaled({x + 4, top + 2}, 1, stay.towers);
        rising.rounded(x, top - 9, 8, 14, 1, dampSand);
        rising.rounded(x - 1, top - 11, 10, 4, 1, wetSand);
    }
    pet.polygon({{4, top}, {25, top}, {28, 93}, {1.5, 93}}, wetSand);
    pet.rounded(11, 93 - 8 * stay.walls, 7, 8 * stay.walls, 3, dampSand);
    if (stay.flag > 0) {
        const double mast = top - 11 - 11 * stay.flag;
        const double wind = 1 * std::sin(5 * pet.t);
        pet.line({{21, top - 10}, {21, mast}}, darkBrown, 1.3);
        pet.polygon({{21, mast}, {12, mast + 3.2 + wind}, {21, mast + 6.4}}, red);
    }
}

void footprints(const PetPainter& pet, double steps) {
    Path prints;
    for (int print = 0; print < 5; ++print) {
        const double shown = std::clamp(5 * steps - print, 0.0, 1.0);
        const double x = 34 + 9.5 * print;
        const double y = print % 2 == 0 ? 93.5 : 96;
        prints.addEllipse({x - 2.2 * shown, y - 0.9 * shown, 4.4 * shown, 1.8 * shown});
    }
    pet.fill(prints, dampSand.faded(0.7));
}

void beachBall(const PetPainter& pet) {
    constexpr Point at{89, 85};
    const PetPainter rolling = pet.turned(at, 0.12 * std::sin(0.7 * pet.t));
    rolling.disc(at, 8, Color::white());
    rolling.ellipse(at.x - 3.4, at.y - 8, 6.8, 16, Color{0.2, 0.55, 0.95});
    Path sides;
    for (const double side : {-1.0, 1.0}) {
        sides.move({at.x + 3 * side, at.y - 7.4});
        sides.addQuadCurve({at.x + 3 * side, at.y + 7.4}, {at.x + 13 * side, at.y});
        sides.addQuadCurve({at.x + 3 * side, at.y - 7.4}, {at.x + 8 * side, at.y});
    }
    rolling.fill(sides, Color{1, 0.72, 0.15});
}

void drink(const PetPainter& pet, Point hand) {
    const auto place = [&](double x, double y) { return Point{hand.x + x, hand.y + y}; };
    pet.line({place(0, -4), place(-7, -21)}, red, 2.2);
    pet.polygon({place(-8, -13), place(8, -13), place(5.5, 7), place(-5.5, 7)}, Color{0.9, 0.97, 1, 0.92});
    pet.polygon({place(-7, -9), place(7, -9), place(4.6, 6), place(-4.6, 6)}, Color{1, 0.55, 0.15});
    pet.disc(place(8, -13), 4.6, Color{1, 0.85, 0.25});
}

void crab(const PetPainter& pet) {
    constexpr double cycle = 22;
    const double c = within(pet.elapsed, cycle);
    const double walked = 0.5 * (between(c, 0, 9) + between(c, 12, 21));
    const double waving = during(c, 8.6, 12.2, 0.8);
    const double x = 112 - 124 * walked;
    const double y = 91.5 - 0.8 * std::abs(std::sin(9 * pet.t));
    Path legs;
    for (const double side : {-1.0, 1.0}) {
        for (const double i : {0.0, 1.0}) {
            legs.move({x + (3 + 2 * i) * side, y + 1.5});
            legs.addLine(
                {x + (6.5 + 3 * i) * side, y + 4.6 - 1.4 * std::max(std::sin(18 * pet.t + 2 * i + side), 0.0)}
            );
        }
        legs.move({x + 5 * side, y - 1});
        legs.addLine({x + 8.5 * side, y - 4 - 3 * waving});
        legs.move({x + 2.2 * side, y - 2});
        legs.addLine({x + 2.4 * side, y - 6});
    }
    const Color shell{0.92, 0.3, 0.16};
    pet.stroke(legs, Color{0.78, 0.2, 0.1}, 1.7);
    pet.ellipse(x - 7, y - 4, 14, 8, shell);
    for (const double side : {-1.0, 1.0}) {
        const double snap = waving * 1.5 * std::sin(14 * pet.t + side);
        pet.disc({x + 9 * side, y - 5 - 3 * waving + snap}, 3, shell);
        pet.disc({x + 2.4 * side, y - 6.5}, 1.9, Color::white());
        pet.disc({x + 2.4 * side - 0.5, y - 6.3}, 0.9, pet.colors.ink);
    }
}

} // namespace mimkins::seaside
