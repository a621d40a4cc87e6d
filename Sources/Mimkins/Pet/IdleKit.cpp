#include "Pet/IdleKit.h"

#include "Pet/Tempo.h"

#include <cmath>

namespace mimkins::idle {

ArmPose restingArm(const PetPainter& pet, Side side) {
    const Point root = pet.shoulder(side);
    const double towards = inward(side);
    return {{root.x - 6 * towards, pet.bob + 64}, {root.x - 3 * towards, pet.bob + 73}};
}

ArmPose mix(const ArmPose& from, const ArmPose& to, double part) {
    return {tempo::mix(from.control, to.control, part), tempo::mix(from.hand, to.hand, part)};
}

void drawArm(const PetPainter& pet, Side side, const ArmPose& pose) {
    pet.arm(side, pose.control, pose.hand);
}

Point mirrored(Side side, Point left) {
    return side == Side::left ? left : Point{100 - left.x, left.y};
}

double breath(const PetPainter& pet) {
    return 0.6 * std::sin(1.7 * pet.t);
}

void cheeks(const PetPainter& pet, double opacity) {
    const Color blush{1, 0.35, 0.42, 0.5 * opacity};
    const double y = pet.mouthLine() - 3;
    pet.ellipse(28.5, y - 2.4, 8.5, 5.4, blush);
    pet.ellipse(63, y - 2.4, 8.5, 5.4, blush);
}

void shout(const PetPainter& pet, std::string_view text, Point center, double size, const Color& color) {
    const Color edge = pet.colors.ink.faded(0.75);
    pet.word(text, {center.x + 0.9, center.y + 0.9}, size, edge);
    pet.word(text, center, size, color);
}

void hangingLegs(const PetPainter& pet, double lift, double apart) {
    for (const double side : {-1.0, 1.0}) {
        const double x = 50 + 10 * side;
        const double foot = 89 - lift;
        pet.leg({x, pet.bob + 74}, {x + apart * side, foot}, {x + apart * side - 5.5 + 2 * side, foot - 2});
    }
}

} // namespace mimkins::idle
