#include "Pet/AwayMotion.h"
#include "Pet/AwayScenes.h"
#include "Pet/BeachParts.h"
#include "Pet/WaitingScenes.h"

#include <numbers>

namespace mimkins::scene {

using namespace away;

namespace {

constexpr double lean = 0.42;

/// Darker and warmer, and still the pet's own colour.
void sunTan(PetColors& colors, double part) {
    for (Color* color : {&colors.top, &colors.bottom, &colors.limb, &colors.hand}) {
        *color = mix(*color, {0.86 * color->red, 0.7 * color->green, 0.62 * color->blue}, part);
    }
}

void legsInTheSun(const PetPainter& pet) {
    for (const double i : {0.0, 1.0}) {
        const double wiggle = 1.3 * std::sin(1.9 * pet.t + 2.4 * i);
        pet.line({{46 + 2 * i, 80 + 3 * i}, {33 + 4 * i, 83 + 3 * i}}, pet.colors.limb, 4.4);
        pet.ellipse(29.5 + 4 * i + wiggle, 75 + 3 * i, 5.5, 10, pet.colors.limb);
    }
}

void sunglasses(const PetPainter& body) {
    const double y = body.eyeLine();
    const Color dark{0.1, 0.1, 0.14};
    body.line({{24 + body.thin, y + 1}, {76 - body.thin, y + 1}}, dark, 2.6);
    body.rounded(30.5, y - 1, 18, 13, 5.5, dark);
    body.rounded(51.5, y - 1, 18, 13, 5.5, dark);
    body.polygon({{34, y + 6}, {39, y + 1}, {42, y + 1}, {35.5, y + 8}}, Color::white(0.6));
    body.polygon({{55, y + 6}, {60, y + 1}, {63, y + 1}, {56.5, y + 8}}, Color::white(0.6));
}

void sunbather(const PetPainter& pet) {
    const double sip = during(within(pet.t, 11), 3, 6.5, 1);
    PetPainter body = pet.moved(8, 11).turned({50, 76}, lean).scaled({50, 76}, 0.6, 0.6);
    body.squash = 1 + std::sin(1.2 * pet.t);
    legsInTheSun(pet);
    body.torso();
    sunglasses(body);
    body.mouth(sip > 0.6 ? Mouth::small : Mouth::smile);
    body.arm(Side::right, {100, 46}, {80, 27});
    const Point hand = mix(Point{6, 50 + std::sin(1.2 * pet.t)}, Point{38, 74}, sip);
    seaside::drink(body.turned(hand, -lean - 0.12 + 0.5 * sip), {hand.x, hand.y - 3});
    body.arm(Side::left, {mix(4, 14, sip), 72}, hand);
}

void remains(const PetPainter& pet) {
    PetPainter dust = pet.moved(8, 2).scaled({50, 90}, 0.55, 0.55);
    dustPile(dust);
}

/// An hour's glass, again and again.
void hoursGlass(const PetPainter& pet, double minutes) {
    pet.ellipse(81, 92, 16, 3.6, Color::black(0.16));
    pet.polygon({{84, 75}, {95, 75}, {91, 83}, {95, 91}, {84, 91}, {88, 83}}, Color{0.2, 0.36, 0.58});
    pet.drawHourglass({89.5, 83}, 1.1, 0, within(minutes, 60) / 60);
}

} // namespace

void beach(PetPainter& pet, std::optional<double> minutesOut) {
    const seaside::Stay stay = seaside::stay(minutesOut);
    sunTan(pet.colors, stay.tan);
    seaside::sun(pet, stay.evening);
    seaside::gull(pet);
    seaside::sea(pet, stay.evening);
    seaside::boat(pet);
    seaside::sand(pet, stay.evening);
    seaside::parasol(pet);
    pet.ellipse(34, 90, 54, 7, Color::black(0.14));
    seaside::deckChair(pet);
    if (stay.dust) {
        remains(pet);
    } else {
        sunbather(pet);
    }
    seaside::footprints(pet, stay.steps);
    seaside::castle(pet, stay);
    if (minutesOut) {
        hoursGlass(pet, *minutesOut);
    } else {
        seaside::beachBall(pet);
    }
    seaside::crab(pet);
}

} // namespace mimkins::scene
