#include "Drawing/Outline.h"
#include "Drawing/Path.h"
#include "Drawing/RecordingCanvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace mimkins::test {

namespace {

constexpr double pi = std::numbers::pi;

Outline linesOf(const Path& path) {
    Outline lines;
    flatten(lines, path, 10);
    return lines;
}

TEST(Path, RadiiAreCutToHalfTheShorterSide) {
    EXPECT_EQ(Path::roundedRect({0, 0, 10, 4}, 50).elements().front().c.x, 2);
    EXPECT_EQ(Path::roundedRect({0, 0, 10, 4}, -1).elements().front().c.x, 0);
    EXPECT_EQ(Path::roundedRect({0, 0, -10, 4}, 5).elements().front().c.x, 0);
}

TEST(Path, CopiesAreTheirOwn) {
    Path first = Path::ellipse({0, 0, 1, 1});
    Path second = first;
    EXPECT_EQ(first, second);
    second.closeSubpath();
    EXPECT_NE(first, second);
    first = std::move(second);
    EXPECT_EQ(first.elements().size(), 2U);
}

TEST(Path, ANewPathIsEmptyWhateverMemoryItGot) {
    for (int round = 0; round < 100; ++round) {
        Path path;
        EXPECT_TRUE(path.isEmpty());
        path.addLines(std::vector<Point>{{0, 0}, {1, 1}, {2, 2}});
    }
}

TEST(Path, EllipsesStayOnTheirCircle) {
    const Outline lines = linesOf(Path::ellipse({-5, -5, 10, 10}));
    ASSERT_EQ(lines.contourCount(), 1U);
    EXPECT_TRUE(lines.isClosed(0));
    for (const Point& point : lines.contour(0)) {
        EXPECT_NEAR(std::hypot(point.x, point.y), 5, flatness / 10); // ten pixels a unit
    }
}

TEST(Path, ArcsGoTheWayTheyAreTold) {
    const auto middleOf = [](ArcDirection direction) {
        Path path;
        path.addArc({0, 0}, 10, 0, pi / 2, direction);
        const Outline lines = linesOf(path);
        const auto points = lines.contour(0);
        EXPECT_NEAR(points.front().x, 10, 1e-9);
        EXPECT_NEAR(points.back().y, 10, 1e-3);
        for (const Point& point : points) {
            EXPECT_NEAR(std::hypot(point.x, point.y), 10, 0.01);
        }
        return points[points.size() / 2];
    };
    EXPECT_GT(middleOf(ArcDirection::clockwise).y, 0);
    EXPECT_LT(middleOf(ArcDirection::counterclockwise).x, 0);
}

TEST(Path, ContinuousCornersBeginEarlierAndMeetTheSameMiddle) {
    const auto cornerOf = [](CornerStyle style) {
        const Path curves = Path::roundedRect({0, 0, 100, 100}, 20, style).flattenedToCurves();
        return curves.elements();
    };
    const auto circular = cornerOf(CornerStyle::circular);
    const auto continuous = cornerOf(CornerStyle::continuous);
    EXPECT_EQ(circular.front().a, (Point{20, 0}));
    EXPECT_EQ(continuous.front().a, (Point{29, 0}));
    const auto middle = [](const std::vector<PathElement>& elements) {
        const Point from = elements[1].a;
        const PathElement& curve = elements[2];
        return (from.x + 3 * curve.b.x + 3 * curve.c.x + curve.a.x) / 8;
    };
    EXPECT_NEAR(middle(circular), middle(continuous), 0.02);
    // Without room a corner begins in the middle of the side.
    EXPECT_EQ(
        Path::roundedRect({0, 0, 40, 40}, 20, CornerStyle::continuous)
            .flattenedToCurves()
            .elements()
            .front()
            .a,
        (Point{20, 0})
    );
}

TEST(Recording, PrintsItsCommands) {
    RecordingCanvas canvas;
    GraphicsContext context(canvas);
    GraphicsContext copy = context;
    copy.translateBy(1.23456, 2);
    copy.setOpacity(0.5);
    copy.fill(Path::ellipse({1, 2, 3, 4}), Color{1, 0.5, 0});
    context.stroke(
        Path::polyline({{0, 0}, {-0.00001, 1}}), Color::named(NamedColor::pink), StrokeStyle::round(2)
    );
    context.draw({"a\"b", 9, FontWeight::black, FontDesign::rounded, Color::black()}, {5, 6});
    EXPECT_EQ(canvas.toJson(), R"([
{"fill":[["ellipse",1,2,3,4]],"with":[1,0.5,0,1],"transform":[1,0,0,1,1.2346,2],"opacity":0.5},
{"stroke":[["move",0,0],["line",0,1]],"with":{"name":"pink","opacity":1},"width":2,"cap":"round","join":"round","transform":[1,0,0,1,0,0]},
{"text":"a\"b","center":[5,6],"size":9,"weight":"black","design":"rounded","with":[0,0,0,1],"transform":[1,0,0,1,0,0]}
]
)");
}

TEST(Recording, ReplaysTheSame) {
    RecordingCanvas canvas;
    GraphicsContext context(canvas);
    context.rotate(1);
    context.fill(Path::ellipse({1, 2, 3, 4}), RadialGradient{{Color::white(), Color::clear()}, {1, 1}, 0, 3});
    context.draw({"zz", 9, FontWeight::black, FontDesign::rounded, Color::black()}, {5, 6});
    RecordingCanvas again;
    canvas.replay(again);
    EXPECT_EQ(canvas.toJson(), again.toJson());
}

} // namespace

} // namespace mimkins::test
