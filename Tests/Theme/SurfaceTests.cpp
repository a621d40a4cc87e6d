#include "Theme/Drawn.h"
#include "Theme/ThemeDrawing.h"

#include <numbers>

namespace mimkins::test {

namespace {

constexpr Size panel{320, 700};

TEST(Sky, IsTheThemesGradientFromTopToBottom) {
    for (const PetTheme& theme : PetTheme::all()) {
        if (theme.sky.empty()) {
            continue;
        }
        Drawn drawn;
        drawSky(drawn.context(), theme, ColorScheme::dark, panel);
        ASSERT_EQ(drawn.size(), 1 + theme.glows.size()) << theme.id;
        const auto sky = std::get<LinearGradient>(drawn.fill(0).shading);
        EXPECT_EQ(sky.gradient, Gradient(theme.sky));
        EXPECT_EQ(sky.start, (Point{0, 0}));
        EXPECT_EQ(sky.end, (Point{0, 700}));
        EXPECT_EQ(boxOf(drawn.fill(0).path.elements().front()), (Rect{0, 0, 320, 700}));
    }
}

TEST(Sky, GlowsFadeToClearWithinTheirRadius) {
    const PetTheme& night = PetTheme::nightSky();
    Drawn drawn;
    drawSky(drawn.context(), night, ColorScheme::dark, panel);
    for (std::size_t index = 0; index < night.glows.size(); ++index) {
        const Glow& glow = night.glows[index];
        const auto light = std::get<RadialGradient>(drawn.fill(1 + index).shading);
        EXPECT_EQ(light.center, (Point{320 * glow.center.x, 700 * glow.center.y}));
        EXPECT_EQ(light.startRadius, 0);
        EXPECT_EQ(light.endRadius, glow.radius);
        ASSERT_EQ(light.gradient.colors().size(), 2U);
        EXPECT_EQ(light.gradient.colors()[0], glow.color);
        EXPECT_EQ(light.gradient.colors()[1].opacity, 0);
    }
}

TEST(Sky, WithoutOneIsGlassThatFollowsTheScheme) {
    const PetTheme& classic = PetTheme::named("classic");
    double levels[2]{};
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        Drawn drawn;
        drawSky(drawn.context(), classic, scheme, panel);
        ASSERT_GE(drawn.size(), 1U);
        const auto glass = std::get<LinearGradient>(drawn.fill(0).shading);
        EXPECT_EQ(glass.gradient.colors()[0].opacity, 0.82);
        levels[static_cast<std::size_t>(scheme)] = glass.gradient.colors()[0].red;
    }
    EXPECT_GT(levels[0], 0.8);
    EXPECT_LT(levels[1], 0.3);
}

TEST(TextureTest, NoneDrawsNothing) {
    Drawn drawn;
    drawTexture(drawn.context(), Texture::none, panel);
    EXPECT_EQ(drawn.size(), 0U);
}

TEST(TextureTest, DotsStandEveryEighteenPointsFromNine) {
    Drawn drawn;
    drawTexture(drawn.context(), Texture::dots, panel);
    ASSERT_EQ(drawn.size(), 1U);
    expectNear(colorOf(drawn.fill(0).shading), Color::white(0.05));
    const auto& dots = drawn.fill(0).path.elements();
    std::size_t index = 0;
    for (double y = 9; y < 700; y += 18) {
        for (double x = 9; x < 320; x += 18, ++index) {
            ASSERT_LT(index, dots.size());
            EXPECT_EQ(dots[index].kind, PathElement::Kind::ellipse);
            expectNear(boxOf(dots[index]), {x, y, 1.4, 1.4});
        }
    }
    EXPECT_EQ(index, dots.size());
}

TEST(TextureTest, RuledLinesAndOneMargin) {
    Drawn drawn;
    drawTexture(drawn.context(), Texture::ruled, panel);
    ASSERT_EQ(drawn.size(), 2U);
    expectNear(colorOf(drawn.fill(0).shading), {0.45, 0.6, 0.9, 0.28});
    const auto& lines = drawn.fill(0).path.elements();
    ASSERT_EQ(lines.size(), 31U); // from 30 to 690
    for (std::size_t index = 0; index < lines.size(); ++index) {
        expectNear(boxOf(lines[index]), {0, 30 + 22 * static_cast<double>(index), 320, 0.8});
    }
    expectNear(colorOf(drawn.fill(1).shading), {0.9, 0.35, 0.35, 0.35});
    ASSERT_EQ(drawn.fill(1).path.elements().size(), 1U);
    expectNear(boxOf(drawn.fill(1).path.elements().front()), {14, 0, 1, 700});
}

TEST(TextureTest, ScanlinesEveryThreePoints) {
    Drawn drawn;
    drawTexture(drawn.context(), Texture::scanlines, panel);
    ASSERT_EQ(drawn.size(), 1U);
    expectNear(colorOf(drawn.fill(0).shading), Color::black(0.35));
    const auto& lines = drawn.fill(0).path.elements();
    ASSERT_EQ(lines.size(), 234U);
    for (std::size_t index = 0; index < lines.size(); ++index) {
        expectNear(boxOf(lines[index]), {0, 3 * static_cast<double>(index), 320, 1});
    }
}

TEST(TextureTest, GridRunsToAHorizon) {
    Drawn drawn;
    drawTexture(drawn.context(), Texture::grid, panel);
    ASSERT_EQ(drawn.size(), 2U);
    const double horizon = 0.68 * 700;
    expectNear(colorOf(drawn.fill(0).shading), {1, 0.3, 0.8, 0.45});
    expectNear(boxOf(drawn.fill(0).path.elements().front()), {0, horizon, 320, 1.2});
    expectNear(colorOf(drawn.stroke(1).shading), {1, 0.3, 0.8, 0.3});
    EXPECT_EQ(drawn.stroke(1).style, StrokeStyle::plain(1));
    const auto& floor = drawn.stroke(1).path.elements();
    ASSERT_EQ(floor.size(), 2U * (12 + 13));
    for (std::size_t row = 0; row < 12; ++row) {
        const double near = (static_cast<double>(row) + 1) / 12;
        for (const std::size_t end : {2 * row, 2 * row + 1}) {
            EXPECT_NEAR(floor[end].a.y, horizon + (700 - horizon) * near * near, 1e-9);
        }
        EXPECT_EQ(floor[2 * row].a.x, 0);
        EXPECT_EQ(floor[2 * row + 1].a.x, 320);
    }
    double before = -1e9;
    for (std::size_t column = 12; column < 25; ++column) {
        EXPECT_EQ(floor[2 * column].a, (Point{160, horizon}));
        const Point foot = floor[2 * column + 1].a;
        EXPECT_EQ(foot.y, 700);
        EXPECT_GT(foot.x, before);
        before = foot.x;
    }
    EXPECT_NEAR(floor[24 + 12 + 1].a.x, 160, 1e-9); // the middle one falls straight
}

TEST(Border, TravellingColoursGoOnceRoundInTwentyFourSeconds) {
    const Path shape = edgePath(panel, 18, 1.5);
    for (const double t : {0.0, 6.0, 13.5, 24.0, 30.0, 795'000'000.25}) {
        Drawn drawn;
        drawBorder(drawn.context(), shape, PetTheme::nightSky(), panel, t);
        ASSERT_EQ(drawn.size(), 1U);
        const auto& stroke = drawn.stroke(0);
        EXPECT_EQ(stroke.path, shape);
        EXPECT_EQ(stroke.style, StrokeStyle::plain(1.5));
        EXPECT_EQ(stroke.state.opacity, 0.75);
        const auto round = std::get<AngularGradient>(stroke.shading);
        EXPECT_EQ(round.gradient, Gradient(PetTheme::nightSky().border));
        EXPECT_EQ(round.center, (Point{160, 350}));
        EXPECT_NEAR(round.angle * 180 / std::numbers::pi, 360 * std::fmod(t, 24) / 24, 1e-9);
    }
}

TEST(Border, StandingOnesArePlainOrDashed) {
    const Path shape = edgePath(panel, 18, 1);
    for (const PetTheme& theme : PetTheme::all()) {
        if (theme.borderTravels) {
            continue;
        }
        Drawn drawn;
        drawBorder(drawn.context(), shape, theme, panel, 7);
        const auto& stroke = drawn.stroke(0);
        expectNear(colorOf(stroke.shading), theme.border.front());
        EXPECT_EQ(stroke.state.opacity, 1);
        EXPECT_EQ(stroke.style.width, theme.borderWidth);
        EXPECT_EQ(stroke.style.miterLimit, 10);
        ASSERT_EQ(stroke.style.dashCount, theme.borderDash.size()) << theme.id;
        for (std::size_t index = 0; index < theme.borderDash.size(); ++index) {
            EXPECT_EQ(stroke.style.dash[index], theme.borderDash[index]);
        }
    }
}

TEST(EdgePath, IsRoundedOnTheLeftAloneAndInset) {
    const Path shape = edgePath({100, 60}, 18, 2);
    const Path curves = shape.flattenedToCurves();
    double left = 1e9;
    double right = -1e9;
    for (const PathElement& element : curves.elements()) {
        if (element.kind == PathElement::Kind::close) {
            continue;
        }
        left = std::min(left, element.a.x);
        right = std::max(right, element.a.x);
        EXPECT_GE(element.a.y, 2 - 1e-9);
        EXPECT_LE(element.a.y, 58 + 1e-9);
    }
    EXPECT_NEAR(left, 2, 1e-9);
    EXPECT_NEAR(right, 98, 1e-9);
    EXPECT_EQ(shape.elements().front().a, (Point{98, 2}));
    // A continuous corner begins earlier than an arc does, and its middle is the arc's.
    std::size_t corners = 0;
    Point from;
    for (const PathElement& element : shape.elements()) {
        if (element.kind == PathElement::Kind::cubic) {
            ++corners;
            const Point middle{
                (from.x + 3 * element.b.x + 3 * element.c.x + element.a.x) / 8,
                (from.y + 3 * element.b.y + 3 * element.c.y + element.a.y) / 8};
            const double away = 16 * (1 - 1 / std::numbers::sqrt2);
            EXPECT_NEAR(middle.x, 2 + away, 1e-9);
            EXPECT_NEAR(std::min(middle.y, 60 - middle.y), 2 + away, 1e-9);
            EXPECT_NEAR(std::max(from.x, element.a.x), 2 + 1.45 * 16, 1e-9);
        }
        from = element.a;
    }
    EXPECT_EQ(corners, 2U);
}

} // namespace

} // namespace mimkins::test
