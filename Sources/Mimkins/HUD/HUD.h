#pragma once

#include "HUD/HUDView.h"
#include "Platform/RunLoop.h"
#include "Platform/WindowSystem.h"

#include <memory>

namespace mimkins {

/// A small notice at the top of the screen that takes neither clicks nor the focus and goes by itself.
class HUD {
public:
    struct Parts {
        RunLoop& loop;
        WindowSystem& windows;
    };

    explicit HUD(Parts parts) : parts_(parts) {}

    /// Shows a notice. One that is still seen is replaced at once, and the new one has its full time.
    void show(const Notice& notice, const PetTheme& theme);

    /// The notice's window; nothing before the first show.
    const HUDView* view() const { return view_.get(); }

private:
    void makeView();
    void placeView();
    void fade(double to, double seconds);
    void stepFade();

    Parts parts_;
    std::unique_ptr<HUDView> view_;
    double fadeTo_ = 0;
    double fadeStep_ = 0;
    double opacity_ = 0;
    Handle fading_;
    Handle hideWork_;
};

} // namespace mimkins
