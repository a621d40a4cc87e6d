#include "Settings/HotKeyRegistration.h"

#include "Base/DateText.h"
#include "Base/Log.h"

#include <utility>

namespace mimkins {

std::optional<KeyCombination> keysOf(Hotkey hotkey) {
    using Key = KeyCombination::Key;
    switch (hotkey) {
    case Hotkey::optCmdP:
        return KeyCombination{Key::p, false, true, true};
    case Hotkey::ctrlOptP:
        return KeyCombination{Key::p, true, true, false};
    case Hotkey::ctrlOptSpace:
        return KeyCombination{Key::space, true, true, false};
    case Hotkey::off:
        break;
    }
    return std::nullopt;
}

std::string label(Hotkey hotkey) {
    switch (hotkey) {
    case Hotkey::optCmdP:
        return "⌥⌘P";
    case Hotkey::ctrlOptP:
        return "⌃⌥P";
    case Hotkey::ctrlOptSpace:
        return "⌃⌥Space";
    case Hotkey::off:
        break;
    }
    return {};
}

HotKeyRegistration::HotKeyRegistration(Parts parts, std::function<void()> pressed)
    : parts_(parts), pressed_(std::move(pressed)) {}

void HotKeyRegistration::use(Hotkey hotkey) {
    hotKey_.reset();
    registered_ = false;
    const auto keys = keysOf(hotkey);
    if (!keys) {
        return;
    }
    hotKey_ = parts_.keys.registerHotKey({*keys, pressed_, [this, hotkey](HotKeyResult outcome) {
                                              conclude(hotkey, outcome);
                                          }});
}

void HotKeyRegistration::conclude(Hotkey hotkey, HotKeyResult result) {
    registered_ = result == HotKeyResult::registered;
    const std::string shortcut = label(hotkey);
    parts_.defaults.set(
        statusKey,
        shortcut + ": " + (registered_ ? "registered " : "failed ") + text::description(parts_.clock.now())
    );
    log::write(
        log::Level::standard, "hotkey",
        "next-up shortcut " + shortcut + ": " +
            (registered_ ? "registered" : "NOT registered (taken by another app?)")
    );
    if (onConcluded) {
        onConcluded();
    }
}

} // namespace mimkins
