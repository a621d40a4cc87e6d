#include "Platform/Qt/XcbKeyboard.h"

#include "Platform/Qt/XcbProperties.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace mimkins {

namespace {

// The numbers of keys' symbols are part of the protocol.
constexpr xcb_keysym_t symbolSpace = 0x20;
constexpr xcb_keysym_t symbolP = 0x70;
constexpr xcb_keysym_t symbolCapitalP = 0x50;
constexpr xcb_keysym_t symbolAltLeft = 0xffe9;
constexpr xcb_keysym_t symbolAltRight = 0xffea;
constexpr xcb_keysym_t symbolSuperLeft = 0xffeb;
constexpr xcb_keysym_t symbolSuperRight = 0xffec;
constexpr xcb_keysym_t symbolNumLock = 0xff7f;
constexpr xcb_keysym_t symbolScrollLock = 0xff14;

// Where the keys stand on an ordinary keyboard.
constexpr xcb_keycode_t placeOfP = 33;
constexpr xcb_keycode_t placeOfSpace = 65;

constexpr std::size_t modifierCount = 8;
constexpr std::size_t firstFreeModifier = 3;

using Symbols = std::initializer_list<xcb_keysym_t>;

bool carries(const XcbKeyboard& keyboard, xcb_keycode_t code, const Symbols& symbols) {
    if (code < keyboard.firstKeyCode) {
        return false;
    }
    const std::size_t first = static_cast<std::size_t>(code - keyboard.firstKeyCode) * keyboard.symbolsPerKey;
    for (std::size_t index = first; index < std::min(first + keyboard.symbolsPerKey, keyboard.symbols.size());
         ++index) {
        if (std::find(symbols.begin(), symbols.end(), keyboard.symbols[index]) != symbols.end()) {
            return true;
        }
    }
    return false;
}

/// The modifier that one of these keys sets; 0 if none does.
std::uint16_t maskOf(const XcbKeyboard& keyboard, const Symbols& symbols) {
    for (std::size_t modifier = firstFreeModifier; modifier < modifierCount; ++modifier) {
        for (std::size_t place = 0; place < keyboard.keysPerModifier; ++place) {
            const auto index = modifier * keyboard.keysPerModifier + place;
            const auto code = index < keyboard.modifierKeys.size() ? keyboard.modifierKeys[index] : 0;
            if (code != 0 && carries(keyboard, static_cast<xcb_keycode_t>(code), symbols)) {
                return static_cast<std::uint16_t>(1U << modifier);
            }
        }
    }
    return 0;
}

/// The key of a symbol: the one that carries it in the earliest column, which is the first layout.
xcb_keycode_t codeOf(const XcbKeyboard& keyboard, const Symbols& symbols, xcb_keycode_t otherwise) {
    const std::size_t keys =
        keyboard.symbolsPerKey == 0 ? 0 : keyboard.symbols.size() / keyboard.symbolsPerKey;
    for (std::size_t column = 0; column < keyboard.symbolsPerKey; ++column) {
        for (std::size_t key = 0; key < keys; ++key) {
            const auto symbol = keyboard.symbols[key * keyboard.symbolsPerKey + column];
            if (std::find(symbols.begin(), symbols.end(), symbol) != symbols.end()) {
                return static_cast<xcb_keycode_t>(keyboard.firstKeyCode + key);
            }
        }
    }
    return otherwise;
}

std::vector<std::uint16_t> lockSets(const XcbKeyboard& keyboard) {
    std::vector<std::uint16_t> sets{0};
    const std::array<std::uint16_t, 3> locks{
        XCB_MOD_MASK_LOCK, maskOf(keyboard, {symbolNumLock}), maskOf(keyboard, {symbolScrollLock})};
    for (const auto lock : locks) {
        if (lock != 0) {
            const auto known = sets;
            for (const auto set : known) {
                sets.push_back(static_cast<std::uint16_t>(set | lock));
            }
        }
    }
    return sets;
}

} // namespace

XcbKeyboard readKeyboard(xcb_connection_t* connection) {
    const auto* setup = xcb_get_setup(connection);
    const auto first = setup->min_keycode;
    const auto symbolsCookie = xcb_get_keyboard_mapping(
        connection, first, static_cast<std::uint8_t>(setup->max_keycode - first + 1)
    );
    const auto modifiersCookie = xcb_get_modifier_mapping(connection);
    const XcbReply<xcb_get_keyboard_mapping_reply_t> symbols(
        xcb_get_keyboard_mapping_reply(connection, symbolsCookie, nullptr)
    );
    const XcbReply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection, modifiersCookie, nullptr)
    );
    if (!symbols || !modifiers) {
        return {};
    }
    XcbKeyboard keyboard;
    keyboard.firstKeyCode = first;
    keyboard.symbolsPerKey = symbols->keysyms_per_keycode;
    const auto* symbol = xcb_get_keyboard_mapping_keysyms(symbols.get());
    keyboard.symbols.assign(symbol, symbol + xcb_get_keyboard_mapping_keysyms_length(symbols.get()));
    keyboard.keysPerModifier = modifiers->keycodes_per_modifier;
    const auto* key = xcb_get_modifier_mapping_keycodes(modifiers.get());
    keyboard.modifierKeys.assign(key, key + xcb_get_modifier_mapping_keycodes_length(modifiers.get()));
    return keyboard;
}

std::vector<XcbChord> chordsFor(const XcbKeyboard& keyboard, const KeyCombination& keys) {
    const auto alt = maskOf(keyboard, {symbolAltLeft, symbolAltRight});
    const auto super = maskOf(keyboard, {symbolSuperLeft, symbolSuperRight});
    if ((keys.option && alt == 0) || (keys.command && super == 0)) {
        return {};
    }
    const auto wanted = static_cast<std::uint16_t>(
        (keys.control ? XCB_MOD_MASK_CONTROL : 0) | (keys.option ? alt : 0) | (keys.command ? super : 0)
    );
    const auto code = keys.key == KeyCombination::Key::space
                          ? codeOf(keyboard, {symbolSpace}, placeOfSpace)
                          : codeOf(keyboard, {symbolP, symbolCapitalP}, placeOfP);
    std::vector<XcbChord> chords;
    for (const auto locks : lockSets(keyboard)) {
        const XcbChord chord{code, static_cast<std::uint16_t>(wanted | locks)};
        if (std::find(chords.begin(), chords.end(), chord) == chords.end()) {
            chords.push_back(chord);
        }
    }
    return chords;
}

} // namespace mimkins
