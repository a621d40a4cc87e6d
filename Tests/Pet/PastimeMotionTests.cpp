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
    static Moment at(int frame) {
        const Bounds& bounds = GetParam();
        return {.routine = bounds.routine, .t = frame / 48.0, .manner = bounds.manner};
    }

    static int frames() { return static_cast<int>(GetParam().length * 48); }
};

/// How far outside of the square a command draws, in units; infinite if it draws at no place at all.
double outside(const Shot& shot, std::size_t index) {
    const double width = reach(shot.commands()[index]);
    double farthest = 0;
    for (const Point point : shot.points(index)) {
        if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
            return std::numeric_limits<double>::infinity();
        }
        farthest = std::max(
            {farthest, width - point.x, width - point.y, point.x + width - 100, point.y + width - 100}
        );
    }
    return farthest;
}

TEST_P(PastimeMotion, FollowsFromTheMoment) {
    for (int frame = 0; frame < frames(); frame += 37) {
        ASSERT_EQ(inJson(record(at(frame))), inJson(record(at(frame)))) << frame;
    }
}

TEST_P(PastimeMotion, Moves) {
    EXPECT_NE(inJson(record(at(30))), inJson(record(at(80))));
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
    return opacity(command) < 0.06;
}

bool mayJump(const DrawCommand& before, const DrawCommand& after) {
    return isEye(after) || isFaint(before) || isFaint(after);
}

/// The largest of many values, and where it was found.
struct Largest {
    void add(double found, int frame, const DrawCommand& command) {
        if (found > value) {
            value = found;
            where = "frame " + std::to_string(frame) + ": " + toJson(command);
        }
    }

    double value = 0;
    std::string where;
};

TEST_P(PastimeMotion, StaysInTheSquareOfFewShapesAndNeverJumps) {
    Shot before;
    Shot after;
    int compared = 0;
    Largest outermost;
    Largest step;
    for (int frame = 0; frame < frames(); ++frame) {
        after.take(at(frame));
        ASSERT_LE(after.size(), 40U) << frame;
        const bool comparable = frame > 0 && haveSameShapes(before, after);
        compared += comparable;
        for (std::size_t index = 0; index < after.size(); ++index) {
            const DrawCommand& command = after.commands()[index];
            outermost.add(outside(after, index), frame, command);
            if (comparable && !mayJump(before.commands()[index], command)) {
                step.add(distance(before.points(index), after.points(index)), frame, command);
            }
        }
        std::swap(before, after);
    }
    EXPECT_LE(outermost.value, GetParam().margin) << outermost.where;
    EXPECT_LE(step.value, GetParam().step) << step.where;
    EXPECT_GT(compared, frames() * 8 / 10);
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
