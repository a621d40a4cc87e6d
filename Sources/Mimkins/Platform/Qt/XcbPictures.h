#pragma once

#include "Platform/WindowSystem.h"

#include <QPointer>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdint>
#include <map>

namespace mimkins {

/// Puts small pictures into the application's windows over its own connection to the X server, and waits for
/// no answer: what a frame costs is its bytes.
class XcbPictures {
public:
    /// The connection outlives it.
    explicit XcbPictures(xcb_connection_t* connection) : connection_(connection) {}

    ~XcbPictures();
    XcbPictures(const XcbPictures&) = delete;
    XcbPictures& operator=(const XcbPictures&) = delete;

    /// False if the window isn't one of ours that is on the screen, has pixels of another kind, or the
    /// picture is more than the server takes at once.
    bool put(xcb_window_t window, const WindowPicture& picture);

private:
    /// A window that has been looked at once.
    struct Target {
        QPointer<QWindow> window;
        std::uint8_t depth = 0; ///< 0 if its pixels are of another kind
    };

    const Target* target(xcb_window_t window);
    std::uint8_t depthOf(xcb_window_t window);
    bool hasOurPixels(std::uint8_t depth, xcb_visualid_t visual) const;
    xcb_gcontext_t context(xcb_window_t window, std::uint8_t depth);

    xcb_connection_t* connection_;
    std::map<xcb_window_t, Target> targets_;
    std::map<std::uint8_t, xcb_gcontext_t> contexts_; ///< by depth
};

} // namespace mimkins
