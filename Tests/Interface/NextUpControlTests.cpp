#include "App/NextUpControl.h"
#include "Interface/PanelFixture.h"

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NextUpControlTest : public PanelFixture {
protected:
    void SetUp() override {
        report("a", "waiting", R"(,"tool":"Bash","open":"https://example.org/a","title":"First")");
        loop.advance(1);
        report("b", "waiting", R"(,"tool":"Bash","open":"https://example.org/b","title":"Second")");
    }

    void begin() {
        start();
        control = std::make_unique<NextUpControl>(NextUpControl::Parts{
            *store, drawer, loop, links, [this] { ++broughtForward; },
            [this](const Notice& notice) { notices.push_back(notice); }});
    }

    void press() { control->nextUp(); }

    std::unique_ptr<NextUpControl> control;
    std::vector<Notice> notices;
    int broughtForward = 0;
};

TEST_F(NextUpControlTest, FirstPressPointsAtTheSessionInTheDrawer) {
    begin();
    drawer.setMode(DrawerMode::sweep);
    press();
    EXPECT_EQ(drawer.mode(), DrawerMode::pets);
    EXPECT_EQ(drawer.highlightedId(), "a");
    EXPECT_EQ(broughtForward, 1);
    EXPECT_EQ(notices.back().title, "Next up: First");
    EXPECT_EQ(notices.back().subtitle, "Needs your OK for 1s · press again to open · 1 more");
    EXPECT_THAT(links.opened, IsEmpty());
}

TEST_F(NextUpControlTest, SecondPressOpensIt) {
    begin();
    press();
    loop.advance(3.9);
    press();
    EXPECT_THAT(links.opened, ElementsAre("https://example.org/a"));
    EXPECT_EQ(drawer.highlightedId(), std::nullopt);
    EXPECT_EQ(broughtForward, 1);
    EXPECT_EQ(notices.back().title, "Opening First");
    EXPECT_EQ(control->memory().lastNextUp, "a");
}

TEST_F(NextUpControlTest, LatePressGoesOn) {
    begin();
    press();
    loop.advance(5);
    press();
    EXPECT_THAT(links.opened, IsEmpty());
    EXPECT_EQ(drawer.highlightedId(), "b");
    EXPECT_EQ(notices.back().title, "Next up: Second");
}

TEST_F(NextUpControlTest, HighlightEndsByItself) {
    begin();
    press();
    loop.advance(4.1);
    EXPECT_EQ(drawer.highlightedId(), "a");
    loop.advance(0.2);
    EXPECT_EQ(drawer.highlightedId(), std::nullopt);
}

TEST_F(NextUpControlTest, OlderPressLeavesTheHighlightOfANewerOne) {
    begin();
    press();
    loop.advance(4.1);
    press();
    loop.advance(0.2);
    EXPECT_EQ(drawer.highlightedId(), "b");
    loop.advance(4);
    EXPECT_EQ(drawer.highlightedId(), std::nullopt);
}

TEST_F(NextUpControlTest, WithoutWaitersSaysSo) {
    report("a", "working");
    report("b", "working");
    begin();
    press();
    EXPECT_EQ(notices.back(), (Notice{"Nothing waiting on you", "All pets are busy or resting 🎉", 0}));
    EXPECT_EQ(broughtForward, 0);
    EXPECT_EQ(drawer.highlightedId(), std::nullopt);
}

TEST_F(NextUpControlTest, WrapUpLeavesTheWalkAlone) {
    begin();
    press();
    const auto memory = control->memory();
    control->openWrapUp();
    EXPECT_EQ(drawer.mode(), DrawerMode::sweep);
    EXPECT_EQ(broughtForward, 2);
    EXPECT_EQ(control->memory(), memory);
}

} // namespace

} // namespace mimkins::test
