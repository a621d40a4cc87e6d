#include "Drawing/RasterCanvas.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <optional>
#include <vector>

namespace mimkins::test {

namespace {

constexpr Color opaque = Color::white();

struct Picture {
    int width;
    int height;
    std::vector<std::uint32_t> pixels;

    Picture(int columns, int rows)
        : width(columns), height(rows), pixels(static_cast<std::size_t>(columns * rows), 0) {}

    GraphicsContext context(double scale = 1) {
        canvas_.emplace(Bitmap{pixels.data(), width, height, width}, scale, ColorScheme::dark, nullptr);
        return GraphicsContext(*canvas_);
    }

    std::uint32_t at(int x, int y) const {
        return pixels.at(
            static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)
        );
    }

    double alpha(int x, int y) const { return (at(x, y) >> 24) / 255.0; }

    /// The covered area in pixels.
    double area() const {
        double sum = 0;
        for (const std::uint32_t pixel : pixels) {
            sum += (pixel >> 24) / 255.0;
        }
        return sum;
    }

private:
    std::optional<RasterCanvas> canvas_;
};

Path rectangle(double x, double y, double width, double height) {
    return Path::roundedRect({x, y, width, height}, 0);
}

TEST(Raster, PixelsAreCoveredByTheirArea) {
    Picture picture(8, 8);
    picture.context().fill(rectangle(1.5, 2.25, 3, 2), opaque);
    EXPECT_NEAR(picture.alpha(3, 3), 1, 0.01);
    EXPECT_NEAR(picture.alpha(1, 3), 0.5, 0.01);
    EXPECT_NEAR(picture.alpha(3, 2), 0.75, 0.01);
    EXPECT_NEAR(picture.alpha(3, 4), 0.25, 0.01);
    EXPECT_NEAR(picture.alpha(1, 2), 0.375, 0.01);
    EXPECT_EQ(picture.at(0, 0), 0U);
    EXPECT_EQ(picture.at(5, 3), 0U);
    EXPECT_NEAR(picture.area(), 6, 0.1);
}

TEST(Raster, ColoursArePremultiplied) {
    Picture picture(2, 1);
    picture.context().fill(rectangle(0, 0, 1, 1), Color{1, 0.5, 0, 0.5});
    EXPECT_EQ(picture.at(0, 0), 0x80804000U);
    EXPECT_EQ(picture.at(1, 0), 0U);
}

TEST(Raster, DrawsOverWhatIsThere) {
    Picture picture(1, 1);
    picture.context().fill(rectangle(0, 0, 1, 1), Color{0, 0, 1});
    picture.context().fill(rectangle(0, 0, 1, 1), Color{1, 0, 0, 0.5});
    const std::uint32_t pixel = picture.at(0, 0);
    EXPECT_NEAR(pixel >> 24, 255, 1);
    EXPECT_NEAR((pixel >> 16) & 255, 128, 2);
    EXPECT_NEAR(pixel & 255, 127, 2);
}

TEST(Raster, TheContextsOpacityCounts) {
    Picture picture(1, 1);
    GraphicsContext context = picture.context();
    context.setOpacity(0.25);
    context.fill(rectangle(0, 0, 1, 1), opaque);
    EXPECT_NEAR(picture.alpha(0, 0), 0.25, 0.01);
}

TEST(Raster, DiscsAndRingsHaveTheirArea) {
    Picture disc(64, 64);
    disc.context().fill(Path::ellipse({2.3, 3.7, 50, 50}), opaque);
    EXPECT_NEAR(disc.area(), std::numbers::pi * 625, 1);
    Picture ring(64, 64);
    ring.context().stroke(Path::ellipse({10, 10, 40, 40}), opaque, StrokeStyle::plain(4));
    EXPECT_NEAR(ring.area(), std::numbers::pi * (22 * 22 - 18 * 18), 4);
    EXPECT_EQ(ring.at(30, 30), 0U);
}

TEST(Raster, AShapeThatNobodySeesLeavesNothingForTheNext) {
    Picture picture(20, 20);
    GraphicsContext context = picture.context();
    context.fill(Path::ellipse({1, 1, 18, 18}), Color::white(0));
    context.fill(rectangle(4, 4, 2, 2), opaque);
    context.fill(rectangle(2, 8, 9, 3), opaque);
    EXPECT_NEAR(picture.area(), 31, 0.01);
    EXPECT_NEAR(picture.alpha(4, 4), 1, 0.01);
}

TEST(Raster, AnArcIsJoinedToWhereThePenIs) {
    Picture picture(20, 20);
    Path slice;
    slice.move({2, 2});
    slice.addArc({2, 2}, 16, 0, std::numbers::pi / 2);
    slice.closeSubpath();
    slice.addArc({2, 2}, 1, 0, std::numbers::pi / 2); // no line from the slice leads here
    picture.context().fill(slice, opaque);
    EXPECT_NEAR(picture.alpha(4, 4), 1, 0.01);
    EXPECT_NEAR(picture.area(), std::numbers::pi * 16 * 16 / 4, 1);
}

TEST(Raster, ThickLinesAlongACurveHaveTheirArea) {
    for (const double width : {0.7, 3.0, 8.0, 14.0}) {
        Picture picture(60, 60);
        Path curve;
        curve.addArc({30, 30}, 16, 0, 1.5 * std::numbers::pi);
        StrokeStyle style;
        style.width = width;
        picture.context().stroke(curve, opaque, style);
        EXPECT_NEAR(picture.area(), 1.5 * std::numbers::pi * 16 * width, 0.01 * 24 * std::numbers::pi * width)
            << width;
    }
}

TEST(Raster, ABendThatIsTighterThanTheLineIsWideHasNoHoles) {
    Picture picture(40, 40);
    Path hook;
    hook.move({10, 30});
    hook.addCurve({30, 30}, {10, 6}, {30, 6});
    hook.addLine({28, 34});
    StrokeStyle style;
    style.width = 16;
    style.cap = LineCap::round;
    style.join = LineJoin::round;
    picture.context().stroke(hook, opaque, style);
    for (int step = 0; step <= 20; ++step) {
        const double way = step / 20.0;
        const double back = 1 - way;
        const double curveX = back * back * back * 10 + 3 * back * back * way * 10 +
                              3 * back * way * way * 30 + way * way * way * 30;
        const double curveY = back * back * back * 30 + 3 * back * back * way * 6 + 3 * back * way * way * 6 +
                              way * way * way * 30;
        EXPECT_NEAR(picture.alpha(static_cast<int>(curveX), static_cast<int>(curveY)), 1, 0.01) << way;
    }
}

TEST(Raster, RoundedRectanglesHaveTheirArea) {
    Picture circular(64, 64);
    circular.context().fill(Path::roundedRect({4, 4, 40, 30}, 10), opaque);
    EXPECT_NEAR(circular.area(), 1200 - (4 - std::numbers::pi) * 100, 2);
    Picture continuous(64, 64);
    continuous.context().fill(Path::roundedRect({4, 4, 40, 30}, 10, CornerStyle::continuous), opaque);
    EXPECT_NEAR(continuous.area(), circular.area(), 16);
    EXPECT_NE(continuous.pixels, circular.pixels);
}

TEST(Raster, OppositeSensesCutHolesAndEqualOnesDont) {
    Path path = rectangle(0, 0, 10, 10);
    path.addRoundedRect({2, 2, 4, 4}, 0);
    Picture full(10, 10);
    full.context().fill(path, opaque);
    EXPECT_NEAR(full.area(), 100, 0.1);
    Path holed = rectangle(0, 0, 10, 10);
    holed.addLines(std::vector<Point>{{2, 2}, {2, 6}, {6, 6}, {6, 2}});
    holed.closeSubpath();
    Picture cut(10, 10);
    cut.context().fill(holed, opaque);
    EXPECT_NEAR(cut.area(), 84, 0.1);
}

TEST(Raster, LinesHaveTheirWidthAndCaps) {
    const Path path = Path::polyline({{5, 10}, {25, 10}});
    Picture butt(32, 20);
    butt.context().stroke(path, opaque, StrokeStyle::plain(4));
    EXPECT_NEAR(butt.area(), 80, 0.5);
    Picture round(32, 20);
    round.context().stroke(path, opaque, StrokeStyle::round(4));
    EXPECT_NEAR(round.area(), 80 + std::numbers::pi * 4, 0.5);
    Picture dot(32, 20);
    dot.context().stroke(Path::polyline({{5, 10}, {5, 10}}), opaque, StrokeStyle::round(4));
    EXPECT_NEAR(dot.area(), std::numbers::pi * 4, 0.4);
}

TEST(Raster, CornersAreMiteredOrRound) {
    const Path corner = Path::polyline({{4, 20}, {20, 20}, {20, 4}});
    Picture mitered(32, 32);
    mitered.context().stroke(corner, opaque, StrokeStyle::plain(4));
    // The lines share a square of 2 by 2 on the inner side; the miter adds one on the outer side.
    EXPECT_NEAR(mitered.area(), 16 * 4 * 2, 0.6);
    Picture round(32, 32);
    StrokeStyle style = StrokeStyle::plain(4);
    style.join = LineJoin::round;
    round.context().stroke(corner, opaque, style);
    EXPECT_NEAR(round.area(), 16 * 4 * 2 - 4 + std::numbers::pi, 0.6);
    Picture cut(32, 32);
    style.join = LineJoin::miter;
    style.miterLimit = 1;
    cut.context().stroke(corner, opaque, style);
    EXPECT_NEAR(cut.area(), 16 * 4 * 2 - 4 + 2, 0.6);
}

TEST(Raster, DashesLeaveGaps) {
    StrokeStyle style = StrokeStyle::plain(2);
    style.dash = {7, 4, 0, 0};
    style.dashCount = 2;
    Picture picture(40, 8);
    picture.context().stroke(Path::polyline({{0, 4}, {33, 4}}), opaque, style);
    EXPECT_NEAR(picture.area(), 3 * 7 * 2, 0.5);
    EXPECT_NEAR(picture.alpha(3, 4), 1, 0.01);
    EXPECT_NEAR(picture.alpha(9, 4), 0, 0.01);
    EXPECT_NEAR(picture.alpha(12, 4), 1, 0.01);
}

TEST(Raster, GradientsRunBetweenTheirEnds) {
    Picture picture(20, 20);
    picture.context().fill(
        rectangle(0, 0, 20, 20), LinearGradient{{Color::black(), Color::white()}, {5, 0}, {15, 0}}
    );
    EXPECT_EQ(picture.at(2, 10) & 255, 0U);
    EXPECT_EQ(picture.at(18, 10) & 255, 255U);
    EXPECT_NEAR(picture.at(10, 10) & 255, 140, 3);
    Picture down(4, 20);
    down.context().fill(
        rectangle(0, 0, 4, 20), LinearGradient{{Color::black(), Color::white()}, {0, 0}, {0, 20}}
    );
    EXPECT_NEAR(down.at(1, 10) & 255, 134, 2);
    Picture round(21, 21);
    round.context().fill(
        rectangle(0, 0, 21, 21), RadialGradient{{Color::white(), Color::black()}, {10.5, 10.5}, 0, 10}
    );
    EXPECT_EQ(round.at(10, 10) & 255, 255U);
    EXPECT_NEAR(round.at(15, 10) & 255, 127, 3);
    EXPECT_EQ(round.at(0, 0) & 255, 0U);
}

TEST(Raster, AnAngularGradientGoesClockwiseFromItsAngle) {
    Picture picture(21, 21);
    picture.context().fill(
        rectangle(0, 0, 21, 21), AngularGradient{{Color::black(), Color::white()}, {10.5, 10.5}, 0}
    );
    EXPECT_NEAR(picture.at(10, 20) & 255, 64, 6); // below: a quarter round
    EXPECT_NEAR(picture.at(0, 10) & 255, 128, 6); // left: half round
    EXPECT_NEAR(picture.at(10, 0) & 255, 191, 6); // above
}

TEST(Raster, TransformsMoveTurnAndScale) {
    Picture picture(40, 40);
    GraphicsContext context = picture.context(2);
    context.translateBy(10, 10);
    context.rotate(std::numbers::pi / 2);
    context.scaleBy(2, 1);
    context.fill(rectangle(0, 0, 3, 1), opaque); // x becomes downwards, y to the left
    EXPECT_NEAR(picture.area(), 3 * 2 * 1 * 4, 0.2);
    EXPECT_NEAR(picture.alpha(19, 25), 1, 0.01);
    EXPECT_NEAR(picture.alpha(20, 25), 0, 0.01);
}

TEST(Raster, NamedColoursFollowTheScheme) {
    Picture dark(1, 1);
    dark.context().fill(rectangle(0, 0, 1, 1), Color::named(NamedColor::primary));
    EXPECT_GT(dark.at(0, 0) & 255, 200U);
    std::uint32_t pixel = 0;
    RasterCanvas light({&pixel, 1, 1, 1}, 1, ColorScheme::light, nullptr);
    GraphicsContext(light).fill(rectangle(0, 0, 1, 1), Color::named(NamedColor::primary));
    EXPECT_EQ(pixel & 255, 0U);
}

TEST(Raster, WhatLiesOutsideIsLeftOut) {
    Picture picture(10, 10);
    GraphicsContext context = picture.context();
    context.fill(rectangle(-100, -100, 105, 105), opaque);
    EXPECT_NEAR(picture.area(), 25, 0.1);
    context.fill(rectangle(50, 50, 10, 10), opaque);
    context.fill(rectangle(-50, 2, 10, 3), opaque);
    EXPECT_NEAR(picture.area(), 25, 0.1);
    context.fill(rectangle(-1e9, -1e9, 2e9, 2e9), opaque);
    EXPECT_NEAR(picture.area(), 100, 0.1);
}

TEST(Raster, WhatIsNoShapeDrawsNothing) {
    Picture picture(10, 10);
    GraphicsContext context = picture.context();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    context.fill(Path(), opaque);
    context.stroke(Path(), opaque, StrokeStyle::round(2));
    context.fill(Path::ellipse({nan, 0, 4, 4}), opaque);
    context.fill(Path::polygon({{0, 0}, {infinite, 0}, {5, 5}}), opaque);
    context.fill(Path::polygon({{1, 1}, {5, 5}}), opaque);
    context.scaleBy(0, 1);
    context.fill(rectangle(0, 0, 10, 10), LinearGradient{{Color::black(), Color::white()}, {0, 0}, {1, 0}});
    EXPECT_EQ(picture.area(), 0);
}

RC_GTEST_PROP(Raster, StaysWithinThePicture, ()) {
    const auto number = [] { return static_cast<double>(*rc::gen::inRange(-400, 400)) / 7; };
    // A border of sentinels on all sides shows what is written past the picture's rows.
    constexpr int side = 12;
    constexpr std::ptrdiff_t stride = side;
    constexpr std::uint32_t sentinel = 0x12345678;
    std::vector<std::uint32_t> memory(std::size_t{3} * side * side, sentinel);
    std::uint32_t* inside = memory.data() + side * stride + 2;
    for (int y = 0; y < side; ++y) {
        std::fill_n(inside + y * stride, 8, 0U);
    }
    RasterCanvas canvas({inside, 8, side, side}, 1, ColorScheme::dark, nullptr);
    GraphicsContext context(canvas);
    context.translateBy(number(), number());
    context.rotate(number());
    context.fill(Path::ellipse({number(), number(), std::fabs(number()), std::fabs(number())}), opaque);
    Path curve;
    curve.move({number(), number()});
    curve.addQuadCurve({number(), number()}, {number(), number()});
    curve.addArc({number(), number()}, std::fabs(number()), number(), number());
    context.stroke(curve, opaque, StrokeStyle::round(std::fabs(number())));
    for (std::size_t index = 0; index < memory.size(); ++index) {
        const auto offset = static_cast<std::ptrdiff_t>(index) - (side * stride + 2);
        const bool isInside = offset >= 0 && offset < side * stride && offset % side < 8;
        RC_ASSERT(isInside || memory[index] == sentinel);
    }
}

} // namespace

} // namespace mimkins::test
