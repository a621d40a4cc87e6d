#pragma once

#include "Platform/Clock.h"
#include "Platform/HotKeys.h"
#include "Platform/PreferencesStore.h"
#include "Settings/Choice.h"

#include <functional>
#include <optional>
#include <string>

namespace mimkins {

/// The keys of a choice; none when it is off.
std::optional<KeyCombination> keysOf(Hotkey hotkey);

/// How a choice is written, such as "⌥⌘P"; empty when it is off.
std::string label(Hotkey hotkey);

/// Holds the one global shortcut. The outcome of each registration is stored under the key "hotkeyStatus".
class HotKeyRegistration {
public:
    struct Parts {
        HotKeys& keys;
        PreferencesStore& defaults;
        const Clock& clock;
    };

    static constexpr const char* statusKey = "hotkeyStatus";

    /// `pressed` is called for each press. The parts outlive this.
    HotKeyRegistration(Parts parts, std::function<void()> pressed);

    /// Called when the outcome of a registration has been stored.
    std::function<void()> onConcluded;

    /// Gives up the present keys and takes those of the choice. Nothing is stored when it is off.
    void use(Hotkey hotkey);

    /// True while keys are taken.
    bool isRegistered() const { return registered_; }

private:
    void conclude(Hotkey hotkey, HotKeyResult result);

    Parts parts_;
    std::function<void()> pressed_;
    bool registered_ = false;
    Handle hotKey_;
};

} // namespace mimkins
