#pragma once

#include "Platform/HotKeys.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

namespace mimkins {

/// A key with modifiers, as the X server counts them.
struct XcbChord {
    xcb_keycode_t keyCode = 0;
    std::uint16_t modifiers = 0;

    friend bool operator==(const XcbChord&, const XcbChord&) = default;
};

/// The X server's keyboard and modifier tables as plain values.
struct XcbKeyboard {
    xcb_keycode_t firstKeyCode = 8;
    std::size_t symbolsPerKey = 0;
    std::vector<xcb_keysym_t> symbols; ///< of each key code in turn
    std::size_t keysPerModifier = 0;
    std::vector<xcb_keycode_t> modifierKeys; ///< of Shift, Lock, Control and Mod1 to Mod5 in turn
};

/// Asks the server. Tables stay empty if it doesn't answer.
XcbKeyboard readKeyboard(xcb_connection_t* connection);

/// All chords that stand for a combination: with each set of the locks that may be on, such as Caps Lock,
/// since the server takes them for modifiers. Option is Alt and Command is Super; on a keyboard that has no
/// key of the wanted letter it is the key that stands in its place. None if a modifier can't be pressed.
std::vector<XcbChord> chordsFor(const XcbKeyboard& keyboard, const KeyCombination& keys);

} // namespace mimkins
