#pragma once

#include "Platform/Qt/XcbHotKeys.h"

#include <memory>
#include <string_view>

namespace mimkins {

/// What a desktop is known by.
struct DesktopSession {
    std::string_view type; ///< as XDG_SESSION_TYPE says it
    bool hasWaylandDisplay = false;
    bool onXServer = false; ///< the program's own windows are on one
};

/// How keys that reach the program wherever the user is are had.
enum class HotKeyWay { none, grabs, portal };

/// The X server that a Wayland desktop keeps hears keys only while one of its own windows has the focus, so
/// that grabs count for nothing there, and the desktop itself is asked.
HotKeyWay hotKeyWay(const DesktopSession& session);

/// The way to such keys on this desktop.
std::unique_ptr<HotKeys> makeHotKeys(XcbHotKeys::Loops loops);

} // namespace mimkins
