#include "App/DrawerWindows.h"

#include "Support/ManualRunLoop.h"
#include "Support/MemoryPreferencesStore.h"

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QTest>

#include <gmock/gmock.h>

#include <map>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FakeWindowSystem final : public WindowSystem {
public:
    void makePanel(WindowId window, WindowLevel level) override { levels[window] = level; }

    void setOwner(WindowId child, std::optional<WindowId> owner) override { owners[child] = owner; }

    void raise(WindowId window) override { raised.push_back(window); }

    std::optional<WindowId> activeWindow() override { return active; }

    void activate(WindowId window) override { activated.push_back(window); }

    bool isCovered(WindowId, const std::vector<WindowId>&) override { return covered; }

    bool hasTranslucency() override { return translucent; }

    bool put(WindowId window, const WindowPicture& picture) override {
        pictures[window] = {picture.width, picture.height()};
        return shows;
    }

    Handle whenWindowsChange(std::function<void()> change) override {
        changed = std::move(change);
        return Handle([this] { changed = nullptr; });
    }

    std::map<WindowId, WindowLevel> levels;
    std::map<WindowId, std::optional<WindowId>> owners;
    std::vector<WindowId> raised;
    std::optional<WindowId> active;
    std::vector<WindowId> activated;
    std::map<WindowId, std::pair<std::size_t, std::size_t>> pictures;
    bool shows = true;
    bool covered = false;
    bool translucent = true;
    std::function<void()> changed;
};

class Windows : public testing::Test {
protected:
    void start() {
        windows = std::make_unique<DrawerWindows>(
            DrawerWindows::Parts{system, drawer, preferences, loop, new QWidget}, PanelSettings()
        );
        drawerId = static_cast<WindowId>(windows->drawer().internalWinId());
        tabId = static_cast<WindowId>(windows->tab().internalWinId());
    }

    void slideToTheEnd() {
        while (windows->isSliding()) {
            windows->step(0.05);
        }
    }

    void endWriting() {
        windows->setWriting(false);
        loop.advance(0);
    }

    /// Starts, and writes while window 77 has the keyboard.
    void beginWriting() {
        system.active = 77;
        start();
        windows->setWriting(true);
        ASSERT_TRUE(hasKeyboard());
    }

    bool hasKeyboard() const {
        return QTest::qWaitFor([this] { return windows->drawer().isActiveWindow(); });
    }

    double edge() const { return QGuiApplication::primaryScreen()->availableGeometry().right() + 1; }

    FakeWindowSystem system;
    DrawerState drawer;
    ManualRunLoop loop;
    MemoryPreferencesStore preferences;
    std::unique_ptr<DrawerWindows> windows;
    WindowId drawerId = 0;
    WindowId tabId = 0;
};

TEST_F(Windows, NewUserStartsWithAnOpenDrawer) {
    start();
    EXPECT_TRUE(drawer.isOpen());
    EXPECT_TRUE(windows->drawer().isVisible());
    EXPECT_TRUE(windows->tab().isVisible());
    EXPECT_EQ(windows->drawer().geometry().right() + 1, edge());
    EXPECT_EQ(windows->tab().x(), edge() - 320 - 28);
    EXPECT_EQ(system.owners[tabId], drawerId);
    EXPECT_EQ(system.levels[tabId], WindowLevel::normal);
    EXPECT_TRUE(preferences.written.empty());
}

TEST_F(Windows, StoredStateIsRestored) {
    preferences.values["drawerOpen"] = false;
    start();
    EXPECT_FALSE(drawer.isOpen());
    EXPECT_FALSE(windows->drawer().isVisible());
    EXPECT_EQ(windows->tab().x(), edge() - 28);
    EXPECT_EQ(system.owners[tabId], std::nullopt);
    EXPECT_EQ(system.levels[tabId], WindowLevel::floating);
}

TEST_F(Windows, StoredValueOfAnotherTypeCountsAsOpen) {
    preferences.values["drawerOpen"] = std::string("false");
    start();
    EXPECT_TRUE(drawer.isOpen());
}

TEST_F(Windows, TabShutsTheDrawerAndItIsRemembered) {
    start();
    QTest::mouseClick(&windows->tab(), Qt::LeftButton);
    EXPECT_FALSE(drawer.isOpen());
    EXPECT_EQ(preferences.values["drawerOpen"], PreferencesStore::Value(false));
    EXPECT_TRUE(windows->drawer().isVisible()); // on its way out
    EXPECT_EQ(system.levels[tabId], WindowLevel::floating);
    slideToTheEnd();
    EXPECT_FALSE(windows->drawer().isVisible());
    EXPECT_EQ(windows->tab().x(), edge() - 28);
}

TEST_F(Windows, ContentSlidesWhileTheWindowKeepsItsPlace) {
    preferences.values["drawerOpen"] = false;
    start();
    windows->toggle();
    const auto frame = windows->drawer().geometry();
    EXPECT_EQ(windows->drawer().fraction(), 0);
    windows->step(0.14);
    EXPECT_NEAR(windows->drawer().fraction(), 0.5, 1e-6);
    EXPECT_EQ(windows->drawer().geometry(), frame);
    // What the content hasn't reached takes no clicks.
    EXPECT_EQ(windows->drawer().mask().boundingRect().left(), 160);
    windows->step(0.14);
    EXPECT_EQ(windows->drawer().fraction(), 1);
    EXPECT_TRUE(windows->drawer().mask().isEmpty());
    EXPECT_EQ(system.owners[tabId], drawerId);
}

TEST_F(Windows, OpeningTwiceFastShutsTheDrawer) {
    preferences.values["drawerOpen"] = false;
    start();
    windows->toggle();
    windows->step(0.14);
    system.covered = true; // half out, which isn't what counts as covered
    windows->toggle();
    EXPECT_FALSE(drawer.isOpen());
    EXPECT_NEAR(windows->drawer().fraction(), 0.5, 1e-6); // goes on from where it is
    slideToTheEnd();
    EXPECT_FALSE(windows->drawer().isVisible());
    EXPECT_EQ(system.owners[tabId], std::nullopt);
    EXPECT_EQ(system.levels[tabId], WindowLevel::floating);
}

TEST_F(Windows, CoveredDrawerComesForwardInsteadOfShutting) {
    start();
    system.covered = true;
    system.raised.clear();
    windows->toggle();
    EXPECT_TRUE(drawer.isOpen());
    EXPECT_THAT(system.raised, ElementsAre(drawerId));
    EXPECT_FALSE(windows->isSliding());
}

TEST_F(Windows, CoverIsFollowedOnlyWhileTheDrawerIsOpen) {
    start();
    ASSERT_TRUE(system.changed);
    system.covered = true;
    system.changed();
    EXPECT_TRUE(drawer.covered());
    system.covered = false;
    system.changed();
    EXPECT_FALSE(drawer.covered());
    windows->toggle();
    slideToTheEnd();
    EXPECT_FALSE(system.changed);
}

TEST_F(Windows, TabKeepsStillWhileItIsCoveredTogetherWithTheDrawer) {
    start();
    windows->tab().setContent({{true, 1}, true, false});
    const auto glows = [this] {
        const double before = windows->tab().glowMoment();
        loop.advance(0.35);
        return windows->tab().glowMoment() != before;
    };
    EXPECT_TRUE(glows());
    system.covered = true;
    system.changed();
    EXPECT_FALSE(glows());
    windows->bringForward();
    system.covered = false;
    system.changed();
    EXPECT_TRUE(glows());
    system.covered = true;
    system.changed();
    drawer.setOpen(false); // as its window does when it is shut while nobody sees it
    windows->place(DrawerWindows::Motion::jump);
    EXPECT_TRUE(glows());
}

TEST_F(Windows, BringForwardOpensAShutDrawer) {
    preferences.values["drawerOpen"] = false;
    start();
    windows->bringForward();
    EXPECT_TRUE(drawer.isOpen());
    slideToTheEnd();
    windows->bringForward();
    EXPECT_TRUE(drawer.isOpen());
}

TEST_F(Windows, WithoutTranslucencyTheCornersAreCutOut) {
    system.translucent = false;
    start();
    EXPECT_FALSE(windows->drawer().mask().contains(QPoint(0, 0)));
    EXPECT_TRUE(windows->drawer().mask().contains(QPoint(160, 100)));
    EXPECT_FALSE(windows->tab().mask().contains(QPoint(0, 0)));
    EXPECT_TRUE(windows->tab().mask().contains(QPoint(14, 46)));
}

TEST_F(Windows, NeitherWindowTakesTheFocus) {
    start();
    EXPECT_TRUE(windows->drawer().windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(windows->tab().windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(windows->drawer().testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(Windows, NewWidthMovesBothWithoutAnimation) {
    start();
    PanelSettings wide;
    wide.panelWidth = 380;
    windows->setSettings(wide);
    windows->place(DrawerWindows::Motion::jump);
    EXPECT_EQ(windows->drawer().width(), 380);
    EXPECT_EQ(windows->tab().x(), edge() - 380 - 28);
    EXPECT_FALSE(windows->isSliding());
}

TEST_F(Windows, TabSaysWhatAClickDoes) {
    start();
    windows->tab().setContent({{true, 3}, false});
    EXPECT_EQ(windows->tab().toolTip(), "Show Mimkins");
    EXPECT_EQ(windows->tab().accessibleDescription(), "3 waiting on you");
    windows->tab().setContent({{false, 0}, true});
    EXPECT_EQ(windows->tab().accessibleName(), "Hide Mimkins");
}

TEST_F(Windows, TabMovesWithItsSettingAtOnce) {
    start();
    PanelSettings settings;
    const int before = windows->tab().y();
    const auto frame = windows->drawer().geometry();
    settings.tabPosition = 0.85;
    windows->setSettings(settings);
    EXPECT_LT(windows->tab().y(), before);
    EXPECT_EQ(windows->tab().x(), edge() - 320 - 28);
    EXPECT_EQ(windows->drawer().geometry(), frame);
}

TEST_F(Windows, DrawerHasTheKeyboardWhileItIsWrittenIn) {
    start();
    EXPECT_FALSE(windows->drawer().takesKeyboard());
    windows->setWriting(true);
    EXPECT_TRUE(windows->drawer().takesKeyboard());
    endWriting();
    EXPECT_FALSE(windows->drawer().takesKeyboard());
}

TEST_F(Windows, DrawerKeepsTheKeyboardThatWasAskedForBefore) {
    start();
    windows->takeKeyboard();
    windows->setWriting(true);
    endWriting();
    EXPECT_TRUE(windows->drawer().takesKeyboard());
    EXPECT_THAT(system.activated, IsEmpty());
}

TEST_F(Windows, KeyboardIsALoanWhileTheDrawerIsWrittenIn) {
    beginWriting();
    system.active = drawerId;
    windows->setWriting(true);
    EXPECT_THAT(system.activated, IsEmpty());
    endWriting();
    endWriting();
    EXPECT_THAT(system.activated, ElementsAre(77));
}

TEST_F(Windows, MenuThatEndsTheWritingKeepsTheKeyboardUntilItIsShut) {
    beginWriting();
    windows->setWriting(false);
    QMenu menu;
    menu.addAction("One");
    menu.popup({});
    loop.advance(0);
    EXPECT_TRUE(windows->drawer().takesKeyboard());
    EXPECT_THAT(system.activated, IsEmpty());
    menu.close();
    loop.advance(0);
    EXPECT_FALSE(windows->drawer().takesKeyboard());
    EXPECT_THAT(system.activated, ElementsAre(77));
}

TEST_F(Windows, WhoeverComesBackToWriteKeepsTheKeyboard) {
    system.active = 77;
    start();
    windows->setWriting(true);
    windows->setWriting(false);
    windows->setWriting(true);
    loop.advance(0);
    EXPECT_TRUE(windows->drawer().takesKeyboard());
    EXPECT_THAT(system.activated, IsEmpty());
}

TEST_F(Windows, KeyboardThatTheUserTookElsewhereStaysThere) {
    beginWriting();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_FALSE(windows->drawer().takesKeyboard());
    endWriting();
    EXPECT_THAT(system.activated, IsEmpty());
}

TEST_F(Windows, ClickLeavesTheKeyboardWithTheWindowThatTookIt) {
    start();
    windows->takeKeyboard();
    ASSERT_TRUE(hasKeyboard());
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_FALSE(windows->drawer().takesKeyboard());
}

TEST_F(Windows, ShuttingEndsTheLoan) {
    beginWriting();
    windows->toggle();
    slideToTheEnd();
    windows->takeKeyboard();
    endWriting();
    EXPECT_TRUE(windows->drawer().takesKeyboard());
    EXPECT_THAT(system.activated, IsEmpty());
}

TEST_F(Windows, GlowGoesStraightToTheTabsWindow) {
    start();
    windows->tab().setContent({{true, 1}, true, false});
    loop.advance(0.1);
    const std::pair<const WindowId, std::pair<std::size_t, std::size_t>> tabs{tabId, {28, 92}};
    EXPECT_THAT(system.pictures, ElementsAre(tabs));
}

} // namespace

} // namespace mimkins::test
