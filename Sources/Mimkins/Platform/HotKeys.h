#pragma once

#include "Base/Handle.h"

#include <functional>

namespace mimkins {

/// Keys that are pressed together.
struct KeyCombination {
    enum class Key { p, space };

    Key key = Key::p;
    bool control = false;
    bool option = false;
    bool command = false;

    friend bool operator==(const KeyCombination&, const KeyCombination&) = default;
};

enum class HotKeyResult {
    registered,
    failed, ///< another program has the keys, or the desktop gives none
};

struct HotKeyRequest {
    KeyCombination keys;
    /// Called on the main thread, from the loop itself, each time the keys are pressed; a key that is held
    /// down counts once.
    std::function<void()> pressed;
    /// Called once on the main thread: within the registration, or later where somebody has to be asked. Not
    /// called after the handle has ended.
    std::function<void(HotKeyResult)> told;
};

/// Keys that reach the program wherever the user is.
class HotKeys {
public:
    virtual ~HotKeys() = default;

    /// Takes the keys until the handle ends. When it fails nothing is taken.
    virtual Handle registerHotKey(HotKeyRequest request) = 0;
};

/// A desktop that gives no program such keys.
class NoHotKeys final : public HotKeys {
public:
    Handle registerHotKey(HotKeyRequest request) override {
        request.told(HotKeyResult::failed);
        return {};
    }
};

} // namespace mimkins
