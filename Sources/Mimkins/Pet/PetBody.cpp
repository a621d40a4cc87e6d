#include "Pet/PetPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

constexpr double legWidth = 6;
constexpr double armWidth = 5;
constexpr double handRadius = 3.6;
constexpr double blinkCycle = 3.7;
constexpr double blinkLength = 0.12;

struct LegPose {
    Point ankle;
    Rect foot;
};

/// `side` is -1 for the left leg and +1 for the right; `x` is its root.
LegPose legPose(Legs kind, double t, double rootY, double x, double side) {
    switch (kind) {
    case Legs::still:
        return {{x, 89}, {x - 5 + 2 * side, 87, 11, 6}};
    case Legs::tapping: {
        const double lift = side > 0 ? std::max(std::sin(18 * t), 0.0) * 4 : 0;
        return {{x, 89 - lift}, {x - 5 + 2 * side, 87 - lift, 11, 6}};
    }
    case Legs::tucked:
        return {{x, rootY + 6}, {x - 5 + 2 * side, rootY + 5, 10, 5}};
    case Legs::spread:
        return {{x + 6 * side, 90}, {x + 6 * side - 5, 87, 10, 6}};
    case Legs::walking: {
        const double step = std::sin(9 * t + (side > 0 ? std::numbers::pi : 0));
        const double lift = std::max(step, 0.0) * 4;
        return {{x + 3 * step, 89 - lift}, {x + 3 * step - 5 + 2 * side, 87 - lift, 11, 6}};
    }
    }
    return {};
}

} // namespace

void PetPainter::shadow() const {
    const double lift = bob <= 0 ? -bob / 14 : 0;
    const double width = std::max(1 - 0.4 * lift, 0.0) * 46;
    ellipse(50 - width / 2, 91, width, 6, Color::black(std::clamp(1 - 0.5 * lift, 0.0, 1.0) * 0.22));
}

void PetPainter::legs(Legs kind) const {
    const double rootY = bob + 74;
    for (const double side : {-1.0, 1.0}) {
        const double x = 50 + 10 * side;
        const LegPose pose = legPose(kind, t, rootY, x, side);
        line({{x, rootY}, pose.ankle}, colors.limb, legWidth);
        ellipse(pose.foot.x, pose.foot.y, pose.foot.width, pose.foot.height, colors.limb);
    }
}

void PetPainter::stanceLegs() const {
    const double rootY = bob + 74;
    line({{40, rootY}, {31, 88}}, colors.limb, legWidth);
    line({{60, rootY}, {69, 88}}, colors.limb, legWidth);
    ellipse(24, 86, 12, 6, colors.limb);
    ellipse(64, 86, 12, 6, colors.limb);
}

void PetPainter::leg(Point root, Point ankle, Point footCorner) const {
    line({root, ankle}, colors.limb, legWidth);
    ellipse(footCorner.x, footCorner.y, 11, 6, colors.limb);
}

void PetPainter::torso() const {
    const Rect box{22 + thin, bob + 26 + squash, 56 - 2 * thin, 50 - squash};
    const Path body = Path::roundedRect(box, 16 - 0.6 * thin, CornerStyle::continuous);
    fill(body, LinearGradient{{colors.top, colors.bottom}, {50, bob + 26}, {50, bob + 76}});
    rounded(28 + thin, bob + 30 + squash, 18 - 0.5 * thin, 6, 3, Color::white(0.25));
    if (outline) {
        stroke(body, *outline, 2);
    }
}

void PetPainter::eyes(Eyes kind) const {
    const double line_ = eyeLine();
    const Color& ink = colors.ink;
    switch (kind.kind) {
    case Eyes::Kind::looking:
        if (std::fmod(t + blinkOffset, blinkCycle) >= blinkLength) {
            rounded(37.4 + kind.dx, line_ + kind.dy, 5.2, 11, 2.6, ink);
            rounded(57.4 + kind.dx, line_ + kind.dy, 5.2, 11, 2.6, ink);
        } else {
            rounded(37 + kind.dx, line_ + 5, 6, 2.2, 1.1, ink);
            rounded(57 + kind.dx, line_ + 5, 6, 2.2, 1.1, ink);
        }
        break;
    case Eyes::Kind::wide:
        for (const double x : {36.5, 56.5}) {
            ellipse(x, line_ - 1, 7, 13, ink);
            ellipse(x + 2.5, line_ + 1, 2.5, 3, Color::white());
        }
        break;
    case Eyes::Kind::happy:
        line({{36, line_ + 7}, {40, line_ + 2}, {44, line_ + 7}}, ink, 2.6);
        line({{56, line_ + 7}, {60, line_ + 2}, {64, line_ + 7}}, ink, 2.6);
        break;
    case Eyes::Kind::closed:
        line({{36, line_ + 6}, {44, line_ + 6}}, ink, 2.4);
        line({{56, line_ + 6}, {64, line_ + 6}}, ink, 2.4);
        break;
    }
}

void PetPainter::mouth(Mouth kind) const {
    const double y = mouthLine();
    const Color& ink = colors.ink;
    switch (kind) {
    case Mouth::none:
        break;
    case Mouth::flat:
        line({{47, y}, {53, y}}, ink, 2.2);
        break;
    case Mouth::small:
        ellipse(46, y - 2, 8, 6, ink);
        break;
    case Mouth::smile:
        curve({44, y - 1}, {50, y + 6}, {56, y - 1}, ink, 2.4);
        break;
    case Mouth::wavy:
        line({{44, y + 1}, {47, y - 1}, {50, y + 1}, {53, y - 1}, {56, y + 1}}, ink, 2);
        break;
    case Mouth::open:
        ellipse(46, y - 3, 8, 10, ink);
        break;
    case Mouth::whistle:
        stroke(Path::ellipse({48, y - 1.5, 4, 4}), ink, 1.8);
        break;
    }
}

Point PetPainter::shoulder(Side side) const {
    return {side == Side::left ? 24 + thin : 76 - thin, bob + 56};
}

void PetPainter::arm(Side side, Point control, Point hand) const {
    curve(shoulder(side), control, hand, colors.limb, armWidth);
    disc(hand, handRadius, colors.hand);
}

void PetPainter::armDown(Side side, double swing) const {
    const Point root = shoulder(side);
    const double towards = inward(side);
    arm(side, {root.x - 6 * towards, bob + 64}, {root.x + swing - 3 * towards, bob + 73});
}

void PetPainter::waveArm(Side side, double speed) const {
    const Point root = shoulder(side);
    const double towards = inward(side);
    arm(side, {root.x - 10 * towards, bob + 46}, {root.x + 8 * std::sin(speed * t) - 12 * towards, bob + 32});
}

void PetPainter::armsOnHips() const {
    armsOnHipsLeftOnly();
    const Point root = shoulder(Side::right);
    arm(Side::right, {root.x + 12, bob + 63}, {root.x - 2, bob + 68});
}

void PetPainter::armsOnHipsLeftOnly() const {
    const Point root = shoulder(Side::left);
    arm(Side::left, {root.x - 12, bob + 63}, {root.x + 2, bob + 68});
}

void PetPainter::standing(Legs legsKind, Eyes eyesKind, Mouth mouthKind) const {
    shadow();
    legs(legsKind);
    torso();
    eyes(eyesKind);
    mouth(mouthKind);
}

double PetPainter::lookAround() const {
    constexpr std::array<double, 4> offsets{-2.5, 0, 2.5, 0};
    const double step = std::floor(t / 1.3);
    return offsets[static_cast<std::size_t>(step - 4 * std::floor(step / 4))];
}

} // namespace mimkins
