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
    static std::vector<DrawCommand> at(int frame) {
        const Bounds& bounds = GetParam();
        return record({.routine = bounds.routine, .t = frame / framesPerSecond, .manner = bounds.manner});
    }

    static int frames() { return static_cast<int>(GetParam().length * framesPerSecond); }
};

bool haveSameShapes(const std::vector<DrawCommand>& left, const std::vector<DrawCommand>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), haveSameShape);
}

/// What is hardly seen may begin again elsewhere.
double opacity(const DrawCommand& command) {
    return std::visit([](const auto& one) { return one.state.opacity; }, command);
}

/// Whether the eyes of the recorded pet are shut for a moment.
bool blinks(int frame) {
    constexpr double offset = 0.8;
    return std::fmod(frame / framesPerSecond + offset, 3.7) < 0.12;
}

/// How far the command is from the nearest of its kind, for what passes before and behind the pet by turns.
double nearest(const DrawCommand& command, const std::vector<DrawCommand>& others) {
    double least = 1000;
    for (const DrawCommand& other : others) {
        if (haveSameShape(command, other)) {
            least = std::min(least, distance(command, other));
        }
    }
    return least;
}

std::string told(const std::vector<DrawCommand>& commands) {
    std::string all;
    for (const DrawCommand& command : commands) {
        all += toJson(command) + '\n';
    }
    return all;
}

TEST_P(TrickMotion, StaysInTheSquare) {
    const double margin = GetParam().margin;
    for (int frame = 0; frame < frames(); ++frame) {
        for (const DrawCommand& command : at(frame)) {
            const double width = reach(command);
            for (const Point point : positions(command)) {
                ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y)) << frame;
                ASSERT_GE(std::min(point.x, point.y) - width, -margin) << frame;
                ASSERT_LE(std::max(point.x, point.y) + width, 100 + margin) << frame;
            }
        }
    }
}

TEST_P(TrickMotion, FollowsFromTheMoment) {
    for (int frame = 0; frame < frames(); frame += 37) {
        ASSERT_EQ(told(at(frame)), told(at(frame))) << frame;
    }
}

TEST_P(TrickMotion, NeverJumps) {
    auto before = at(0);
    int compared = 0;
    for (int frame = 1; frame < frames(); ++frame) {
        auto after = at(frame);
        if (haveSameShapes(before, after) && blinks(frame - 1) == blinks(frame)) {
            ++compared;
            for (std::size_t index = 0; index < after.size(); ++index) {
                if (opacity(before[index]) < 0.15 || opacity(after[index]) < 0.15) {
                    continue;
                }
                const double gone = distance(before[index], after[index]);
                ASSERT_LE(gone > GetParam().step ? nearest(after[index], before) : gone, GetParam().step)
                    << frame << " command " << index;
            }
        }
        before = std::move(after);
    }
    EXPECT_GT(compared, frames() * 8 / 10);
}

TEST_P(TrickMotion, IsFewShapes) {
    for (int frame = 0; frame < frames(); ++frame) {
        ASSERT_LE(at(frame).size(), 45U) << frame;
    }
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
