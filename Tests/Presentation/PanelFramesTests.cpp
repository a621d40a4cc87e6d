#include "Presentation/PanelFrames.h"

#include <gtest/gtest.h>

namespace mimkins::test {

namespace {

const panel::Placement placement{{100, 50, 1000, 800}, 320, 0.62};

TEST(PanelFrames, OpenDrawerHugsTheRightEdge) {
    const auto frames = panel::frames(placement, true);
    EXPECT_EQ(frames.panel, (Rect{780, 58, 320, 784}));
    EXPECT_EQ(frames.tab, (Rect{752, 50 + 800 * 0.62 - 46, 28, 92}));
}

TEST(PanelFrames, ShutDrawerLiesOnePointBeyondTheEdge) {
    const auto frames = panel::frames(placement, false);
    EXPECT_EQ(frames.panel, (Rect{1101, 58, 320, 784}));
    EXPECT_EQ(frames.tab, (Rect{1072, 50 + 800 * 0.62 - 46, 28, 92}));
}

TEST(PanelFrames, TabAtTheBottomReachesBelowTheVisibleFrame) {
    auto lowest = placement;
    lowest.tabPosition = 0;
    EXPECT_EQ(panel::frames(lowest, false).tab.y, 50 - 46);
}

TEST(PanelFrames, ShutDrawerStaysBeyondTheEdgeOfAnotherScreen) {
    auto other = placement;
    other.visibleFrame = {0, 0, 2560, 1400};
    EXPECT_EQ(panel::frames(other, false).panel, (Rect{2561, 8, 320, 1384}));
}

TEST(PanelFrames, TurnsOverInsideTheScreen) {
    const auto upwards = panel::frames(placement, true);
    const auto downwards = panel::framesDownwards(placement, true);
    EXPECT_EQ(downwards.panel, upwards.panel); // as far from the top as from the bottom
    // Measured from the top, the tab's middle stands at the rest of the height.
    EXPECT_DOUBLE_EQ(downwards.tab.y + 46, 50 + 800 * (1 - 0.62));
    EXPECT_EQ(panel::flipped(downwards.tab, placement.visibleFrame), upwards.tab);
}

TEST(PanelFrames, GoesFromOneToTheOther) {
    const auto closed = panel::frames(placement, false);
    const auto open = panel::frames(placement, true);
    EXPECT_EQ(panel::between(closed, open, 0), closed);
    EXPECT_EQ(panel::between(closed, open, 1), open);
    EXPECT_EQ(panel::between(closed, open, 0.5).tab.x, 912);
}

TEST(PanelFrames, SlideBeginsAndEndsSoftly) {
    EXPECT_NEAR(panel::easeInEaseOut(0), 0, 1e-9);
    EXPECT_NEAR(panel::easeInEaseOut(0.5), 0.5, 1e-9);
    EXPECT_NEAR(panel::easeInEaseOut(1), 1, 1e-9);
    EXPECT_NEAR(panel::easeInEaseOut(7), 1, 1e-9);
    EXPECT_LT(panel::easeInEaseOut(0.1), 0.05);
    EXPECT_GT(panel::easeInEaseOut(0.9), 0.95);
    for (int step = 0; step < 100; ++step) {
        EXPECT_LE(panel::easeInEaseOut(step / 100.0), panel::easeInEaseOut((step + 1) / 100.0));
    }
}

} // namespace

} // namespace mimkins::test
