#include "Motion.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>

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

/// All that is drawn, as text that can be compared.
std::string text(const std::vector<DrawCommand>& commands) {
    std::string all;
    for (const DrawCommand& command : commands) {
        all += toJson(command);
    }
    return all;
}

const DrawingState& stateOf(const DrawCommand& command) {
    return std::visit([](const auto& one) -> const DrawingState& { return one.state; }, command);
}

/// True if nobody sees a thing that jumps: it is as good as transparent, tiny, or outside the square.
bool isUnseen(const DrawCommand& command) {
    if (stateOf(command).opacity < 0.06) {
        return true;
    }
    const auto points = positions(command);
    const auto [left, right] =
        std::minmax_element(points.begin(), points.end(), [](Point a, Point b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(points.begin(), points.end(), [](Point a, Point b) { return a.y < b.y; });
    const double edge = reach(command);
    const bool outside =
        right->x + edge < 0 || left->x - edge > 100 || bottom->y + edge < 0 || top->y - edge > 100;
    return outside || (points.size() > 1 && std::max(right->x - left->x, bottom->y - top->y) < 0.3);
}

bool haveSameShapes(const std::vector<DrawCommand>& before, const std::vector<DrawCommand>& after) {
    return std::equal(before.begin(), before.end(), after.begin(), after.end(), haveSameShape);
}

void expectNoJump(
    const std::vector<DrawCommand>& before, const std::vector<DrawCommand>& after, const std::string& where
) {
    if (!haveSameShapes(before, after)) {
        return;
    }
    for (std::size_t index = 0; index < before.size(); ++index) {
        if (!isUnseen(before[index]) && !isUnseen(after[index])) {
            EXPECT_LE(distance(before[index], after[index]), farthestStep) << where << ", command " << index;
        }
    }
}

void expectInside(const std::vector<DrawCommand>& commands, double margin, const std::string& where) {
    for (const DrawCommand& command : commands) {
        const double edge = margin - reach(command);
        for (const Point point : positions(command)) {
            ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y)) << where;
            EXPECT_TRUE(
                point.x >= -edge && point.x <= 100 + edge && point.y >= -edge && point.y <= 100 + edge
            ) << where
              << ": " << point.x << ", " << point.y;
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

template <typename Draw>
void expectSmooth(const Scene& scene, const std::string& what, Draw draw) {
    std::vector<DrawCommand> before = draw(0.0);
    for (int frame = 1; frame * frameLength < scene.length && !testing::Test::HasFailure(); ++frame) {
        const double t = frame * frameLength;
        std::vector<DrawCommand> after = draw(t);
        const std::string where = what + " at " + std::to_string(t);
        expectInside(after, scene.margin, where);
        if (!flips(scene, t - frameLength, t) && isBlinking(t - frameLength) == isBlinking(t)) {
            expectNoJump(before, after, where);
        }
        before = std::move(after);
    }
}

class AwayMotion : public testing::TestWithParam<Scene> {};

INSTANTIATE_TEST_SUITE_P(Scenes, AwayMotion, testing::ValuesIn(scenes), [](const auto& scene) {
    return std::string(name(scene.param.routine));
});

} // namespace

TEST_P(AwayMotion, StaysInTheSquareAndDoesNotJump) {
    const Scene& scene = GetParam();
    expectSmooth(scene, std::string(name(scene.routine)), [&](double t) {
        return record({scene.routine, t});
    });
}

TEST_P(AwayMotion, DrawsTheSameForTheSame) {
    for (const double t : {0.0, 1.7, 3.3}) {
        EXPECT_EQ(text(record({GetParam().routine, t})), text(record({GetParam().routine, t})));
        EXPECT_NE(text(record({GetParam().routine, t})), text(record({GetParam().routine, t + 0.5})));
    }
}

TEST(AwayActions, TheParachutistHangsInTheAirWithoutAJump) {
    const Scene hanging{Routine::parachute, 60, 24, 0};
    expectSmooth(hanging, "parachuting", [](double t) {
        return recordAction(frameAt(t, t), PetAction::parachuting);
    });
}

TEST(AwayActions, TheDayAtTheBeachPassesWithoutAJump) {
    const Scene resting{Routine::beach, 60, 26, 0};
    for (const double start : {0.0, 600.0, 1500.0, 7000.0}) {
        expectSmooth(resting, "resting", [&](double t) {
            return recordAction(frameAt(t, start + t), PetAction::resting);
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
        return text(canvas.commands());
    };
    EXPECT_EQ(drawn(66, std::nullopt), drawn(66 + 22 * 500, std::nullopt))
        << "the crab comes every 22 seconds";
    EXPECT_NE(drawn(66, 5), drawn(66, 50));
    EXPECT_NE(drawn(66, std::nullopt), drawn(66, 50));
}

} // namespace mimkins::test
