#include "Motion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>
#include <string>

namespace mimkins::test {

namespace {

using enum Routine;

/// How a routine may move.
struct Bounds {
    Routine routine = lookAroundScene;
    double length = 120;             ///< seconds to look at; a phase runs to 6
    double step = 4;                 ///< units that a point may go in a 48th of a second
    double margin = 4;               ///< units that a point may lie outside of the square
    std::optional<bool> manner = {}; ///< of the routine
};

std::ostream& operator<<(std::ostream& out, const Bounds& bounds) {
    return out << name(bounds.routine) << (bounds.manner.value_or(false) ? " (other manner)" : "");
}

class PastimeMotion : public testing::TestWithParam<Bounds> {
protected:
    static std::vector<DrawCommand> at(int frame) {
        const Bounds& bounds = GetParam();
        return record({.routine = bounds.routine, .t = frame / 48.0, .manner = bounds.manner});
    }

    static int frames() { return static_cast<int>(GetParam().length * 48); }
};

/// How far outside of the square a command draws, in units; infinite if it draws at no place at all.
double outside(const DrawCommand& command) {
    const double width = reach(command);
    double farthest = 0;
    for (const Point point : positions(command)) {
        if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
            return std::numeric_limits<double>::infinity();
        }
        farthest = std::max(
            {farthest, width - point.x, width - point.y, point.x + width - 100, point.y + width - 100}
        );
    }
    return farthest;
}

TEST_P(PastimeMotion, StaysInTheSquare) {
    double farthest = 0;
    int when = 0;
    for (int frame = 0; frame < frames(); ++frame) {
        for (const DrawCommand& command : at(frame)) {
            if (outside(command) > farthest) {
                farthest = outside(command);
                when = frame;
            }
        }
    }
    EXPECT_LE(farthest, GetParam().margin) << "frame " << when;
}

std::string told(const std::vector<DrawCommand>& commands) {
    std::string text;
    for (const DrawCommand& command : commands) {
        text += toJson(command);
    }
    return text;
}

TEST_P(PastimeMotion, FollowsFromTheMoment) {
    for (int frame = 0; frame < frames(); frame += 37) {
        ASSERT_EQ(told(at(frame)), told(at(frame))) << frame;
    }
}

TEST_P(PastimeMotion, Moves) {
    EXPECT_NE(told(at(30)), told(at(80)));
}

bool canBeCompared(const std::vector<DrawCommand>& left, const std::vector<DrawCommand>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), haveSameShape);
}

/// Eyes blink and glance at once.
bool isEye(const DrawCommand& command) {
    const auto* fill = std::get_if<FillCommand>(&command);
    if (!fill || fill->path.elements().size() != 1) {
        return false;
    }
    const PathElement& shape = fill->path.elements().front();
    const bool open = shape.b == Point{5.2, 11};
    const bool shut = shape.b == Point{6, 2.2};
    return shape.kind == PathElement::Kind::roundedRect && (open || shut);
}

/// Notes start again from below when they have faded out.
bool isFaint(const DrawCommand& command) {
    return std::visit([](const auto& one) { return one.state.opacity; }, command) < 0.06;
}

bool mayJump(const DrawCommand& before, const DrawCommand& after) {
    return isEye(after) || isFaint(before) || isFaint(after);
}

TEST_P(PastimeMotion, NeverJumps) {
    auto before = at(0);
    int compared = 0;
    double farthest = 0;
    std::string when;
    for (int frame = 1; frame < frames(); ++frame) {
        auto after = at(frame);
        const bool comparable = canBeCompared(before, after);
        compared += comparable;
        for (std::size_t index = 0; comparable && index < after.size(); ++index) {
            if (!mayJump(before[index], after[index]) && distance(before[index], after[index]) > farthest) {
                farthest = distance(before[index], after[index]);
                when = "frame " + std::to_string(frame) + ": " + toJson(after[index]);
            }
        }
        before = std::move(after);
    }
    EXPECT_LE(farthest, GetParam().step) << when;
    EXPECT_GT(compared, frames() * 8 / 10);
}

TEST_P(PastimeMotion, IsFewShapes) {
    for (int frame = 0; frame < frames(); ++frame) {
        ASSERT_LE(at(frame).size(), 36U) << frame;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Routines, PastimeMotion,
    testing::Values(
        Bounds{lookAroundScene}, Bounds{stepSideTo}, Bounds{.routine = stepSideTo, .manner = true},
        Bounds{stretch, 6}, Bounds{whistle}, Bounds{.routine = whistle, .manner = true}, Bounds{bubbleGum, 6},
        Bounds{juggle}, Bounds{sneeze, 6},
        // The pebble rolls off the stage on both sides.
        Bounds{.routine = kickPebble, .length = 6, .margin = 20}, Bounds{dance}, Bounds{hello},
        Bounds{checkWatch, 6}, Bounds{yoyo},
        // The control points of a rope overhead lie above the rope, and it is swift as it passes the face.
        Bounds{.routine = skippingRope, .step = 7, .margin = 12},
        // Hands and feet fly round with a whole turn in less than two seconds.
        Bounds{.routine = cartwheel, .length = 6, .step = 8},
        // A hic is a jolt of an eighth of a second.
        Bounds{.routine = hiccups, .step = 6}
    )
);

} // namespace

} // namespace mimkins::test
