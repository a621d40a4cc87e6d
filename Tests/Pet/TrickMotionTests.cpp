#include "Motion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>

namespace mimkins::test {

namespace {

using enum Routine;

constexpr double framesPerSecond = 48;

/// How a routine may move.
struct Bounds {
    Routine routine = ukulele;
    double length = 120;             ///< seconds to look at
    double step = 4;                 ///< units that a point may go in one frame
    double margin = 4;               ///< units that a point may lie outside of the square
    std::optional<bool> manner = {}; ///< of the routine
};

std::ostream& operator<<(std::ostream& out, const Bounds& bounds) {
    return out << name(bounds.routine) << (bounds.manner.value_or(false) ? " (other manner)" : "");
}

class TrickMotion : public testing::TestWithParam<Bounds> {
protected:
    static Moment at(int frame) {
        const Bounds& bounds = GetParam();
        return {.routine = bounds.routine, .t = frame / framesPerSecond, .manner = bounds.manner};
    }

    static int frames() { return static_cast<int>(GetParam().length * framesPerSecond); }
};

/// Whether the eyes of the recorded pet are shut for a moment.
bool blinks(int frame) {
    constexpr double offset = 0.8;
    return std::fmod(frame / framesPerSecond + offset, 3.7) < 0.12;
}

/// How far a command is from the nearest of its kind, for what passes before and behind the pet by turns.
double nearest(const Shot& shot, std::size_t index, const Shot& others) {
    double least = 1000;
    for (std::size_t other = 0; other < others.size(); ++other) {
        if (shot.commands()[index].index() == others.commands()[other].index() &&
            shot.points(index).size() == others.points(other).size()) {
            least = std::min(least, distance(shot.points(index), others.points(other)));
        }
    }
    return least;
}

void expectInside(const Shot& shot, double margin, int frame) {
    for (std::size_t index = 0; index < shot.size(); ++index) {
        const double edge = margin - reach(shot.commands()[index]);
        for (const Point point : shot.points(index)) {
            ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y)) << frame;
            ASSERT_GE(std::min(point.x, point.y), -edge) << frame;
            ASSERT_LE(std::max(point.x, point.y), 100 + edge) << frame;
        }
    }
}

/// What is hardly seen may begin again elsewhere.
void expectNoJump(const Shot& before, const Shot& after, double step, int frame) {
    for (std::size_t index = 0; index < after.size(); ++index) {
        if (opacity(before.commands()[index]) >= 0.15 && opacity(after.commands()[index]) >= 0.15) {
            const double gone = distance(before.points(index), after.points(index));
            ASSERT_LE(gone > step ? nearest(after, index, before) : gone, step)
                << frame << " command " << index;
        }
    }
}

TEST_P(TrickMotion, FollowsFromTheMoment) {
    for (int frame = 0; frame < frames(); frame += 37) {
        ASSERT_EQ(inJson(record(at(frame))), inJson(record(at(frame)))) << frame;
    }
}

TEST_P(TrickMotion, StaysInTheSquareOfFewShapesAndNeverJumps) {
    Shot before;
    Shot after;
    int compared = 0;
    for (int frame = 0; frame < frames(); ++frame) {
        after.take(at(frame));
        ASSERT_LE(after.size(), 45U) << frame;
        ASSERT_NO_FATAL_FAILURE(expectInside(after, GetParam().margin, frame));
        if (frame > 0 && haveSameShapes(before, after) && blinks(frame - 1) == blinks(frame)) {
            ++compared;
            ASSERT_NO_FATAL_FAILURE(expectNoJump(before, after, GetParam().step, frame));
        }
        std::swap(before, after);
    }
    EXPECT_GT(compared, frames() * 8 / 10);
}

// The eyes jump to what is thrown. The greeting that ends the peek is a routine of its own. The pets of the
// two peeks and of the butterfly leave the stage. Blows and leaps are quicker than all else.
INSTANTIATE_TEST_SUITE_P(
    Routines, TrickMotion,
    testing::Values(
        Bounds{ukulele}, Bounds{meditate}, Bounds{hulaHoop}, Bounds{butterfly}, Bounds{balloon},
        Bounds{skateboard}, Bounds{peekaboo, 120, 12}, Bounds{popcorn, 120, 10},
        Bounds{peekAround, 4.9, 8, 110}, Bounds{boredThenButterfly, 8.9, 4, 110}, Bounds{wipeBrow, 2.8, 8},
        Bounds{coffee}, Bounds{.routine = coffee, .manner = true}, Bounds{flyingKick, 6, 10},
        Bounds{karateChop, 6, 20, 100}, Bounds{punches, 120, 18, 9}, Bounds{guruHover}
    )
);

} // namespace

} // namespace mimkins::test
