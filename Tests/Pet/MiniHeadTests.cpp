#include "Drawing/RecordingCanvas.h"
#include "Pet/MiniHead.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mimkins::test {

namespace {

struct Head {
    Head(MiniHead head, const PetLook& look) {
        GraphicsContext context(canvas);
        head.draw(context, look);
    }

    const FillCommand& fill(std::size_t index) const {
        return std::get<FillCommand>(canvas.commands().at(index));
    }

    const StrokeCommand& stroke(std::size_t index) const {
        return std::get<StrokeCommand>(canvas.commands().at(index));
    }

    RecordingCanvas canvas;
};

Rect boxOf(const Path& path) {
    const PathElement& element = path.elements().front();
    return {element.a.x, element.a.y, element.b.x, element.b.y};
}

void expectNear(const Rect& shown, const Rect& expected) {
    EXPECT_NEAR(shown.x, expected.x, 1e-9);
    EXPECT_NEAR(shown.y, expected.y, 1e-9);
    EXPECT_NEAR(shown.width, expected.width, 1e-9);
    EXPECT_NEAR(shown.height, expected.height, 1e-9);
}

TEST(MiniHeadTest, HueComesFromTheSeed) {
    for (const std::uint64_t seed : {0ULL, 1ULL, 359ULL, 360ULL, 0xffff'ffff'ffff'ffffULL}) {
        const MiniHead head{seed};
        EXPECT_DOUBLE_EQ(head.hue({}), static_cast<double>(seed % 360) / 360);
        PetLook fixed;
        fixed.hue = 0.36;
        EXPECT_DOUBLE_EQ(head.hue(fixed), 0.36 + static_cast<double>(seed % 40) / 1000);
    }
}

TEST(MiniHeadTest, FixedHueIsNotWrapped) {
    PetLook look;
    look.hue = 0.99;
    EXPECT_DOUBLE_EQ(MiniHead{39}.hue(look), 1.029);
    // As a colour it goes round.
    const Head head({39}, look);
    const auto face = std::get<LinearGradient>(head.fill(0).shading);
    const Color round = Color::hsb(0.029, 0.45, 0.97);
    EXPECT_NEAR(face.gradient.colors()[0].green, round.green, 1e-9);
    EXPECT_NEAR(face.gradient.colors()[0].blue, round.blue, 1e-9);
}

TEST(MiniHeadTest, FaceIsARoundedGradientWithAnEdgeInside) {
    PetLook look;
    look.saturation = 0.55;
    look.brightness = 1.05;
    const Head head({200}, look);
    const PathElement& face = head.fill(0).path.elements().front();
    expectNear(boxOf(head.fill(0).path), {0, 0, 13, 12});
    EXPECT_EQ(face.kind, PathElement::Kind::roundedRect);
    EXPECT_EQ(face.c.x, 4);
    EXPECT_EQ(face.corners, CornerStyle::continuous);
    const auto fill = std::get<LinearGradient>(head.fill(0).shading);
    const double hue = 200.0 / 360;
    EXPECT_EQ(
        fill.gradient, (Gradient{Color::hsb(hue, 0.45 * 0.55, 1), Color::hsb(hue, 0.6 * 0.55, 0.8 * 1.05)})
    );
    EXPECT_EQ(fill.start.y, 0);
    EXPECT_EQ(fill.end.y, 12);
    expectNear(boxOf(head.stroke(1).path), {0.5, 0.5, 12, 11});
    EXPECT_EQ(head.stroke(1).style.width, 1);
    EXPECT_EQ(std::get<Color>(head.stroke(1).shading), Color::black(0.35));
}

TEST(MiniHeadTest, OutlineOfTheLookIsItsEdge) {
    PetLook look;
    look.outline = Color{0.15, 0.15, 0.2};
    EXPECT_EQ(std::get<Color>(Head({5}, look).stroke(1).shading), *look.outline);
}

TEST(MiniHeadTest, EyesLieALittleAboveTheMiddle) {
    const Head head({5}, {});
    expectNear(boxOf(head.fill(2).path), {6.5 - 1.5 - 1.8, 6 - 0.5 - 1.8, 1.8, 3.6});
    expectNear(boxOf(head.fill(3).path), {6.5 + 1.5, 6 - 0.5 - 1.8, 1.8, 3.6});
    EXPECT_EQ(std::get<Color>(head.fill(2).shading), Color::black(0.85));
    EXPECT_EQ(head.fill(2).path.elements().front().c.x, 0.9);
}

TEST(MiniHeadTest, WithoutABoostThereIsNoBandAndNoHalo) {
    EXPECT_EQ(Head({5, 0}, {}).canvas.commands().size(), 4U);
}

TEST(MiniHeadTest, HighEffortWearsABand) {
    const Head head({5, 1}, {});
    ASSERT_EQ(head.canvas.commands().size(), 5U);
    expectNear(boxOf(head.fill(4).path), {0, 2, 13, 2});
    EXPECT_EQ(std::get<Color>(head.fill(4).shading), (Color{0.9, 0.2, 0.25}));
}

TEST(MiniHeadTest, TopEffortHasAHaloAbove) {
    const Head head({5, 2}, {});
    ASSERT_EQ(head.canvas.commands().size(), 5U);
    const auto& halo = head.stroke(4);
    // 11 by 4 with its line inside, five points up from the top.
    expectNear(boxOf(halo.path), {1 + 0.6, -5 + 0.6, 11 - 1.2, 4 - 1.2});
    EXPECT_EQ(halo.style.width, 1.2);
    EXPECT_EQ(std::get<Color>(halo.shading), (Color{1, 0.85, 0.4}));
}

} // namespace

} // namespace mimkins::test
