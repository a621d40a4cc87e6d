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
    switch (routine) {
    case Routine::lightbulb:
        return 9; // the glow fades away over the upper edge
    case Routine::chin:
        return 6; // the thought's last dot lies on the edge
    default:
        return margin;
    }
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

const Path* pathOf(const DrawCommand& command) {
    if (const auto* fill = std::get_if<FillCommand>(&command)) {
        return &fill->path;
    }
    const auto* stroke = std::get_if<StrokeCommand>(&command);
    return stroke ? &stroke->path : nullptr;
}

/// The ends of an arc don't tell how far it bends outwards.
bool hasArc(const DrawCommand& command) {
    const Path* path = pathOf(command);
    return path && std::any_of(path->elements().begin(), path->elements().end(), [](const auto& element) {
               return element.kind == PathElement::Kind::arc;
           });
}

/// Points that the drawn line itself goes through, in units; of a text its middle.
std::vector<Point> traced(const DrawCommand& command) {
    if (std::holds_alternative<TextCommand>(command)) {
        return positions(command);
    }
    const auto* fill = std::get_if<FillCommand>(&command);
    const Transform& map = fill ? fill->state.transform : std::get<StrokeCommand>(command).state.transform;
    std::vector<Point> points;
    const Path curves = pathOf(command)->flattenedToCurves();
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

/// What has faded may begin anew elsewhere.
bool shows(const DrawCommand& left, const DrawCommand& right) {
    return std::min(opacity(left), opacity(right)) > 0.12;
}

/// True if a corner, end or control point of the command lies beyond what `fits`: then its line itself may.
template <typename Fits>
bool mayLeave(const Shot& shot, std::size_t index, Fits fits) {
    const auto points = shot.points(index);
    return hasArc(shot.commands()[index]) || !std::all_of(points.begin(), points.end(), fits);
}

class WorkMotion : public testing::TestWithParam<Routine> {};

void expectInSquare(const Shot& shot, double beyond, double t) {
    for (std::size_t i = 0; i < shot.size(); ++i) {
        const DrawCommand& command = shot.commands()[i];
        const auto fits = [&](const Point& point) { return inSquare(point, reach(command), beyond); };
        if (!mayLeave(shot, i, fits)) {
            continue;
        }
        for (const Point& point : traced(command)) {
            ASSERT_TRUE(fits(point)) << t << ": " << point.x << ' ' << point.y << '\n' << toJson(command);
        }
    }
}

void expectNoJump(const Shot& before, const Shot& now, double limit, double t) {
    for (std::size_t i = 0; i < now.size(); ++i) {
        const DrawCommand& left = before.commands()[i];
        const DrawCommand& right = now.commands()[i];
        const double gone = shows(left, right) ? distance(before.points(i), now.points(i)) : 0;
        if (gone > limit) {
            FAIL() << t << ": " << gone << '\n' << toJson(left) << '\n' << toJson(right);
        }
    }
}

TEST_P(WorkMotion, staysInTheSquareAndMovesWithoutJumps) {
    Shot before;
    Shot now;
    int compared = 0;
    for (int frame = 0; frame < frames; ++frame) {
        const double t = frame * frameLength;
        now.take(momentOf(GetParam(), frame));
        ASSERT_NO_FATAL_FAILURE(expectInSquare(now, marginOf(GetParam()), t));
        const bool lids =
            frame > 0 && blinks(momentOf(GetParam(), frame)) != blinks(momentOf(GetParam(), frame - 1));
        if (!lids && haveSameShapes(before, now)) {
            ASSERT_NO_FATAL_FAILURE(expectNoJump(before, now, bound(GetParam()), t));
            ++compared;
        }
        std::swap(before, now);
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
    Shot shot;
    for (int frame = 0; frame < frames; ++frame) {
        shot.take(momentOf(Routine::pace, frame));
        for (std::size_t i = 0; i < shot.size(); ++i) {
            const DrawCommand& command = shot.commands()[i];
            const auto isBeside = [&](const Point& point) {
                return point.x + reach(command) <= bubblesLeft || point.y - reach(command) >= bubblesBottom;
            };
            if (mayLeave(shot, i, isBeside)) {
                const auto points = traced(command);
                ASSERT_TRUE(std::all_of(points.begin(), points.end(), isBeside))
                    << frame * frameLength << ": " << toJson(command);
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
