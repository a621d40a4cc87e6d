#include "Motion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace mimkins::test {

namespace {

constexpr double frameLength = 1.0 / 48;
constexpr int frames = 120 * 48;

/// Units that lines and flourishes may reach beyond the square.
constexpr double margin = 4;

constexpr std::array calls{
    Routine::bothArmsWave, Routine::impatient,       Routine::jumpWave,      Routine::handUp,
    Routine::planSign,     Routine::presentParcel,   Routine::wallClock,     Routine::waitingWithHourglass,
    Routine::pointAtClock, Routine::cobweb,          Routine::skeleton,      Routine::dustPile,
    Routine::celebrate,    Routine::holdingEnvelope, Routine::readingLetter, Routine::yawnSitting};

/// How far a point may go from one frame to the next, in units.
double bound(Routine routine) {
    switch (routine) {
    case Routine::jumpWave:
        return 6.5; // throws its arms up
    case Routine::dustPile:
        return 6; // the wings of the flies
    default:
        return 4;
    }
}

/// True at the frame in which a glass that was turned over begins again as the upright one, which looks
/// alike.
bool beginsAgain(Routine routine, int frame) {
    return routine == Routine::waitingWithHourglass && frame % (5 * 48) == 0;
}

Moment momentOf(Routine routine, int frame) {
    Moment moment;
    moment.routine = routine;
    moment.t = frame * frameLength;
    moment.elapsed = 1000;
    if (routine == Routine::planSign) {
        PetFrame pet = petFrame({PetAction::holdingPlan, moment.seed, Date{}, 0, false}, {}, Date{});
        pet.t = moment.t;
        moment.manner = pet.choose(2, 6, 4).index == 1;
    }
    return moment;
}

bool inSquare(Point point, double reach) {
    const auto fits = [&](double value) { return value - reach >= -margin && value + reach <= 100 + margin; };
    return std::isfinite(point.x) && std::isfinite(point.y) && fits(point.x) && fits(point.y);
}

class WaitingMotion : public testing::TestWithParam<Routine> {};

/// True for the eyes when they close or open again: the tall box gives way to the flat one.
bool isBlink(std::span<const Point> before, std::span<const Point> now) {
    const auto height = [](std::span<const Point> points) {
        return points.size() == 4 ? points[1].y - points[0].y : 0;
    };
    const double larger = std::max(height(before), height(now));
    const double smaller = std::min(height(before), height(now));
    return std::fabs(larger - 11) < 0.01 && std::fabs(smaller - 2.2) < 0.01;
}

bool isUnseen(const DrawCommand& command) {
    return opacity(command) < 0.02;
}

void expectInSquare(const Shot& shot, double t) {
    for (std::size_t i = 0; i < shot.size(); ++i) {
        const double edge = reach(shot.commands()[i]);
        for (const Point& point : shot.points(i)) {
            if (!inSquare(point, edge)) {
                FAIL() << t << ": " << point.x << ' ' << point.y << '\n' << toJson(shot.commands()[i]);
            }
        }
    }
}

void expectNoJump(const Shot& before, const Shot& now, double limit, double t) {
    if (!haveSameShapes(before, now)) {
        return;
    }
    for (std::size_t i = 0; i < now.size(); ++i) {
        const double gone = distance(before.points(i), now.points(i));
        if (gone > limit && !isBlink(before.points(i), now.points(i)) && !isUnseen(before.commands()[i]) &&
            !isUnseen(now.commands()[i])) {
            FAIL() << t << ": " << gone << " units\n"
                   << toJson(before.commands()[i]) << '\n'
                   << toJson(now.commands()[i]);
        }
    }
}

TEST_P(WaitingMotion, staysInTheSquareAndMovesWithoutJumps) {
    Shot before;
    Shot now;
    for (int frame = 0; frame < frames; ++frame) {
        const double t = frame * frameLength;
        now.take(momentOf(GetParam(), frame));
        ASSERT_NO_FATAL_FAILURE(expectInSquare(now, t));
        if (frame > 0 && !beginsAgain(GetParam(), frame)) {
            ASSERT_NO_FATAL_FAILURE(expectNoJump(before, now, bound(GetParam()), t));
        }
        std::swap(before, now);
    }
}

TEST_P(WaitingMotion, followsFromItsMomentAlone) {
    for (int frame = 0; frame < frames; frame += 97) {
        const Moment moment = momentOf(GetParam(), frame);
        ASSERT_EQ(inJson(record(moment)), inJson(record(moment)));
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, WaitingMotion, testing::ValuesIn(calls),
    [](const testing::TestParamInfo<Routine>& routine) { return std::string(name(routine.param)); }
);

/// The bubble's box and a little air; its tail may touch the pet.
constexpr Rect bubbleBox{76, 2, 20, 18};

bool touchesBubble(std::span<const Point> points, double air) {
    return std::any_of(points.begin(), points.end(), [&](const Point& point) {
        return point.x + air > bubbleBox.x && point.y - air < bubbleBox.maxY();
    });
}

/// Lines, and boxes of the size of hands; the body itself may reach behind the bubble.
bool isLimb(const DrawCommand& command, std::span<const Point> points) {
    const bool isBox = points.size() == 4 && std::holds_alternative<FillCommand>(command);
    return std::holds_alternative<StrokeCommand>(command) || (isBox && points[3].x - points[0].x < 20);
}

class BesideTheBubble : public testing::TestWithParam<Routine> {};

TEST_P(BesideTheBubble, keepsItsHandsOut) {
    Shot shot;
    for (int frame = 0; frame < 40 * 48; ++frame) {
        shot.take(momentOf(GetParam(), frame));
        for (std::size_t i = 0; i < shot.size(); ++i) {
            const DrawCommand& command = shot.commands()[i];
            ASSERT_FALSE(isLimb(command, shot.points(i)) && touchesBubble(shot.points(i), reach(command)))
                << frame * frameLength << ": " << toJson(command);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, BesideTheBubble,
    testing::Values(
        Routine::bothArmsWave, Routine::impatient, Routine::jumpWave, Routine::waitingWithHourglass,
        Routine::pointAtClock
    ),
    [](const testing::TestParamInfo<Routine>& routine) { return std::string(name(routine.param)); }
);

} // namespace

} // namespace mimkins::test
