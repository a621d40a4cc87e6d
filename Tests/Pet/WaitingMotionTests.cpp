#include "Motion.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

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
    case Routine::wallClock:
        return 1; // the second hand ticks
    case Routine::planSign:
        return 6; // it sets off and stops with a step
    case Routine::dustPile:
        return 5.5; // the wings of the flies
    case Routine::handUp:
        return 6; // another pose moves the hand on its brow line
    default:
        return 4;
    }
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

std::string inJson(const std::vector<DrawCommand>& commands) {
    std::string all;
    for (const DrawCommand& command : commands) {
        all += toJson(command) + '\n';
    }
    return all;
}

class WaitingMotion : public testing::TestWithParam<Routine> {};

TEST_P(WaitingMotion, staysInTheSquare) {
    for (int frame = 0; frame < frames; ++frame) {
        for (const DrawCommand& command : record(momentOf(GetParam(), frame))) {
            for (const Point& point : positions(command)) {
                ASSERT_TRUE(inSquare(point, reach(command)))
                    << frame * frameLength << ": " << point.x << ' ' << point.y << '\n'
                    << toJson(command);
            }
        }
    }
}

TEST_P(WaitingMotion, movesWithoutJumps) {
    auto before = record(momentOf(GetParam(), 0));
    for (int frame = 1; frame < frames; ++frame) {
        auto now = record(momentOf(GetParam(), frame));
        bool comparable = now.size() == before.size();
        for (std::size_t i = 0; comparable && i < now.size(); ++i) {
            comparable = haveSameShape(before[i], now[i]);
        }
        for (std::size_t i = 0; comparable && i < now.size(); ++i) {
            ASSERT_LE(distance(before[i], now[i]), bound(GetParam()))
                << frame * frameLength << ": " << toJson(before[i]) << '\n'
                << toJson(now[i]);
        }
        before = std::move(now);
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

bool touchesBubble(const DrawCommand& command) {
    const double air = reach(command);
    for (const Point& point : positions(command)) {
        if (point.x + air > bubbleBox.x && point.y - air < bubbleBox.maxY()) {
            return true;
        }
    }
    return false;
}

class BesideTheBubble : public testing::TestWithParam<Routine> {};

TEST_P(BesideTheBubble, keepsItsHandsOut) {
    for (int frame = 0; frame < frames; ++frame) {
        for (const DrawCommand& command : record(momentOf(GetParam(), frame))) {
            const bool limb = std::holds_alternative<StrokeCommand>(command) ||
                              positions(command).size() == 4; // hands are discs, told by their boxes
            const auto points = positions(command);
            const bool body = points.size() == 4 && points.back().x - points.front().x > 20;
            ASSERT_FALSE(limb && !body && touchesBubble(command))
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
