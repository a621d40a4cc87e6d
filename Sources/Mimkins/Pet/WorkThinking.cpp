#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <array>
#include <cmath>
#include <numbers>

namespace mimkins::scene {

namespace {

using namespace work;

void brow(const PetPainter& pet, double x, double outer, double inner, double direction) {
    const double y = pet.eyeLine() - 4;
    pet.line({{x - 4 * direction, y + outer}, {x + 4 * direction, y + inner}}, pet.colors.ink, 2.2);
}

/// One hand on the chin and the other under its elbow. As far as an idea has `raised` it, the first goes up
/// with its finger ahead, and the other to the hip.
void thinkingArms(const PetPainter& pet, double rub, double raised) {
    const double y = pet.bob;
    const auto pose = [&](Point thinking, Point pointing) {
        const Point at = mix(thinking, pointing, raised);
        return Point{at.x, at.y + y};
    };
    pet.arm(Side::left, pose({17, 80}, {12, 63}), pose({69, 73.5}, {26, 68}));
    const Point hand = pose({58 + rub, 67}, {88, 34 + rub});
    pet.arm(Side::right, pose({97, 79}, {90, 56}), hand);
    // The hand lies on the body, whose colour is near its own: an edge sets it off.
    Path fingers;
    fingers.addLines(std::array<Point, 3>{
        {{hand.x + 2, hand.y - 8.5}, hand, {hand.x - 6 + 4 * raised, hand.y - 1}}});
    pet.disc(hand, 5.6, pet.colors.limb);
    pet.stroke(fingers, pet.colors.limb, 5.8);
    pet.disc(hand, 4.2, pet.colors.hand);
    pet.stroke(fingers, pet.colors.hand, 3.2);
}

// The idea comes once in twenty seconds, at one of three moments.
constexpr double ideaEvery = 20;
constexpr double ideaEnds = 15;
constexpr std::uint64_t ideaSalt = 25;

struct Idea {
    double since = -1; ///< seconds since it came, below 0 without one
    double light = 0;
    double raised = 0; ///< how far the hand went up for it
};

Idea ideaAt(const PetPainter& pet) {
    const SlotChoice choice = pet.choose(3, ideaEvery, ideaSalt);
    const double comes = 3 + 2 * choice.index;
    const double since = choice.phase - comes;
    // A first flicker that comes to nothing, and then the idea.
    const double flicker = 0.35 * between(since, -1, -0.9) * (1 - between(since, -0.8, -0.65));
    const double fading = 1 - between(choice.phase, ideaEnds - 0.5, ideaEnds);
    return {
        choice.phase < ideaEnds ? since : -1, flicker + between(since, 0, 0.12) * fading,
        between(since, 0.05, 0.35) * fading};
}

Color blend(const Color& from, const Color& to, double share) {
    return {
        mix(from.red, to.red, share), mix(from.green, to.green, share), mix(from.blue, to.blue, share),
        mix(from.opacity, to.opacity, share)};
}

void bulb(const PetPainter& pet, Point center, double light) {
    const Color glow{1, 0.88, 0.3, 0.6};
    const Color glassColor = blend(Color::grey(0.8), {1, 0.85, 0.2}, light);
    if (light > 0) {
        pet.faded(light).disc(center, 18, RadialGradient{{glow, glow.faded(0)}, center, 7, 18});
    }
    pet.rounded(center.x - 4, center.y + 6, 8, 9, 2.5, Color::grey(0.45));
    pet.line({{center.x - 3.5, center.y + 11}, {center.x + 3.5, center.y + 11}}, Color::grey(0.75), 1.4);
    pet.disc(center, 9.5, glassColor);
    pet.ring(center, 9.5, edge, 1.1);
    pet.line(
        {{center.x - 2.5, center.y + 6},
         {center.x - 3, center.y},
         {center.x, center.y + 2.5},
         {center.x + 3, center.y},
         {center.x + 2.5, center.y + 6}},
        blend(Color::grey(0.45), {0.75, 0.4, 0}, light), 1.4
    );
    pet.ellipse(center.x - 6, center.y - 6, 4.5, 5, Color::white(0.8));
}

void bulbRays(const PetPainter& pet, Point center, double light) {
    if (light < 0.5) {
        return;
    }
    const PetPainter shown = pet.faded(2 * light - 1);
    const double near = 13 + 0.8 * std::sin(6 * pet.t);
    for (const double angle : {-3.65, -3.14, -2.63, -0.51, 0.0, 0.51}) {
        const Point way{std::cos(angle), std::sin(angle)};
        shown.line(
            {{center.x + near * way.x, center.y + near * way.y},
             {center.x + (near + 5) * way.x, center.y + (near + 5) * way.y}},
            Color::named(NamedColor::yellow), 2.8
        );
    }
}

Eyes thinkingEyes(const PetPainter& pet, double since) {
    if (since < 0) {
        return Eyes::look(pet.lookAround(), -2);
    }
    return since < 1.4 ? Eyes::wide() : Eyes::happy();
}

Mouth thinkingMouth(double since) {
    if (since < 0) {
        return Mouth::flat;
    }
    return since < 2.4 ? Mouth::open : Mouth::smile;
}

} // namespace

void chin(PetPainter& pet) {
    const double nod = std::sin(1.2 * pet.t);
    pet.bob = 0.9 * nod;
    pet.shadow();
    pet.legs(Legs::still);
    pet.torso();
    const double glance = pet.lookAround();
    pet.eyes(Eyes::look(glance, -2));
    brow(pet, 40 + 0.5 * glance, -1.5, -0.5, 1);
    brow(pet, 60 + 0.5 * glance, 0.5 - nod, -2.5 - nod, -1);
    pet.line({{45, pet.mouthLine()}, {52, pet.mouthLine() - 1.2}}, pet.colors.ink, 2.2);
    thinkingArms(pet, 1.1 * std::sin(3.6 * pet.t), 0);
    pet.thoughtDots();
}

void pace(PetPainter& pet) {
    const double way = std::cos(1.4 * pet.t);
    const double step = std::fabs(std::sin(9 * pet.t));
    pet.shiftX = 11 * std::sin(1.4 * pet.t);
    pet.bob = -1.6 * step;
    pet.shadow();
    pet.legs(Legs::walking);
    // The hands are on the back, so that only the elbows show.
    pet.curve({26, pet.bob + 54}, {10, pet.bob + 62}, {28, pet.bob + 70}, pet.colors.limb, 5.5);
    pet.curve({74, pet.bob + 54}, {90, pet.bob + 62}, {72, pet.bob + 70}, pet.colors.limb, 5.5);
    pet.torso();
    const double look = 4.5 * way;
    pet.eyes(Eyes::look(look, 1));
    brow(pet, 40 + look, -1.5, 0.8, 1);
    brow(pet, 60 + look, -1.5, 0.8, -1);
    const double y = pet.mouthLine();
    pet.curve({46 + look, y + 1}, {50 + look, y - 2}, {54 + look, y + 1}, pet.colors.ink, 2.2);
}

void lightbulb(PetPainter& pet) {
    const Idea idea = ideaAt(pet);
    pet.squash = 3 * (1 - idea.raised);
    pet.bob = 2 + 0.6 * std::sin(1.2 * pet.t) - 3 * std::sin(std::numbers::pi * between(idea.since, 0, 0.5));
    pet.standing(Legs::still, thinkingEyes(pet, idea.since), thinkingMouth(idea.since));
    thinkingArms(pet, mix(0.8, 2, idea.raised) * std::sin(3.6 * pet.t), idea.raised);
    const Point center{50, 10.5 + 0.7 * std::sin(2 * pet.t)};
    bulb(pet, center, idea.light);
    bulbRays(pet, center, idea.light);
}

} // namespace mimkins::scene
