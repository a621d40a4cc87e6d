#include "Platform/Qt/XcbKeyboard.h"

#include <gmock/gmock.h>

using namespace mimkins;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Key = KeyCombination::Key;

constexpr std::uint16_t lock = XCB_MOD_MASK_LOCK;
constexpr std::uint16_t control = XCB_MOD_MASK_CONTROL;
constexpr std::uint16_t mod1 = XCB_MOD_MASK_1;
constexpr std::uint16_t mod2 = XCB_MOD_MASK_2;
constexpr std::uint16_t mod4 = XCB_MOD_MASK_4;

/// Codes from 8: nothing, Alt, Super, Num Lock, p, blank.
XcbKeyboard keyboard() {
    XcbKeyboard made;
    made.firstKeyCode = 8;
    made.symbolsPerKey = 2;
    made.symbols = {0, 0, 0xffe9, 0xffe7, 0xffeb, 0, 0xff7f, 0, 'p', 'P', ' ', 0};
    made.keysPerModifier = 2;
    made.modifierKeys = {0, 0, 0, 0, 0, 0, 9, 0, 11, 0, 0, 0, 10, 0, 0, 0};
    return made;
}

} // namespace

TEST(XcbKeyboard, EveryStateOfTheLocksCounts) {
    EXPECT_THAT(
        chordsFor(keyboard(), {Key::p, false, true, true}),
        UnorderedElementsAre(
            XcbChord{12, mod1 | mod4}, XcbChord{12, mod1 | mod4 | lock}, XcbChord{12, mod1 | mod4 | mod2},
            XcbChord{12, mod1 | mod4 | mod2 | lock}
        )
    );
}

TEST(XcbKeyboard, WithoutNumLockOnlyCapsLockCounts) {
    auto bare = keyboard();
    bare.modifierKeys[8] = 0;
    EXPECT_THAT(
        chordsFor(bare, {Key::space, true, true, false}),
        ElementsAre(XcbChord{13, control | mod1}, XcbChord{13, control | mod1 | lock})
    );
}

TEST(XcbKeyboard, ModifiersStandWhereTheServerSays) {
    auto other = keyboard();
    std::swap(other.modifierKeys[6], other.modifierKeys[12]); // Alt is the fourth, Super the first
    EXPECT_EQ(chordsFor(other, {Key::p, true, true, false}).front(), (XcbChord{12, control | mod4}));
}

TEST(XcbKeyboard, WithoutTheLetterItsPlaceCounts) {
    auto greek = keyboard();
    greek.symbols[8] = 0x7f0;
    greek.symbols[9] = 0x7d0;
    EXPECT_EQ(chordsFor(greek, {Key::p, true, true, false}).front().keyCode, 33);
    EXPECT_EQ(chordsFor({}, {Key::space, true, false, false}).front().keyCode, 65);
}

TEST(XcbKeyboard, TheFirstLayoutGoesBeforeOthers) {
    auto two = keyboard();
    two.symbols[11] = 'p'; // the blank's key in another layout; it stands later anyway
    two.symbols[1] = 'p';  // an earlier key, but in the second column
    EXPECT_EQ(chordsFor(two, {Key::p, true, true, false}).front().keyCode, 12);
}

TEST(XcbKeyboard, AModifierThatNoKeySetsFails) {
    auto without = keyboard();
    without.modifierKeys[12] = 0;
    EXPECT_THAT(chordsFor(without, {Key::p, false, true, true}), IsEmpty());
    EXPECT_THAT(chordsFor({}, {Key::p, true, true, false}), IsEmpty());
}
