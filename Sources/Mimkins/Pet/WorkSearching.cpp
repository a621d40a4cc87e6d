#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <array>
#include <cmath>

namespace mimkins::scene {

namespace {

using namespace work;

/// Where a pet looks that looks about, but as a heavy thing follows it.
double glidingGlance(double t) {
    constexpr std::array<double, 4> offsets{-2.5, 0, 2.5, 0};
    const double step = std::floor(t / 1.3);
    const auto index = static_cast<std::size_t>(step - 4 * std::floor(step / 4));
    return mix(offsets[(index + 3) % 4], offsets[index], between(t - 1.3 * step, 0, 0.4));
}

bool blinks(const PetPainter& pet) {
    return std::fmod(pet.t + pet.blinkOffset, 3.7) < 0.12;
}

/// A big round glass with one big eye behind it.
void glass(const PetPainter& pet, Point center, double glance) {
    pet.line({{center.x + 9, center.y + 12}, {center.x + 21, center.y + 28}}, darkBrown, 7.5);
    pet.line({{center.x + 9, center.y + 12}, {center.x + 21, center.y + 28}}, brown, 5.6);
    pet.line({{center.x + 9, center.y + 12}, {center.x + 11.4, center.y + 15.2}}, Color::grey(0.8), 6.5);
    pet.disc(center, 15, Color{0.88, 0.96, 1});
    if (blinks(pet)) {
        pet.rounded(center.x - 6, center.y - 1, 12, 4, 2, pet.colors.ink);
    } else {
        pet.ellipse(center.x - 6 + 1.4 * glance, center.y - 10, 12, 20, pet.colors.ink);
        pet.ellipse(center.x - 3.4 + 1.4 * glance, center.y - 7, 5, 6, Color::white());
    }
    pet.ring(center, 15, darkBrown, 3);
    pet.curve(
        {center.x - 10, center.y - 3}, {center.x - 9, center.y - 9}, {center.x - 3, center.y - 10.5},
        Color::white(0.8), 2
    );
}

void tube(const PetPainter& pet, Point center, double shine) {
    pet.disc(center, 12, Color::grey(0.18));
    pet.disc(center, 8.8, Color{0.45, 0.72, 0.95});
    pet.disc({center.x + 1.2, center.y + 1.2}, 6.4, Color{0.24, 0.45, 0.75});
    pet.ellipse(center.x - 5 + shine, center.y - 6, 5, 6.5, Color::white(0.85));
    pet.ring(center, 11.6, Color::white(0.25), 1);
}

} // namespace

void magnifier(PetPainter& pet) {
    const double glance = glidingGlance(pet.t);
    pet.shiftX = -3 + glance;
    pet.bob = 0.6 * std::sin(2.4 * pet.t);
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::small);
    pet.armsOnHipsLeftOnly();
    const Point center{61 + 1.2 * glance, pet.bob + 46};
    glass(pet, center, glance);
    pet.arm(Side::right, {97, pet.bob + 62}, {center.x + 19.5, center.y + 26});
}

void binoculars(PetPainter& pet) {
    const double sweep = std::sin(0.7 * pet.t);
    pet.shiftX = 5 * sweep;
    pet.bob = -0.8 + 0.8 * std::cos(1.4 * pet.t);
    pet.shadow();
    pet.legs(Legs::still);
    pet.torso();
    pet.mouth(Mouth::small);
    const double y = pet.bob + 46;
    const double x = 50 + 4 * sweep;
    pet.rounded(x - 8, y - 5, 16, 8, 2, Color::grey(0.3));
    tube(pet, {x - 12.5, y}, 2 * sweep);
    tube(pet, {x + 12.5, y}, 2 * sweep);
    pet.arm(Side::left, {10, pet.bob + 62}, {x - 24, y + 4});
    pet.arm(Side::right, {90, pet.bob + 62}, {x + 24, y + 4});
}

} // namespace mimkins::scene
