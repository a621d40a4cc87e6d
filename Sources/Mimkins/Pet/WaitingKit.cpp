#include "Pet/WaitingKit.h"

#include <algorithm>
#include <cmath>

namespace mimkins::scene {

Hop hop(double phase) {
    constexpr double leaving = 0.3;
    constexpr double landing = 0.82;
    Hop result;
    if (phase > leaving && phase < landing) {
        const double flight = (phase - leaving) / (landing - leaving);
        result.height = 4 * flight * (1 - flight);
    }
    result.crouch = during(phase, 0, leaving + 0.06, 0.16) + 0.7 * during(phase, landing - 0.03, 1, 0.1);
    return result;
}

void leap(PetPainter& pet, const Hop& hop, double height) {
    pet.bob = 3 * hop.crouch - height * hop.height;
    pet.squash = 5 * hop.crouch - 2 * hop.height;
}

void hopLegs(const PetPainter& pet, const Hop& hop) {
    const double rootY = pet.bob + 74;
    const double ankleY = 89 + std::min(pet.bob, 0.0);
    for (const double side : {-1.0, 1.0}) {
        const double x = 50 + 10 * side;
        const double ankleX = x + 5 * side * hop.height;
        pet.leg({x, rootY}, {ankleX, ankleY}, {ankleX - 5 + 2 * side, ankleY - 2});
    }
}

void brows(const PetPainter& pet, double lift, double slant) {
    const double y = pet.eyeLine() - 4.5 - lift;
    for (const double side : {-1.0, 1.0}) {
        const double x = 50 + 10 * side;
        pet.line({{x + 4.5 * side, y - slant / 2}, {x - 4.5 * side, y + slant / 2}}, pet.colors.ink, 2.2);
    }
}

void sleepyEyes(const PetPainter& pet, double dx) {
    const double y = pet.eyeLine() + 4.5;
    for (const double x : {40.0, 60.0}) {
        pet.rounded(x - 2.6 + dx, y - 0.5, 5.2, 6, 2.4, pet.colors.ink);
        pet.line({{x - 4.5, y}, {x + 4.5, y}}, pet.colors.ink, 2.2);
    }
}

void grin(const PetPainter& pet) {
    const double y = pet.mouthLine() - 3;
    Path laugh;
    laugh.move({42.5, y});
    laugh.addLine({57.5, y});
    laugh.addCurve({42.5, y}, {57, y + 13.5}, {43, y + 13.5});
    laugh.closeSubpath();
    pet.fill(laugh, pet.colors.ink);
    pet.ellipse(46.5, y + 5.4, 7, 3.8, Color{0.93, 0.42, 0.47});
}

void finger(const PetPainter& pet, Point hand, double angle) {
    const Point tip{hand.x + 7 * std::sin(angle), hand.y - 7 * std::cos(angle)};
    pet.line({hand, tip}, pet.colors.hand, 3);
}

void sparkle(const PetPainter& pet, Point center, double radius) {
    constexpr int corners = 8;
    Path star;
    for (int corner = 0; corner < corners; ++corner) {
        const double angle = pi * corner / 4;
        const double length = corner % 2 == 0 ? radius : radius * 0.36;
        const Point at{center.x + length * std::sin(angle), center.y - length * std::cos(angle)};
        corner == 0 ? star.move(at) : star.addLine(at);
    }
    star.closeSubpath();
    pet.stroke(star, Color::named(NamedColor::orange), 1.2);
    pet.fill(star, Color::named(NamedColor::yellow));
}

void sit(PetPainter& pet, double breath) {
    pet.bob = 9;
    pet.squash = 1 - breath;
}

} // namespace mimkins::scene
