#include "HUD/HUD.h"

#include "HUD/HUDMotion.h"
#include "Support/ManualRunLoop.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

namespace mimkins::test {

namespace {

const Notice first{"Next up: Fix the basket", "Has a question for 7m · press again to open", 7};
const Notice second{"Opening Fix the basket", "Has a question", 7};

class HUDTest : public testing::Test {
protected:
    void show(const Notice& notice) { hud.show(notice, PetTheme::nightSky()); }

    double opacity() const { return hud.view()->windowOpacity(); }

    bool seen() const { return hud.view() != nullptr && hud.view()->isVisible(); }

    ManualRunLoop loop;
    PlainWindowSystem windows;
    HUD hud{{loop, windows}};
};

TEST_F(HUDTest, ComesStaysAndGoes) {
    EXPECT_EQ(hud.view(), nullptr);
    show(first);
    EXPECT_TRUE(seen());
    EXPECT_EQ(opacity(), 0);
    loop.advance(0.08);
    EXPECT_GT(opacity(), 0.3);
    EXPECT_LT(opacity(), 0.7);
    loop.advance(0.08);
    EXPECT_EQ(opacity(), 1);
    loop.advance(1.63);
    EXPECT_EQ(opacity(), 1);
    loop.advance(0.16);
    EXPECT_GT(opacity(), 0.2);
    EXPECT_LT(opacity(), 0.8);
    EXPECT_TRUE(seen());
    loop.advance(0.16);
    EXPECT_FALSE(seen());
    EXPECT_EQ(loop.timers(), 0U);
}

TEST_F(HUDTest, AnotherShowReplacesTheNoticeAndHasItsFullTime) {
    show(first);
    const auto* panel = hud.view();
    loop.advance(0.9);
    show(second);
    EXPECT_EQ(hud.view(), panel);
    EXPECT_EQ(panel->notice(), second);
    EXPECT_EQ(opacity(), 0);
    loop.advance(1.79);
    EXPECT_EQ(opacity(), 1); // the first notice would be gone
    loop.advance(0.32);
    EXPECT_FALSE(seen());
}

TEST_F(HUDTest, ShowDuringTheFadeBringsItBack) {
    show(first);
    loop.advance(1.95);
    show(second);
    loop.advance(0.2);
    EXPECT_TRUE(seen());
    EXPECT_EQ(opacity(), 1);
}

TEST_F(HUDTest, TakesNeitherClicksNorFocus) {
    show(first);
    const auto flags = hud.view()->windowFlags();
    EXPECT_TRUE(flags.testFlag(Qt::WindowTransparentForInput));
    EXPECT_TRUE(flags.testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(hud.view()->testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(HUDTest, StandsAtTheTopOfTheMiddle) {
    show(first);
    const QRect screen = QGuiApplication::screens().front()->availableGeometry();
    const QRect place = hud.view()->geometry();
    EXPECT_EQ(place.top(), screen.top() + 14);
    EXPECT_NEAR(place.center().x(), screen.center().x(), 1);
    EXPECT_EQ(place.size(), hud.view()->sizeHint());
}

TEST_F(HUDTest, LongTitleIsShortened) {
    Notice longer = first;
    for (int word = 0; word < 30; ++word) {
        longer.title += " and another basket";
    }
    show(longer);
    EXPECT_LE(hud.view()->row().width(), 420);
    EXPECT_GT(hud.view()->row().width(), 400);
    EXPECT_TRUE(hud.view()->titleLine().endsWith("…"));
    const QRect screen = QGuiApplication::screens().front()->availableGeometry();
    EXPECT_NEAR(hud.view()->geometry().center().x(), screen.center().x(), 1);
}

TEST_F(HUDTest, SaysItsWordsToThoseWhoListen) {
    show(first);
    EXPECT_EQ(hud.view()->accessibleName(), "Next up: Fix the basket");
    EXPECT_EQ(hud.view()->accessibleDescription(), "Has a question for 7m · press again to open");
}

TEST(HUDFrame, IsCentredBelowTheTopOfTheVisibleFrame) {
    EXPECT_EQ(hud::frame({100, 26, 1000, 700}, 300, 50), (Rect{450, 40, 300, 50}));
}

} // namespace

} // namespace mimkins::test
