#include "Motion.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <iterator>
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

/// What a frame draws and where, worked out once.
struct Shot {
    explicit Shot(std::vector<DrawCommand> drawn) : commands(std::move(drawn)) {
        points.reserve(commands.size());
        std::transform(commands.begin(), commands.end(), std::back_inserter(points), positions);
    }

    std::vector<DrawCommand> commands;
    std::vector<std::vector<Point>> points;
};

bool haveSameShapes(const Shot& before, const Shot& after) {
    return std::equal(
        before.points.begin(), before.points.end(), after.points.begin(), after.points.end(),
        [](const auto& left, const auto& right) { return left.size() == right.size(); }
    );
}

double farthest(const std::vector<Point>& from, const std::vector<Point>& to) {
    double most = 0;
    for (std::size_t index = 0; index < from.size(); ++index) {
        most = std::max(most, std::hypot(to[index].x - from[index].x, to[index].y - from[index].y));
    }
    return most;
}

void expectNoJump(const Shot& before, const Shot& after, double t) {
    if (!haveSameShapes(before, after)) {
        return;
    }
    for (std::size_t index = 0; index < before.points.size(); ++index) {
        const double step = farthest(before.points[index], after.points[index]);
        if (step > farthestStep && !isUnseen(before.commands[index]) && !isUnseen(after.commands[index])) {
            ADD_FAILURE() << "command " << index << " jumps by " << step << " at " << t;
        }
    }
}

void expectInside(const Shot& shot, double margin, double t) {
    for (std::size_t index = 0; index < shot.points.size(); ++index) {
        const double edge = margin - reach(shot.commands[index]);
        for (const Point point : shot.points[index]) {
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

template <typename Draw>
void expectSmooth(const Scene& scene, Draw draw) {
    Shot before(draw(0.0));
    for (int frame = 1; frame * frameLength < scene.length && !testing::Test::HasFailure(); ++frame) {
        const double t = frame * frameLength;
        Shot after(draw(t));
        expectInside(after, scene.margin, t);
        if (!flips(scene, t - frameLength, t) && isBlinking(t - frameLength) == isBlinking(t)) {
            expectNoJump(before, after, t);
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
    expectSmooth(scene, [&](double t) { return record({scene.routine, t}); });
}

TEST_P(AwayMotion, DrawsTheSameForTheSame) {
    for (const double t : {0.0, 1.7, 3.3}) {
        EXPECT_EQ(text(record({GetParam().routine, t})), text(record({GetParam().routine, t})));
        EXPECT_NE(text(record({GetParam().routine, t})), text(record({GetParam().routine, t + 0.5})));
    }
}

TEST(AwayActions, TheParachutistHangsInTheAirWithoutAJump) {
    const Scene hanging{Routine::parachute, 60, 24, 0};
    expectSmooth(hanging, [](double t) { return recordAction(frameAt(t, t), PetAction::parachuting); });
}

TEST(AwayActions, TheDayAtTheBeachPassesWithoutAJump) {
    const Scene resting{Routine::beach, 24, 26, 0};
    for (const double start : {0.0, 600.0, 1500.0, 7000.0}) {
        expectSmooth(resting, [&](double t) {
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
