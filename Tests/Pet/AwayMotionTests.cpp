#include "Motion.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace mimkins::test {

namespace {

constexpr double frameLength = 1.0 / 48;
constexpr double farthestStep = 4; ///< units a frame

struct Scene {
    Routine routine = Routine::supervisor;
    double length = 120;
    double margin = 6;    ///< how far control points and edges may lie outside the square
    double flipEvery = 0; ///< a moment at which a turned thing is exchanged for its equal upright
};

/// The beach has passers-by that come from outside and leave again; the one who lands comes from above.
constexpr Scene scenes[] = {{Routine::supervisor},        {Routine::fishing}, {Routine::hourglass, 120, 6, 6},
                            {Routine::parachute, 6, 100}, {Routine::sleep},   {Routine::snore},
                            {Routine::beach, 120, 26},    {Routine::hotTub},  {Routine::partyDance}};

/// True if nobody sees a thing that jumps: it is as good as transparent, tiny, or outside the square.
bool isUnseen(const Shot& shot, std::size_t index) {
    if (opacity(shot.commands()[index]) < 0.06) {
        return true;
    }
    const auto points = shot.points(index);
    const auto [left, right] =
        std::minmax_element(points.begin(), points.end(), [](Point a, Point b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(points.begin(), points.end(), [](Point a, Point b) { return a.y < b.y; });
    const double edge = reach(shot.commands()[index]);
    const bool outside =
        right->x + edge < 0 || left->x - edge > 100 || bottom->y + edge < 0 || top->y - edge > 100;
    return outside || (points.size() > 1 && std::max(right->x - left->x, bottom->y - top->y) < 0.3);
}

void expectNoJump(const Shot& before, const Shot& after, double t) {
    if (!haveSameShapes(before, after)) {
        return;
    }
    for (std::size_t index = 0; index < before.size(); ++index) {
        const double step = distance(before.points(index), after.points(index));
        if (step > farthestStep && !isUnseen(before, index) && !isUnseen(after, index)) {
            ADD_FAILURE() << "command " << index << " jumps by " << step << " at " << t;
        }
    }
}

void expectInside(const Shot& shot, double margin, double t) {
    for (std::size_t index = 0; index < shot.size(); ++index) {
        const double edge = margin - reach(shot.commands()[index]);
        for (const Point point : shot.points(index)) {
            const bool inside =
                point.x >= -edge && point.x <= 100 + edge && point.y >= -edge && point.y <= 100 + edge;
            if (!inside || !std::isfinite(point.x) || !std::isfinite(point.y)) {
                ADD_FAILURE() << "command " << index << " is at " << point.x << ", " << point.y << " at "
                              << t;
            }
        }
    }
}

PetFrame frameAt(double t, double elapsed) {
    PetFrame frame = petFrame({PetAction::resting, 168, Date{}, 0, false}, {}, Date{});
    frame.t = t;
    frame.elapsed = elapsed;
    return frame;
}

/// The eyes are shut and open again from one frame to the next.
bool isBlinking(double t) {
    return std::fmod(t + frameAt(t, 0).blinkOffset, 3.7) < 0.12;
}

bool flips(const Scene& scene, double from, double to) {
    return scene.flipEvery > 0 && std::floor(from / scene.flipEvery) != std::floor(to / scene.flipEvery);
}

/// `take` takes a shot of a moment.
template <typename Take>
void expectSmooth(const Scene& scene, Take take) {
    Shot before;
    Shot after;
    take(before, 0.0);
    for (int frame = 1; frame * frameLength < scene.length && !testing::Test::HasFailure(); ++frame) {
        const double t = frame * frameLength;
        take(after, t);
        expectInside(after, scene.margin, t);
        if (!flips(scene, t - frameLength, t) && isBlinking(t - frameLength) == isBlinking(t)) {
            expectNoJump(before, after, t);
        }
        std::swap(before, after);
    }
}

class AwayMotion : public testing::TestWithParam<Scene> {};

INSTANTIATE_TEST_SUITE_P(Scenes, AwayMotion, testing::ValuesIn(scenes), [](const auto& scene) {
    return std::string(name(scene.param.routine));
});

} // namespace

TEST_P(AwayMotion, StaysInTheSquareAndDoesNotJump) {
    const Scene& scene = GetParam();
    expectSmooth(scene, [&](Shot& shot, double t) { shot.take({scene.routine, t}); });
}

TEST_P(AwayMotion, DrawsTheSameForTheSame) {
    for (const double t : {0.0, 1.7, 3.3}) {
        EXPECT_EQ(inJson(record({GetParam().routine, t})), inJson(record({GetParam().routine, t})));
        EXPECT_NE(inJson(record({GetParam().routine, t})), inJson(record({GetParam().routine, t + 0.5})));
    }
}

TEST(AwayActions, TheParachutistHangsInTheAirWithoutAJump) {
    const Scene hanging{Routine::parachute, 60, 24, 0};
    expectSmooth(hanging, [](Shot& shot, double t) { shot.take(frameAt(t, t), PetAction::parachuting); });
}

TEST(AwayActions, TheDayAtTheBeachPassesWithoutAJump) {
    const Scene resting{Routine::beach, 24, 26, 0};
    for (const double start : {0.0, 600.0, 1500.0, 7000.0}) {
        expectSmooth(resting, [&](Shot& shot, double t) {
            shot.take(frameAt(t, start + t), PetAction::resting);
        });
    }
}

TEST(AwayActions, TheBeachShowsRunningTimeOnlyWithMinutes) {
    Cue cue;
    cue.routine = Routine::beach;
    const auto drawn = [&](double elapsed, std::optional<double> minutes) {
        cue.phase = minutes;
        RecordingCanvas canvas;
        PetPainter(GraphicsContext(canvas), 100, 100, frameAt(2, elapsed)).perform(cue);
        return inJson(canvas.commands());
    };
    EXPECT_EQ(drawn(66, std::nullopt), drawn(66 + 22 * 500, std::nullopt))
        << "the crab comes every 22 seconds";
    EXPECT_NE(drawn(66, 5), drawn(66, 50));
    EXPECT_NE(drawn(66, std::nullopt), drawn(66, 50));
}

} // namespace mimkins::test
