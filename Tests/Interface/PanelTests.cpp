#include "Interface/PanelFixture.h"

#include <QAccessible>
#include <QTest>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Panel : public PanelFixture {};

TEST_F(Panel, WithoutSessionsSaysSo) {
    start();
    EXPECT_TRUE(panel->emptyState().isVisible());
    EXPECT_FALSE(panel->list().isVisible());
    EXPECT_EQ(panel->header().summaryLabel().text(), "0 pets out");
    EXPECT_EQ(panel->header().titleLabel().text(), "Mimkins");
}

TEST_F(Panel, ShowsOneCardForEachSession) {
    report("a", "working", R"(,"tool":"Edit","detail":"main.cpp")");
    report("b", "done");
    start();
    EXPECT_FALSE(panel->emptyState().isVisible());
    EXPECT_THAT(order(), ElementsAre("a", "b"));
    EXPECT_EQ(panel->header().summaryLabel().text(), "1 new reply");
}

TEST_F(Panel, ReportChangesTheCardATenthOfASecondLater) {
    report("a", "working");
    start();
    report("a", "waiting", R"(,"tool":"Bash")");
    watcher.change(paths.sessions());
    loop.advance(0.09);
    EXPECT_EQ(panel->list().cards().front()->row().moodLabel, "Working");
    loop.advance(0.02);
    EXPECT_EQ(panel->list().cards().front()->row().moodLabel, "Needs your OK");
    EXPECT_EQ(panel->header().summaryLabel().text(), "1 waiting on you");
}

TEST_F(Panel, CardThatNeedsTheUserGlidesToTheTop) {
    report("a", "working");
    start();
    loop.advance(1);
    report("b", "working");
    watcher.change(paths.sessions());
    loop.advance(0.2);
    while (panel->list().step(0.016)) {
    }
    report("b", "waiting", R"(,"tool":"Bash")");
    watcher.change(paths.sessions());
    loop.advance(0.2);
    EXPECT_THAT(order(), ElementsAre("b", "a"));
    const auto& flow = panel->list().flow();
    EXPECT_EQ(flow.find("b")->targetY(), 12);
    EXPECT_GT(flow.find("b")->y(), 50); // on its way
    EXPECT_TRUE(panel->list().isMoving());
    while (panel->list().step(0.016)) {
    }
    EXPECT_EQ(panel->list().cards().front()->geometry().top() + CardView::shadowRoom, 12);
}

TEST_F(Panel, NothingMovesWhileTheDrawerIsShut) {
    report("a", "working");
    start();
    drawer.setOpen(false);
    report("b", "waiting", R"(,"tool":"Bash")");
    watcher.change(paths.sessions());
    loop.advance(0.2);
    EXPECT_THAT(order(), ElementsAre("a")); // what nobody sees isn't made
    drawer.setOpen(true);
    EXPECT_THAT(order(), ElementsAre("b", "a"));
    EXPECT_FALSE(panel->list().isMoving());
    EXPECT_EQ(panel->list().flow().find("b")->y(), 12);
}

TEST_F(Panel, PointingAtASessionShowsItInACoveredDrawerToo) {
    start();
    drawer.setCovered(true);
    report("a", "working");
    watcher.change(paths.sessions());
    loop.advance(0.2);
    drawer.setHighlightedId("a");
    ASSERT_THAT(order(), ElementsAre("a"));
    EXPECT_TRUE(panel->list().cards().front()->row().highlighted);
}

TEST_F(Panel, CoveredDrawerStopsMovingAtOnce) {
    report("a", "working");
    start();
    report("b", "waiting", R"(,"tool":"Bash")");
    watcher.change(paths.sessions());
    loop.advance(0.2);
    EXPECT_TRUE(panel->list().isMoving());
    drawer.setCovered(true);
    EXPECT_FALSE(panel->list().isMoving());
}

TEST_F(Panel, KeepsNoTimerButTheStoresWhileNobodySeesIt) {
    report("a", "working");
    start();
    const auto open = loop.timers();
    drawer.setOpen(false);
    EXPECT_EQ(loop.timers(), open - 2); // the seconds' and the frames'
    drawer.setOpen(true);
    EXPECT_EQ(loop.timers(), open);
    drawer.setCovered(true);
    EXPECT_EQ(loop.timers(), open - 2);
}

TEST_F(Panel, ElapsedTimeGoesOnEachSecond) {
    report("a", "working");
    start();
    const auto elapsedText = [this] {
        for (const auto& run : panel->list().cards().front()->text().runs) {
            if (run.role == CardText::Role::elapsed) {
                return run.text;
            }
        }
        return QString();
    };
    EXPECT_EQ(elapsedText(), "0s");
    loop.advance(3);
    EXPECT_EQ(elapsedText(), "3s");
    drawer.setCovered(true);
    loop.advance(60);
    EXPECT_EQ(elapsedText(), "3s"); // nobody looks
    drawer.setCovered(false);
    EXPECT_EQ(elapsedText(), "1m");
}

TEST_F(Panel, ClickOpensTheSession) {
    report("a", "done", R"(,"open":"https://example.org/a")");
    start();
    QTest::mouseClick(panel->list().cards().front(), Qt::LeftButton);
    EXPECT_THAT(links.opened, ElementsAre("https://example.org/a"));
}

TEST_F(Panel, ClickOnASessionWithoutALinkDoesNothing) {
    report("a", "done");
    start();
    QTest::mouseClick(panel->list().cards().front(), Qt::LeftButton);
    EXPECT_THAT(links.opened, IsEmpty());
}

TEST_F(Panel, KeysMoveOpenAndClose) {
    report("a", "working", R"(,"open":"https://example.org/a")");
    report("b", "working", R"(,"open":"https://example.org/b")");
    start();
    panel->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(panel.get()));
    int closed = 0;
    panel->onClose = [&closed] { ++closed; };
    QTest::keyClick(panel.get(), Qt::Key_Down);
    const auto cards = panel->list().cards();
    EXPECT_TRUE(cards[0]->hasFocus());
    QTest::keyClick(cards[0], Qt::Key_Down);
    EXPECT_TRUE(cards[1]->hasFocus());
    QTest::keyClick(cards[1], Qt::Key_Down);
    EXPECT_TRUE(cards[1]->hasFocus()); // the last
    QTest::keyClick(cards[1], Qt::Key_Return);
    EXPECT_THAT(links.opened, ElementsAre("https://example.org/b"));
    QTest::keyClick(cards[1], Qt::Key_Up);
    EXPECT_TRUE(cards[0]->hasFocus());
    QTest::keyClick(cards[0], Qt::Key_Escape);
    EXPECT_EQ(closed, 1);
}

TEST_F(Panel, CardsAreButtonsWithANameAndADescription) {
    report("a", "waiting", R"(,"tool":"Bash","detail":"ls","title":"Fix the basket")");
    start();
    auto* accessible = QAccessible::queryAccessibleInterface(panel->list().cards().front());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    const auto name = store->sessions().front().petName(0);
    EXPECT_EQ(accessible->text(QAccessible::Name).toStdString(), name + ", Needs your OK, shop");
    EXPECT_EQ(accessible->text(QAccessible::Description), "Fix the basket. Bash: ls");
    auto* summary = QAccessible::queryAccessibleInterface(
        const_cast<SummaryLabel*>(&panel->header().summaryLabel()) // NOLINT: only asked
    );
    EXPECT_EQ(summary->role(), QAccessible::StaticText);
    EXPECT_EQ(summary->text(QAccessible::Name), "1 waiting on you");
}

TEST_F(Panel, HighlightedCardIsScrolledTo) {
    for (int index = 0; index < 20; ++index) {
        report("s" + std::to_string(100 + index), "working");
    }
    start();
    QCoreApplication::processEvents();
    auto* last = panel->list().cards().back();
    EXPECT_TRUE(last->visibleRegion().isEmpty());
    drawer.setHighlightedId(last->row().id);
    EXPECT_TRUE(last->visibleRegion().isEmpty()); // on the way there
    while (panel->list().step(0.016)) {
    }
    EXPECT_FALSE(last->visibleRegion().isEmpty());
}

TEST_F(Panel, SettingsShowAtOnce) {
    report("a", "working");
    start();
    const auto before = panel->list().cards().front()->height();
    settings.cards.nameTags = false;
    settings.petPoints = 78;
    panel->setSettings(settings);
    EXPECT_FALSE(panel->list().cards().front()->row().name.has_value());
    EXPECT_EQ(panel->list().cards().front()->height(), std::max(before, 78 + 20 + 2 * CardView::shadowRoom));
}

/// How many different moments a card's pet shows within a second.
int framesInASecond(ManualRunLoop& loop, const CardView& card) {
    int frames = 0;
    Date shown = card.moment();
    for (int step = 0; step < 240; ++step) {
        loop.advance(1.0 / 240);
        frames += card.moment() != shown ? 1 : 0;
        shown = card.moment();
    }
    return frames;
}

TEST_F(Panel, LivelyPetsFollowEveryFrameAndCalmOnesEverySecond) {
    report("a", "waiting", R"(,"tool":"Bash")");
    report("b", "done");
    start();
    const auto cards = panel->list().cards();
    ASSERT_EQ(cards.size(), 2U);
    EXPECT_FALSE(cards[0]->isCalm());
    EXPECT_TRUE(cards[1]->isCalm());
    EXPECT_NEAR(framesInASecond(loop, *cards[0]), 24, 1);
    EXPECT_NEAR(framesInASecond(loop, *cards[1]), 12, 1);
}

TEST_F(Panel, PetsStandStillWhileTheDrawerIsShut) {
    report("a", "waiting", R"(,"tool":"Bash")");
    start();
    drawer.setOpen(false);
    EXPECT_EQ(framesInASecond(loop, *panel->list().cards().front()), 0);
    drawer.setOpen(true);
    drawer.setCovered(true);
    EXPECT_EQ(framesInASecond(loop, *panel->list().cards().front()), 0);
    drawer.setCovered(false);
    EXPECT_GT(framesInASecond(loop, *panel->list().cards().front()), 20);
}

TEST_F(Panel, PetsOutOfSightStandStill) {
    for (int index = 0; index < 12; ++index) {
        report("s" + std::to_string(index), "waiting", R"(,"tool":"Bash")");
    }
    start();
    panel->resize(320, 300);
    const auto cards = panel->list().cards();
    ASSERT_EQ(cards.size(), 12U);
    EXPECT_GT(framesInASecond(loop, *cards.front()), 20);
    EXPECT_EQ(framesInASecond(loop, *cards.back()), 0);
    panel->list().reveal(cards.back()->row().id);
    EXPECT_EQ(framesInASecond(loop, *cards.front()), 0);
    EXPECT_GT(framesInASecond(loop, *cards.back()), 20);
}

TEST_F(Panel, AddedScreenShowsInItsModeAlone) {
    report("a", "working");
    start();
    PanelScreen* screen = nullptr;
    panel->addScreen(DrawerMode::settings, [&screen](const CardLook&) {
        screen = new PanelScreen;
        return screen;
    });
    EXPECT_EQ(screen, nullptr);
    panel->header().cog().click();
    ASSERT_NE(screen, nullptr);
    EXPECT_TRUE(screen->isVisible());
    EXPECT_FALSE(panel->list().isVisible());
    EXPECT_EQ(panel->header().titleLabel().text(), "Settings");
    panel->header().cog().click();
    EXPECT_FALSE(screen->isVisible());
    EXPECT_TRUE(panel->list().isVisible());
}

TEST_F(Panel, NewThemeAndNewPetsFadeIn) {
    report("a", "working");
    start();
    EXPECT_FALSE(panel->screenFade().isVisible());
    settings.themeId = "paper";
    panel->setSettings(settings);
    EXPECT_TRUE(panel->screenFade().isVisible());
    EXPECT_EQ(panel->screenFade().geometry(), panel->rect());
    while (panel->screenFade().isVisible()) {
        QTest::qWait(10);
    }
    settings.cards.shuffle = 1;
    panel->setSettings(settings);
    EXPECT_TRUE(panel->screenFade().isVisible());
}

TEST_F(Panel, NothingFadesWhereNobodySeesIt) {
    start();
    drawer.setCovered(true);
    settings.themeId = "paper";
    panel->setSettings(settings);
    EXPECT_FALSE(panel->screenFade().isVisible());
}

} // namespace

} // namespace mimkins::test
