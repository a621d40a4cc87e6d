#pragma once

#include "Drawing/Geometry.h"
#include "Platform/Linux/DescriptorWatcher.h"
#include "Platform/Qt/XcbPictures.h"
#include "Platform/Qt/XcbProperties.h"
#include "Platform/RunLoop.h"
#include "Platform/WindowSystem.h"

#include <memory>

namespace mimkins {

/// An X server with a window manager that follows the extended window manager hints; also the one that a
/// Wayland desktop keeps for X programs.
class XcbWindowSystem final : public WindowSystem {
public:
    struct Loops {
        RunLoop& timers;
        DescriptorWatcher& descriptors;
    };

    /// The window system of the running application; one that can do nothing if it isn't an X server.
    static std::unique_ptr<WindowSystem> make(Loops loops);

    void makePanel(WindowId window, WindowLevel level) override;
    void setOwner(WindowId child, std::optional<WindowId> owner) override;
    void raise(WindowId window) override;
    std::optional<WindowId> activeWindow() override;
    void activate(WindowId window) override;
    bool isCovered(WindowId window, const std::vector<WindowId>& ignoring) override;
    bool hasTranslucency() override;
    bool put(WindowId window, const WindowPicture& picture) override;
    Handle whenWindowsChange(std::function<void()> changed) override;

private:
    XcbWindowSystem(XcbProperties properties, int screenNumber, Loops loops)
        : properties_(std::move(properties)), screenNumber_(screenNumber), loops_(loops),
          pictures_(properties_.connection()) {}

    bool isViewable(xcb_window_t window);
    bool isShown(xcb_window_t window, const XcbProperties::Values& currentDesktop);
    std::optional<Rect> outerFrame(xcb_window_t window);
    std::vector<Rect> opaqueParts(xcb_window_t window);

    XcbProperties properties_;
    int screenNumber_;
    Loops loops_;
    XcbPictures pictures_;
};

} // namespace mimkins
