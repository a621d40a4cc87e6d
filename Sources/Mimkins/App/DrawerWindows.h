#pragma once

#include "PanelView/EdgeTab.h"
#include "PanelView/FrameClock.h"
#include "PanelView/SlideWindow.h"
#include "Platform/PreferencesStore.h"
#include "Platform/RunLoop.h"
#include "Platform/WindowSystem.h"
#include "Presentation/DrawerState.h"
#include "Presentation/PanelFrames.h"
#include "Presentation/PanelSettings.h"

#include <QObject>

#include <optional>

namespace mimkins {

/// The drawer and its tab on the screen: where they stand, how they slide, and among which windows they are.
class DrawerWindows final : public QObject {
public:
    struct Parts {
        WindowSystem& windows;
        DrawerState& drawer;
        PreferencesStore& preferences;
        RunLoop& loop;
        QWidget* content; ///< taken over
    };

    enum class Motion { jump, slide };

    /// Restores whether the drawer is open, and shows both windows.
    DrawerWindows(Parts parts, const PanelSettings& settings);
    ~DrawerWindows() override;

    EdgeTab& tab() { return tab_; }

    const SlideWindow& drawer() const { return window_; }

    /// Opens the drawer or shuts it, and remembers it. An open drawer that nobody can see comes forward
    /// instead.
    void toggle();
    /// Opens the drawer, or brings it forward.
    void bringForward();
    /// Does the same and gives it the keyboard.
    void takeKeyboard();
    /// Gives the drawer the keyboard for as long as something is written in it, and then back to the window
    /// that had it before. Whoever asked for the keyboard by other means keeps it.
    void setWriting(bool writing);
    /// Moves both windows to their places.
    void place(Motion motion);
    /// The tab stands at its new height at once.
    void setSettings(const PanelSettings& settings);

    bool isSliding() const { return clock_.isRunning(); }

    /// Moves a slide on by so many seconds. True if it isn't over.
    bool step(double seconds);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WindowId drawerId() const;
    WindowId tabId() const;
    panel::Placement placement() const;
    panel::Frames frames() const;
    void followScreens();
    void lendKeyboard();
    void forgetWriting();
    void returnKeyboard();
    void showDrawer();
    void hideDrawer();
    void attachTab(bool open);
    void finish();
    void setFraction(double fraction);
    void applyTraits();
    void watchCover(bool open);
    void updateCovered();
    void shapeWindows();

    Parts parts_;
    PanelSettings settings_;
    SlideWindow window_;
    EdgeTab tab_;
    bool tabAttached_ = false;
    bool writing_ = false;           ///< the drawer has the keyboard to be written in
    std::optional<WindowId> lender_; ///< the window that had the keyboard before
    double slideFrom_ = 0;
    double slideTo_ = 0;
    double slideTime_ = 0;
    Handle coverWatch_;
    Handle keyboardReturn_;
    FrameClock clock_;
};

} // namespace mimkins
