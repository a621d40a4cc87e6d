#include "Motion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace mimkins::test {

namespace {

constexpr double frameLength = 1.0 / 48;
constexpr int frames = 120 * 48;

/// Units that arms and flourishes may reach beyond the square.
constexpr double margin = 4;

constexpr std::array scenes{Routine::laptop,      Routine::pencil,    Routine::hammer,    Routine::gear,
                            Routine::bigButton,   Routine::book,      Routine::scroll,    Routine::magnifier,
                            Routine::binoculars,  Routine::planes,    Routine::megaphone, Routine::chin,
                            Routine::pace,        Routine::lightbulb, Routine::broom,     Routine::vacuum,
                            Routine::scratchHead, Routine::facepalm,  Routine::conductor};

/// How far a point may go from one frame to the next, in units.
double bound(Routine routine) {
    switch (routine) {
    case Routine::hammer:
        return 16; // the blow falls in five frames
    case Routine::bigButton:
        return 14; // so does the hand
    case Routine::lightbulb:
        return 6; // the finger shoots up
    default:
        return 4;
    }
}

Moment momentOf(Routine routine, int frame) {
    Moment moment;
    moment.routine = routine;
    moment.t = frame * frameLength;
    return moment;
}

bool blinks(const Moment& moment) {
    return std::fmod(moment.t + static_cast<double>(moment.seed % 40) / 10, 3.7) < 0.12;
}

double marginOf(Routine routine) {
    return routine == Routine::lightbulb ? 9 : margin; // the glow fades away over the upper edge
}

bool inSquare(Point point, double reach, double beyond) {
    const auto fits = [&](double value) { return value - reach >= -beyond && value + reach <= 100 + beyond; };
    return std::isfinite(point.x) && std::isfinite(point.y) && fits(point.x) && fits(point.y);
}

Point between(const std::array<Point, 4>& curve, double share) {
    const double rest = 1 - share;
    const std::array weights{
        rest * rest * rest, 3 * rest * rest * share, 3 * rest * share * share, share * share * share};
    Point sum;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        sum.x += weights[i] * curve[i].x;
        sum.y += weights[i] * curve[i].y;
    }
    return sum;
}

/// Points that the drawn line itself goes through, in units; of a text its middle.
std::vector<Point> traced(const DrawCommand& command) {
    if (std::holds_alternative<TextCommand>(command)) {
        return positions(command);
    }
    const auto* fill = std::get_if<FillCommand>(&command);
    const Path& path = fill ? fill->path : std::get<StrokeCommand>(command).path;
    const Transform& map = fill ? fill->state.transform : std::get<StrokeCommand>(command).state.transform;
    std::vector<Point> points;
    const Path curves = path.flattenedToCurves();
    Point last;
    for (const PathElement& element : curves.elements()) {
        if (element.kind == PathElement::Kind::cubic) {
            for (const double share : {0.25, 0.5, 0.75}) {
                points.push_back(map.apply(between({last, element.b, element.c, element.a}, share)));
            }
        }
        if (element.kind != PathElement::Kind::close) {
            last = element.a;
            points.push_back(map.apply(last));
        }
    }
    return points;
}

double opacity(const DrawCommand& command) {
    return std::visit([](const auto& one) { return one.state.opacity; }, command);
}

/// What has faded may begin anew elsewhere.
bool shows(const DrawCommand& left, const DrawCommand& right) {
    return std::min(opacity(left), opacity(right)) > 0.12;
}

std::string inJson(const std::vector<DrawCommand>& commands) {
    std::string all;
    for (const DrawCommand& command : commands) {
        all += toJson(command) + '\n';
    }
    return all;
}

class WorkMotion : public testing::TestWithParam<Routine> {};

TEST_P(WorkMotion, staysInTheSquare) {
    for (int frame = 0; frame < frames; ++frame) {
        for (const DrawCommand& command : record(momentOf(GetParam(), frame))) {
            for (const Point& point : traced(command)) {
                ASSERT_TRUE(inSquare(point, reach(command), marginOf(GetParam())))
                    << frame * frameLength << ": " << point.x << ' ' << point.y << '\n'
                    << toJson(command);
            }
        }
    }
}

TEST_P(WorkMotion, movesWithoutJumps) {
    auto before = record(momentOf(GetParam(), 0));
    int compared = 0;
    for (int frame = 1; frame < frames; ++frame) {
        const bool lids = blinks(momentOf(GetParam(), frame)) != blinks(momentOf(GetParam(), frame - 1));
        auto now = record(momentOf(GetParam(), frame));
        const bool alike = std::equal(before.begin(), before.end(), now.begin(), now.end(), haveSameShape);
        for (std::size_t i = 0; alike && !lids && i < now.size(); ++i) {
            ASSERT_TRUE(!shows(before[i], now[i]) || distance(before[i], now[i]) <= bound(GetParam()))
                << frame * frameLength << ": " << distance(before[i], now[i]) << '\n'
                << toJson(before[i]) << '\n'
                << toJson(now[i]);
        }
        compared += alike && !lids ? 1 : 0;
        before = std::move(now);
    }
    EXPECT_GT(compared, frames * 8 / 10);
}

TEST_P(WorkMotion, isNeverStill) {
    constexpr int span = 3 * 48;
    for (int frame = 0; frame + span < frames; frame += span) {
        ASSERT_NE(
            inJson(record(momentOf(GetParam(), frame))), inJson(record(momentOf(GetParam(), frame + 7)))
        ) << frame * frameLength;
    }
}

TEST_P(WorkMotion, followsFromItsMomentAlone) {
    for (int frame = 0; frame < frames; frame += 97) {
        const Moment moment = momentOf(GetParam(), frame);
        ASSERT_EQ(inJson(record(moment)), inJson(record(moment)));
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, WorkMotion, testing::ValuesIn(scenes),
    [](const testing::TestParamInfo<Routine>& routine) { return std::string(name(routine.param)); }
);

TEST(WorkScenes, leaveTheBubblesPlaceFreeWhilePacing) {
    constexpr double bubblesLeft = 76;
    constexpr double bubblesBottom = 20;
    for (int frame = 0; frame < frames; ++frame) {
        for (const DrawCommand& command : record(momentOf(Routine::pace, frame))) {
            for (const Point& point : traced(command)) {
                ASSERT_FALSE(
                    point.x + reach(command) > bubblesLeft && point.y - reach(command) < bubblesBottom
                ) << frame * frameLength
                  << ": " << toJson(command);
            }
        }
    }
}

/// True if something is drawn that differs by the pet's lids alone.
bool showsBlinking(Routine routine) {
    Moment open;
    open.routine = routine;
    open.t = 2;
    open.seed = 40; // 2 seconds after a blink
    Moment closed = open;
    closed.seed = 40 + 18; // 2 + 1.8 is just after the beginning of one
    const auto first = record(open);
    const auto second = record(closed);
    for (std::size_t i = 0; i < std::min(first.size(), second.size()); ++i) {
        if (positions(first[i]) != positions(second[i])) {
            return true;
        }
    }
    return first.size() != second.size();
}

TEST(WorkScenes, showNoBlinkWhereTheEyesAreHidden) {
    EXPECT_FALSE(showsBlinking(Routine::binoculars));
    EXPECT_FALSE(showsBlinking(Routine::facepalm));
    EXPECT_TRUE(showsBlinking(Routine::magnifier));
    EXPECT_TRUE(showsBlinking(Routine::laptop));
}

} // namespace

} // namespace mimkins::test
