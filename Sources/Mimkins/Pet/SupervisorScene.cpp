#include "Pet/AwayMotion.h"
#include "Pet/AwayScenes.h"

namespace mimkins::scene {

using namespace away;

namespace {

constexpr Point rearFoot{77, 92};

void footrest(const PetPainter& pet) {
    pet.rounded(2, 68, 23, 25, 2.5, lightWood);
    pet.rounded(2, 68, 23, 6, 2.5, brown);
    pet.rounded(5, 80, 17, 2.5, 1, brown);
}

/// Upright with its rear foot on the ground; the painter leans it back.
void chair(const PetPainter& pet) {
    pet.line({{70, 78}, rearFoot}, darkBrown, 4);
    pet.line({{32, 80}, {28, 92}}, darkBrown, 4);
    pet.rounded(69, 32, 7, 50, 3.5, brown);
    pet.rounded(27, 76, 47, 6, 3, brown);
}

void hardHat(const PetPainter& pet) {
    const Color yellow{1, 0.78, 0.16};
    const double top = pet.bob + pet.squash;
    Path dome;
    dome.move({29, top + 29});
    dome.addCurve({71, top + 29}, {30, top + 4}, {70, top + 4});
    dome.closeSubpath();
    pet.fill(dome, yellow);
    pet.rounded(45, top + 7.5, 10, 20, 4, Color{1, 0.88, 0.42});
    pet.rounded(22, top + 26, 56, 5.5, 2.7, Color{0.93, 0.66, 0.08});
}

void praise(const PetPainter& pet, double shown) {
    if (shown <= 0) {
        return;
    }
    constexpr Point center{22, 34};
    const PetPainter growing = pet.scaled({32, 42}, shown, shown).faded(shown);
    growing.rounded(center.x - 15.5, center.y - 7.5, 31, 15, 6, Color::grey(0.62));
    growing.rounded(center.x - 14.7, center.y - 6.7, 29.4, 13.4, 5.4, pet.colors.paper);
    growing.word("good!", center, 8, pet.colors.ink);
}

void legsOnFootrest(const PetPainter& pet, double lean) {
    for (const double shift : {0.0, 1.0}) {
        const Point root = turnedAbout({42 + 6 * shift, 72}, rearFoot, lean);
        const double toe = 1.2 * shift * std::sin(1.8 * pet.t);
        pet.line({root, {13 + 8 * shift, 65}}, pet.colors.limb, 5);
        pet.ellipse(9 + 8 * shift + toe, 55, 6, 11, pet.colors.limb);
    }
}

} // namespace

void supervisor(PetPainter& pet) {
    const double lean = 0.17 + 0.05 * std::sin(0.9 * pet.t);
    const double sip = during(within(pet.t, 10), 1, 4.2, 0.8);
    const double word = during(within(pet.t, 3.6), 0.3, 2.7, 0.35);
    pet.shadow();
    footrest(pet);
    chair(pet.turned(rearFoot, lean));
    const PetPainter body = pet.turned(rearFoot, lean).moved(-2, 0).scaled({50, 76}, 0.74, 0.74);
    body.torso();
    body.eyes(sip > 0.6 ? Eyes::happy() : Eyes::look(-1.5 + 0.6 * pet.lookAround(), 1));
    body.mouth(sip > 0.6 ? Mouth::none : Mouth::smile);
    hardHat(body);
    legsOnFootrest(pet, lean);
    body.armDown(Side::left, 2 * std::sin(0.9 * pet.t));
    const Point hand = mix(Point{82, 66}, Point{63, 63}, sip);
    body.scaled({hand.x - 4, hand.y - 2}, 1.5, 1.5).mug({hand.x - 7, hand.y - 3}, Steam::rising);
    body.arm(Side::right, {mix(90, 84, sip), mix(66, 72, sip)}, hand);
    pet.notes(78, 32);
    praise(pet, word);
}

} // namespace mimkins::scene
