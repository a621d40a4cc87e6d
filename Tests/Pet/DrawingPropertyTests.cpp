#include "Motion.h"
#include "Pet/Stage.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

namespace mimkins::test {

namespace {

using enum Routine;

/// Units that points may lie outside of the square, control points and edges of lines among them.
constexpr double ordinaryMargin = 14;

/// How far outside of the square a routine draws that leaves the stage or lets something leave it.
double marginOf(Routine routine) {
    switch (routine) {
    case beach:
        return 30; // the passers-by
    case kickPebble:
        return 24;
    case parachute:
        return 105; // comes from above
    case karateChop:
    case peekAround:
    case boredThenButterfly:
        return 115;
    default:
        return ordinaryMargin;
    }
}

/// The widest of those on stage.
double marginOf(const Stage& cues) {
    double margin = ordinaryMargin;
    for (const Cue& cue : cues) {
        margin = std::max(margin, marginOf(cue.routine));
    }
    return margin;
}

/// How long the phase of a routine runs that has one.
double lengthOf(Routine routine) {
    switch (routine) {
    case flyingKick:
        return 2.2;
    case karateChop:
        return 3;
    case wipeBrow:
        return 2.8;
    case boredThenButterfly:
        return 9;
    default:
        return 6;
    }
}

/// Where a drawing lies, as text if it is told.
std::string told(const Shot& shot, std::size_t index, Point point) {
    return std::to_string(point.x) + " " + std::to_string(point.y) + " " + toJson(shot.commands()[index]);
}

void assertInside(const Shot& shot, double margin) {
    for (std::size_t index = 0; index < shot.size(); ++index) {
        const double edge = margin - reach(shot.commands()[index]);
        for (const Point point : shot.points(index)) {
            const bool inside =
                point.x >= -edge && point.x <= 100 + edge && point.y >= -edge && point.y <= 100 + edge;
            if (!inside) { // neither is what is not a number
                RC_FAIL(told(shot, index, point));
            }
        }
        const double seen = opacity(shot.commands()[index]);
        RC_ASSERT(seen >= 0 && seen <= 1);
    }
}

void assertSame(const Shot& left, const Shot& right) {
    RC_ASSERT(inJson(left.commands()) == inJson(right.commands()));
}

/// Seconds with three decimals.
rc::Gen<double> seconds(std::int64_t from, std::int64_t until) {
    return rc::gen::map(
        rc::gen::inRange<std::int64_t>(1000 * from, 1000 * until),
        [](std::int64_t thousandths) { return static_cast<double>(thousandths) / 1000; }
    );
}

/// The clock of an animation that began in 2001, at any time from then to 2060, however fast it runs.
rc::Gen<double> clock() {
    return seconds(0, 3'200'000'000);
}

/// States that have just begun as well as those of minutes, hours and days.
rc::Gen<double> spell() {
    return rc::gen::oneOf(seconds(0, 10), seconds(0, 2000), seconds(0, 200'000), seconds(0, 40'000'000));
}

Routine anyRoutine() {
    return static_cast<Routine>(*rc::gen::inRange<std::size_t>(0, routineCount));
}

PetFrame anyFrame(PetAction action) {
    const auto seed = *rc::gen::arbitrary<std::uint64_t>();
    PetLook look;
    look.antics = *rc::gen::arbitrary<bool>();
    look.shuffle = *rc::gen::arbitrary<std::uint64_t>();
    if (*rc::gen::arbitrary<bool>()) {
        look.outline = Color::grey(0.1);
    }
    const int effort = *rc::gen::inRange(0, 3);
    PetFrame frame = petFrame({action, seed, Date{}, effort, *rc::gen::arbitrary<bool>()}, look, Date{});
    frame.t = *clock();
    frame.elapsed = *spell();
    return frame;
}

/// A routine of any pet, thin or not, in either manner.
Moment anyMoment(Routine routine) {
    Moment moment;
    moment.routine = routine;
    moment.seed = *rc::gen::arbitrary<std::uint64_t>();
    moment.effort = *rc::gen::inRange(0, 3);
    moment.elapsed = *spell();
    moment.t = takesPhase(routine) ? lengthOf(routine) * *rc::gen::inRange(0, 4800) / 4800.0 : *clock();
    moment.manner = *rc::gen::arbitrary<bool>();
    moment.thin = *rc::gen::inRange(0, 91) / 10.0;
    return moment;
}

RC_GTEST_PROP(DrawingOfRoutines, IsInTheSquareAndFollowsFromTheMoment, ()) {
    const Routine routine = anyRoutine();
    const Moment moment = anyMoment(routine);
    Shot first;
    Shot second;
    first.take(moment);
    second.take(moment);
    assertInside(first, marginOf(routine));
    assertSame(first, second);
}

RC_GTEST_PROP(DrawingOfActions, IsInTheSquareAndFollowsFromTheFrame, ()) {
    const auto action = static_cast<PetAction>(*rc::gen::inRange<std::size_t>(0, petActionCount));
    const PetFrame frame = anyFrame(action);
    Shot first;
    Shot second;
    first.take(frame, action);
    second.take(frame, action);
    RC_ASSERT(first.size() > 0U);
    assertInside(first, marginOf(stage(frame, action)));
    assertSame(first, second);
}

/// None is left to chance: each routine is seen at hundreds of moments.
class EveryRoutine : public testing::TestWithParam<std::size_t> {};

TEST_P(EveryRoutine, IsInTheSquareForAnyPet) {
    const auto routine = static_cast<Routine>(GetParam());
    const auto result = rc::check(std::string(name(routine)), [&] {
        Shot shot;
        shot.take(anyMoment(routine));
        assertInside(shot, marginOf(routine));
    });
    EXPECT_TRUE(result);
}

INSTANTIATE_TEST_SUITE_P(
    All, EveryRoutine, testing::Range(std::size_t{0}, routineCount),
    [](const auto& index) { return std::string(name(static_cast<Routine>(index.param))); }
);

} // namespace

} // namespace mimkins::test
