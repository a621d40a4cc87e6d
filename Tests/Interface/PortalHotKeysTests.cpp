#include "Platform/Qt/DesktopHotKeys.h"
#include "Platform/Qt/PortalHotKeys.h"
#include "Settings/HotKeyRegistration.h"

#include "Interface/PrivateBus.h"
#include "Interface/StandInPortal.h"
#include "Support/ManualRunLoop.h"
#include "Support/MemoryPreferencesStore.h"

#include <QDBusPendingCall>
#include <QTest>

#include <gmock/gmock.h>

#include <memory>
#include <vector>

namespace mimkins::test {

namespace {

using Answer = StandInPortal::Answer;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

TEST(HotKeyWay, FollowsTheSession) {
    EXPECT_EQ(hotKeyWay({"x11", false, true}), HotKeyWay::grabs);
    EXPECT_EQ(hotKeyWay({"", false, true}), HotKeyWay::grabs);
    EXPECT_EQ(hotKeyWay({"wayland", false, true}), HotKeyWay::portal);
    EXPECT_EQ(hotKeyWay({"x11", true, true}), HotKeyWay::portal);
    EXPECT_EQ(hotKeyWay({"", true, false}), HotKeyWay::portal);
    EXPECT_EQ(hotKeyWay({"", false, false}), HotKeyWay::none);
    EXPECT_EQ(hotKeyWay({"tty", false, false}), HotKeyWay::none);
}

TEST(PortalTrigger, NamesTheKeysOfEachChoice) {
    EXPECT_EQ(portalTrigger(*keysOf(Hotkey::optCmdP)), "ALT+LOGO+p");
    EXPECT_EQ(portalTrigger(*keysOf(Hotkey::ctrlOptP)), "CTRL+ALT+p");
    EXPECT_EQ(portalTrigger(*keysOf(Hotkey::ctrlOptSpace)), "CTRL+ALT+space");
}

class PortalHotKeysTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_FALSE(bus.address().isEmpty()) << "dbus-daemon doesn't start"; }

    void openPortal(Answer answer) { portal = std::make_unique<StandInPortal>(bus.address(), answer); }

    Handle ask() {
        return keys.registerHotKey({
            *keysOf(Hotkey::ctrlOptP),
            [this] { ++presses; },
            [this](HotKeyResult result) { told.push_back(result); },
        });
    }

    bool isTold() {
        return QTest::qWaitFor([this] { return !told.empty(); });
    }

    /// Lets everything that is on its way over the bus arrive: a call there and back comes after it.
    void settle() {
        for (int round = 0; round < 3; ++round) {
            const auto other = QDBusConnection::connectToBus(bus.address(), "settle");
            auto pending = other.asyncCall(QDBusMessage::createMethodCall(
                "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "ListNames"
            ));
            EXPECT_TRUE(QTest::qWaitFor([&pending] { return pending.isFinished(); }));
            QDBusConnection::disconnectFromBus("settle");
            QTest::qWait(20);
        }
        loop.advance(0);
    }

    bool isPressed(int times) {
        return QTest::qWaitFor([this, times] {
            loop.advance(0);
            return presses >= times;
        });
    }

    PrivateBus bus;
    ManualRunLoop loop;
    std::unique_ptr<StandInPortal> portal;
    PortalHotKeys keys{loop, bus.address()};
    std::vector<HotKeyResult> told;
    int presses = 0;
};

TEST_F(PortalHotKeysTest, BindsAndIsPressed) {
    openPortal(Answer::grants);
    const auto handle = ask();
    ASSERT_TRUE(isTold());
    EXPECT_THAT(told, ElementsAre(HotKeyResult::registered));
    EXPECT_EQ(portal->calls, (QStringList{"Register", "CreateSession", "BindShortcuts"}));
    EXPECT_EQ(portal->name, "app.mimkins");
    EXPECT_EQ(portal->trigger, "CTRL+ALT+p");
    EXPECT_EQ(portal->description, "Show the next session that waits");
    portal->activate("next-up");
    ASSERT_TRUE(isPressed(1));
    portal->activate("next-up");
    ASSERT_TRUE(isPressed(2));
    EXPECT_EQ(presses, 2);
}

TEST_F(PortalHotKeysTest, PressComesFromTheLoop) {
    openPortal(Answer::grants);
    const auto handle = ask();
    ASSERT_TRUE(isTold());
    portal->activate("next-up");
    QTest::qWait(50);
    EXPECT_EQ(presses, 0); // the loop hasn't been round
    ASSERT_TRUE(isPressed(1));
}

TEST_F(PortalHotKeysTest, OthersShortcutsAreNotOurs) {
    openPortal(Answer::grants);
    const auto handle = ask();
    ASSERT_TRUE(isTold());
    portal->activate("something-else");
    portal->activate("next-up", "/org/freedesktop/portal/desktop/session/1_1/other");
    settle();
    EXPECT_EQ(presses, 0);
    portal->activate("next-up");
    EXPECT_TRUE(isPressed(1));
}

TEST_F(PortalHotKeysTest, FailsWhereItIsNotGiven) {
    for (const auto answer :
         {Answer::denies, Answer::leavesOut, Answer::offersNone, Answer::refusesSession}) {
        told.clear();
        openPortal(answer);
        const auto handle = ask();
        ASSERT_TRUE(isTold()) << static_cast<int>(answer);
        settle();
        EXPECT_THAT(told, ElementsAre(HotKeyResult::failed)) << static_cast<int>(answer);
        portal.reset();
    }
}

TEST_F(PortalHotKeysTest, FailsWithoutAPortalOrABus) {
    const auto handle = ask();
    ASSERT_TRUE(isTold());
    EXPECT_THAT(told, ElementsAre(HotKeyResult::failed));
    told.clear();
    PortalHotKeys nowhere(loop, "unix:path=/nonexistent/bus");
    const auto other = nowhere.registerHotKey(
        {*keysOf(Hotkey::ctrlOptP), [] {}, [this](HotKeyResult result) { told.push_back(result); }}
    );
    EXPECT_THAT(told, ElementsAre(HotKeyResult::failed));
}

TEST_F(PortalHotKeysTest, PortalThatVanishesWhileItIsAskedCountsAsNo) {
    openPortal(Answer::staysSilent);
    const auto handle = ask();
    ASSERT_TRUE(QTest::qWaitFor([this] { return portal->calls.contains("BindShortcuts"); }));
    EXPECT_THAT(told, IsEmpty());
    portal.reset();
    ASSERT_TRUE(isTold());
    EXPECT_THAT(told, ElementsAre(HotKeyResult::failed));
}

TEST_F(PortalHotKeysTest, PortalThatComesBackIsAskedAgain) {
    openPortal(Answer::grants);
    const auto handle = ask();
    ASSERT_TRUE(isTold());
    portal.reset();
    settle();
    openPortal(Answer::grants);
    ASSERT_TRUE(QTest::qWaitFor([this] { return portal->calls.contains("BindShortcuts"); }));
    settle();
    portal->activate("next-up");
    EXPECT_TRUE(isPressed(1));
    EXPECT_THAT(told, ElementsAre(HotKeyResult::registered)); // told once
}

TEST_F(PortalHotKeysTest, SessionThatTheDesktopClosesGivesNothingMore) {
    openPortal(Answer::grants);
    const auto handle = ask();
    ASSERT_TRUE(isTold());
    portal->closeSession();
    settle();
    portal->activate("next-up");
    settle();
    EXPECT_EQ(presses, 0);
}

TEST_F(PortalHotKeysTest, EndedHandleIsSilent) {
    openPortal(Answer::grants);
    auto handle = ask();
    ASSERT_TRUE(isTold());
    portal->activate("next-up");
    QTest::qWait(50); // the press waits in the loop
    handle.reset();
    loop.advance(0);
    portal->activate("next-up");
    settle();
    EXPECT_EQ(presses, 0);

    told.clear();
    auto early = ask();
    early.reset();
    settle();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(PortalHotKeysTest, StatusOfTheSettingFollows) {
    MemoryPreferencesStore preferences;
    HotKeyRegistration registration({keys, preferences, loop}, [this] { ++presses; });
    const auto status = [&preferences] {
        const auto stored = preferences.value(HotKeyRegistration::statusKey);
        const auto* words = stored ? std::get_if<std::string>(&*stored) : nullptr;
        return words != nullptr ? *words : std::string();
    };
    registration.use(Hotkey::ctrlOptP);
    ASSERT_TRUE(QTest::qWaitFor([&status] { return !status().empty(); }));
    EXPECT_THAT(status(), StartsWith("⌃⌥P: failed "));
    EXPECT_FALSE(registration.isRegistered());
    openPortal(Answer::grants);
    registration.use(Hotkey::ctrlOptSpace);
    ASSERT_TRUE(QTest::qWaitFor([&registration] { return registration.isRegistered(); }));
    EXPECT_THAT(status(), StartsWith("⌃⌥Space: registered "));
    portal->activate("next-up");
    EXPECT_TRUE(isPressed(1));
}

} // namespace

} // namespace mimkins::test
