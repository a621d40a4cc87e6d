#include "Theme/Drawn.h"
#include "Theme/ThemeDrawing.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace mimkins::test {

namespace {

constexpr Size panel{320, 700};
constexpr double pi = std::numbers::pi;
constexpr std::array moments{0.0, 1.0, 37.25, 795'000'123.4};

Rect about(Point center, double radius) {
    return {center.x - radius, center.y - radius, 2 * radius, 2 * radius};
}

const Color& colorOfParticle(const PetTheme& theme, int index) {
    return theme.particleColors[static_cast<std::size_t>(index) % theme.particleColors.size()];
}

TEST(ParticlesTest, SparksRise) {
    const PetTheme& night = PetTheme::named("night");
    for (const double t : moments) {
        Drawn drawn;
        drawParticles(drawn.context(), night, t, panel);
        ASSERT_EQ(drawn.size(), 14U);
        for (int i = 0; i < 14; ++i) {
            const auto& spark = drawn.fill(static_cast<std::size_t>(i));
            const double f = fractionOf(0.137 * i + t * ((i % 5) * 0.004 + 0.012));
            const Point center{320 * fractionOf(0.618 * i) + 10 * std::sin(0.3 * t + i), 700 * (1 - f)};
            expectNear(boxOf(spark.path.elements().front()), about(center, (i % 3) * 0.6 + 1.2));
            expectNear(colorOf(spark.shading), colorOfParticle(night, i).faded(0.35 * std::sin(pi * f)));
        }
    }
}

TEST(ParticlesTest, FirefliesHaveHaloAndCore) {
    const PetTheme& forest = PetTheme::named("forest");
    for (const double t : moments) {
        Drawn drawn;
        drawParticles(drawn.context(), forest, t, panel);
        ASSERT_EQ(drawn.size(), 28U);
        for (int i = 0; i < 14; ++i) {
            const Point center{
                320 * (0.42 * std::sin(2.1 * i + 0.07 * t * (0.13 * i + 1)) + 0.5),
                700 * (0.45 * std::sin(1.3 * i + 0.05 * t * (0.11 * i + 1)) + 0.5)};
            const double blink = std::max(std::sin(1.7 * i + t * (0.07 * i + 0.8)), 0.0);
            const auto& halo = drawn.fill(2 * static_cast<std::size_t>(i));
            const auto& core = drawn.fill(2 * static_cast<std::size_t>(i) + 1);
            expectNear(boxOf(halo.path.elements().front()), about(center, 6));
            expectNear(boxOf(core.path.elements().front()), about(center, 2));
            expectNear(colorOf(halo.shading), colorOfParticle(forest, i).faded(0.12 * blink));
            expectNear(colorOf(core.shading), colorOfParticle(forest, i).faded(0.8 * blink));
        }
    }
}

TEST(ParticlesTest, BubblesAreRingsThatRise) {
    const PetTheme& ocean = PetTheme::named("ocean");
    for (const double t : moments) {
        Drawn drawn;
        drawParticles(drawn.context(), ocean, t, panel);
        ASSERT_EQ(drawn.size(), 14U);
        for (int i = 0; i < 14; ++i) {
            const auto& bubble = drawn.stroke(static_cast<std::size_t>(i));
            const int n = i % 4;
            const double f = fractionOf(0.173 * i + t * (0.005 * n + 0.018));
            const Point center{320 * fractionOf(0.618 * i) + 6 * std::sin(0.9 * t + i), 700 * (1 - f)};
            expectNear(boxOf(bubble.path.elements().front()), about(center, 1.5 * n + 2.5));
            expectNear(colorOf(bubble.shading), Color{0.7, 0.95, 1, 0.45 * std::sin(pi * f)});
            EXPECT_EQ(bubble.style, StrokeStyle::plain(1));
        }
    }
}

TEST(ParticlesTest, PlainThemesHaveNone) {
    for (const PetTheme& theme : PetTheme::all()) {
        Drawn drawn;
        drawParticles(drawn.context(), theme, 5, panel);
        EXPECT_EQ(drawn.size() == 0, theme.particles == Particles::none) << theme.id;
        EXPECT_EQ(particleAreas(theme, 5, panel).empty(), theme.particles == Particles::none) << theme.id;
    }
}

bool holds(const Rect& outer, const Rect& inner) {
    return outer.x <= inner.x && outer.y <= inner.y && outer.maxX() >= inner.maxX() &&
           outer.maxY() >= inner.maxY();
}

bool isHeld(const std::vector<Rect>& areas, const Rect& inner) {
    return std::any_of(areas.begin(), areas.end(), [&inner](const Rect& area) { return holds(area, inner); });
}

TEST(ParticleAreas, HoldWhateverCanBeSeen) {
    for (const std::string_view id : {"night", "forest", "ocean"}) {
        const PetTheme& theme = PetTheme::named(id);
        for (const double t : moments) {
            Drawn drawn;
            drawParticles(drawn.context(), theme, t, panel);
            const auto areas = particleAreas(theme, t, panel);
            for (std::size_t index = 0; index < drawn.size(); ++index) {
                const bool isRing = theme.particles == Particles::bubbles;
                const Rect box =
                    boxOf((isRing ? drawn.stroke(index).path : drawn.fill(index).path).elements().front());
                const double line = isRing ? 0.5 : 0;
                const Rect inked{box.x - line, box.y - line, box.width + 2 * line, box.height + 2 * line};
                const Color& color =
                    colorOf(isRing ? drawn.stroke(index).shading : drawn.fill(index).shading);
                EXPECT_TRUE(color.opacity < 1.0 / 512 || isHeld(areas, inked)) << id << " " << index;
            }
        }
    }
}

TEST(ConfettiTest, SixtyPapersFallAndTurn) {
    constexpr std::array colors{NamedColor::pink, NamedColor::yellow, NamedColor::cyan,
                                NamedColor::mint, NamedColor::orange, NamedColor::purple};
    for (const double t : moments) {
        Drawn drawn;
        drawConfetti(drawn.context(), t, panel);
        ASSERT_EQ(drawn.size(), 60U);
        const auto areas = confettiAreas(t, panel);
        for (int i = 0; i < 60; ++i) {
            const auto& paper = drawn.fill(static_cast<std::size_t>(i));
            const double fall = fractionOf(i * 0.071 + t * ((i % 7) * 0.02 + 0.18));
            const Transform expected =
                Transform::translation(
                    320 * fractionOf(i * 0.618) + std::sin(2 * t + i) * 12, 700 * fall - 10
                )
                    .after(Transform::rotation(3 * t + i));
            const Transform& shown = paper.state.transform;
            EXPECT_NEAR(shown.tx, expected.tx, 1e-9);
            EXPECT_NEAR(shown.ty, expected.ty, 1e-9);
            EXPECT_NEAR(shown.a, expected.a, 1e-9);
            EXPECT_NEAR(shown.b, expected.b, 1e-9);
            EXPECT_EQ(boxOf(paper.path.elements().front()), (Rect{-3, -1.5, 6, 3}));
            EXPECT_EQ(colorOf(paper.shading), Color::named(colors[static_cast<std::size_t>(i) % 6]));
            for (const Point corner : {Point{-3, -1.5}, Point{3, 1.5}, Point{3, -1.5}}) {
                const Point there = shown.apply(corner);
                EXPECT_TRUE(holds(areas[static_cast<std::size_t>(i)], {there.x, there.y, 0, 0}));
            }
        }
    }
}

TEST(Glow, PulsesWithTheClock) {
    const Path shape = edgePath({28, 92}, 11, 1);
    const Color tint{1, 0.8, 0.35};
    for (const double t : {0.0, 0.3, 0.7, 1.9, 795'000'000.5}) {
        Drawn drawn;
        drawGlowFrame(drawn.context(), shape, {tint, 0}, t);
        const double p = (std::sin(3.5 * t) + 1) * 0.5;
        EXPECT_DOUBLE_EQ(glowPulse(t), p);
        ASSERT_EQ(drawn.size(), 1U);
        expectNear(colorOf(drawn.stroke(0).shading), tint.faded(0.4 + 0.55 * p));
        EXPECT_EQ(drawn.stroke(0).style, StrokeStyle::plain(2));
        EXPECT_EQ(drawn.stroke(0).path, shape);
    }
}

TEST(Glow, BlurLaysLightUnderTheLine) {
    const Path shape = edgePath({200, 92}, 11, 1);
    const Color tint{1, 0.8, 0.35};
    Drawn drawn;
    drawGlowFrame(drawn.context(), shape, {tint, 6}, 0.3);
    ASSERT_GT(drawn.size(), 1U);
    double light = 0;
    for (std::size_t index = 0; index + 1 < drawn.size(); ++index) {
        light += colorOf(drawn.stroke(index).shading).opacity;
        EXPECT_LE(drawn.stroke(index).style.width, 2 + 2 * 6);
    }
    EXPECT_NEAR(light, 0.1 + 0.45 * glowPulse(0.3), 1e-9);
    EXPECT_EQ(drawn.stroke(drawn.size() - 1).style.width, 2);
}

} // namespace

} // namespace mimkins::test
