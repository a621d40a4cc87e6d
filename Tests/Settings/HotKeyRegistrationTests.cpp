#include "Settings/HotKeyRegistration.h"

#include "Base/Log.h"
#include "Support/ManualRunLoop.h"
#include "Support/MemoryPreferencesStore.h"

#include <gmock/gmock.h>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Keys that somebody may have taken, and which of them are held.
class FakeHotKeys final : public HotKeys {
public:
    Handle registerHotKey(HotKeyRequest request) override {
        if (request.keys == taken) {
            request.told(HotKeyResult::failed);
            return {};
        }
        held.push_back(request.keys);
        pressed = request.pressed;
        const auto keys = request.keys;
        request.told(HotKeyResult::registered);
        return Handle([this, keys] { std::erase(held, keys); });
    }

    std::optional<KeyCombination> taken;
    std::vector<KeyCombination> held;
    std::function<void()> pressed;
};

class HotKeyRegistrationTest : public testing::Test {
protected:
    ~HotKeyRegistrationTest() override { log::setSink({}); }

    std::string status() const {
        const auto stored = defaults.value("hotkeyStatus");
        return stored ? std::get<std::string>(*stored) : std::string();
    }

    ManualRunLoop loop{Date{1'795'246'096.7}};
    MemoryPreferencesStore defaults;
    FakeHotKeys keys;
    int presses = 0;
    HotKeyRegistration registration{{keys, defaults, loop}, [this] { ++presses; }};
};

TEST_F(HotKeyRegistrationTest, TakesTheKeysOfTheChoice) {
    std::vector<std::string> lines;
    log::setSink([&lines](const log::Line& line) {
        lines.push_back(std::string(line.category) + "|" + std::string(line.text));
    });
    registration.use(Hotkey::optCmdP);
    EXPECT_TRUE(registration.isRegistered());
    EXPECT_THAT(keys.held, ElementsAre(KeyCombination{KeyCombination::Key::p, false, true, true}));
    EXPECT_EQ(status(), "⌥⌘P: registered 2026-11-21 07:28:16 +0000");
    EXPECT_THAT(lines, ElementsAre("hotkey|next-up shortcut ⌥⌘P: registered"));
    keys.pressed();
    EXPECT_EQ(presses, 1);
}

TEST_F(HotKeyRegistrationTest, OffGivesTheKeysBackAndWritesNothing) {
    registration.use(Hotkey::optCmdP);
    const auto before = status();
    loop.advance(60);
    registration.use(Hotkey::off);
    EXPECT_THAT(keys.held, IsEmpty());
    EXPECT_FALSE(registration.isRegistered());
    EXPECT_EQ(status(), before);
}

TEST_F(HotKeyRegistrationTest, KeysOfAnotherProgramLeaveNone) {
    std::vector<std::string> lines;
    registration.use(Hotkey::ctrlOptP);
    log::setSink([&lines](const log::Line& line) { lines.emplace_back(line.text); });
    keys.taken = keysOf(Hotkey::ctrlOptSpace);
    registration.use(Hotkey::ctrlOptSpace);
    EXPECT_THAT(keys.held, IsEmpty());
    EXPECT_FALSE(registration.isRegistered());
    EXPECT_EQ(status(), "⌃⌥Space: failed 2026-11-21 07:28:16 +0000");
    EXPECT_THAT(lines, ElementsAre("next-up shortcut ⌃⌥Space: NOT registered (taken by another app?)"));
}

TEST_F(HotKeyRegistrationTest, OutcomeIsToldOnceItIsStored) {
    std::vector<std::string> told;
    registration.onConcluded = [&] { told.push_back(status().substr(0, status().find(' '))); };
    registration.use(Hotkey::ctrlOptP);
    registration.use(Hotkey::off);
    keys.taken = keysOf(Hotkey::ctrlOptSpace);
    registration.use(Hotkey::ctrlOptSpace);
    EXPECT_THAT(told, ElementsAre("⌃⌥P:", "⌃⌥Space:"));
}

TEST_F(HotKeyRegistrationTest, EachChoiceHasItsKeys) {
    using Key = KeyCombination::Key;
    EXPECT_EQ(keysOf(Hotkey::ctrlOptP), (KeyCombination{Key::p, true, true, false}));
    EXPECT_EQ(keysOf(Hotkey::ctrlOptSpace), (KeyCombination{Key::space, true, true, false}));
    EXPECT_EQ(keysOf(Hotkey::off), std::nullopt);
    EXPECT_EQ(label(Hotkey::ctrlOptP), "⌃⌥P");
    EXPECT_EQ(label(Hotkey::off), "");
}

} // namespace

} // namespace mimkins::test
