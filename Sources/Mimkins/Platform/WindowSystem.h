#pragma once

#include "Base/Handle.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace mimkins {

/// The number by which the window system knows a top-level window; 0 is none.
using WindowId = std::uint64_t;

/// Among which windows a panel stands.
enum class WindowLevel {
    normal,   ///< like any window: others can cover it
    floating, ///< above ordinary windows
};

/// A small picture for a window, in the screen's own pixels: premultiplied, 0xAARRGGBB, row by row from the
/// top without gaps.
struct WindowPicture {
    std::span<const std::uint32_t> pixels;
    std::size_t width = 0;

    std::size_t height() const { return width == 0 ? 0 : pixels.size() / width; }
};

/// What the panels need of the window system beyond ordinary windows.
class WindowSystem {
public:
    virtual ~WindowSystem() = default;

    /// Makes a window a panel: on all desktops, in no task bar and no pager, without focus when it appears,
    /// at this level. To be called before each show and again after it, since a hidden window loses its
    /// state.
    virtual void makePanel(WindowId window, WindowLevel level) = 0;

    /// Keeps `child` right above `owner`, to sink and rise with it; no owner sets it free.
    virtual void setOwner(WindowId child, std::optional<WindowId> owner) = 0;

    /// Brings the window before all others of its level, whichever application is active.
    virtual void raise(WindowId window) = 0;

    /// The window that has the keyboard; nothing if none has it or the window system doesn't tell.
    virtual std::optional<WindowId> activeWindow() = 0;

    /// Gives a window the keyboard, whichever application it belongs to. One that is gone is let be.
    virtual void activate(WindowId window) = 0;

    /// True if nobody can see any of the window: others cover all of it, or it is hidden, minimised or on
    /// another desktop. Windows in `ignoring` cover nothing.
    virtual bool isCovered(WindowId window, const std::vector<WindowId>& ignoring) = 0;

    /// True if windows may be translucent.
    virtual bool hasTranslucency() = 0;

    /// Shows a picture at the upper left of a window of this process at once, past the toolkit, which doesn't
    /// learn of it and shows its own again when it next paints or the window is laid bare. False if it can't
    /// be done; a window that isn't shown is such a case.
    virtual bool put(WindowId window, const WindowPicture& picture) = 0;

    /// Calls `changed` after windows were moved, stacked, shown or hidden, at most a few times a second,
    /// until the handle ends.
    virtual Handle whenWindowsChange(std::function<void()> changed) = 0;
};

/// A window system that can do nothing of this: every window counts as visible.
class PlainWindowSystem final : public WindowSystem {
public:
    void makePanel(WindowId, WindowLevel) override {}

    void setOwner(WindowId, std::optional<WindowId>) override {}

    void raise(WindowId) override {}

    std::optional<WindowId> activeWindow() override { return std::nullopt; }

    void activate(WindowId) override {}

    bool isCovered(WindowId, const std::vector<WindowId>&) override { return false; }

    bool hasTranslucency() override { return true; }

    bool put(WindowId, const WindowPicture&) override { return false; }

    Handle whenWindowsChange(std::function<void()>) override { return {}; }
};

} // namespace mimkins
