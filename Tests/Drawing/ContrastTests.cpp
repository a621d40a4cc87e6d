#include "Drawing/Contrast.h"

#include <gtest/gtest.h>

namespace mimkins::test {

namespace {

TEST(Contrast, GoesFromOneToTwentyOne) {
    EXPECT_DOUBLE_EQ(contrast(Color::black(), Color::black()), 1);
    EXPECT_NEAR(contrast(Color::black(), Color::white()), 21, 1e-9);
    EXPECT_NEAR(contrast(Color::white(), Color::black()), 21, 1e-9);
    EXPECT_NEAR(contrast(Color::grey(0x77 / 255.0), Color::white()), 4.48, 0.01);
}

TEST(Contrast, CountsAnInkThatIsSeenThroughAsWhatIsSeen) {
    EXPECT_DOUBLE_EQ(contrast(Color::black(0), Color::white()), 1);
    EXPECT_DOUBLE_EQ(contrast(Color::black(0.5), Color::white()), contrast(Color::grey(0.5), Color::white()));
}

TEST(InkOn, IsBlackWhereverThatCanBeRead) {
    EXPECT_EQ(inkOn(Color::white(), 0.85), Color::black(0.85));
    EXPECT_EQ(inkOn({0.35, 0.92, 0.82}, 0.85), Color::black(0.85));
    EXPECT_EQ(inkOn({0.15, 0.15, 0.2}, 0.85), Color::white(0.95));
    EXPECT_EQ(inkOn(Color::black(), 0.85), Color::white(0.95));
}

TEST(InkOn, CanBeReadOnEveryGrey) {
    for (double level = 0; level <= 1; level += 1.0 / 64) {
        const Color ground = Color::grey(level);
        EXPECT_GE(contrast(inkOn(ground, 1), ground), 4.4) << level;
    }
}

TEST(Readable, LeavesWhatCanBeReadAsItIs) {
    const Color blue{0.2, 0.4, 0.75};
    EXPECT_EQ(readable(blue, {Color::white(), Color::black(), 3}), blue);
}

TEST(Readable, DarkensPaleColoursJustEnough) {
    const Color yellow{1, 0.8, 0};
    const Color ink = readable(yellow, {Color::white(), Color::black(), 3});
    EXPECT_GE(contrast(ink, Color::white()), 3);
    EXPECT_LT(contrast(ink, Color::white()), 4);
    EXPECT_GT(ink.red, ink.blue); // still a yellow
    EXPECT_EQ(readable(yellow, {Color::white(), Color::black(), 22}), Color::black());
}

} // namespace

} // namespace mimkins::test
