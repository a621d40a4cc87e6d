#pragma once

#include "App/Options.h"
#include "Base/Paths.h"
#include "PanelView/PanelView.h"
#include "SessionStore/SessionStore.h"

namespace mimkins {

/// Sets up the environment so that pictures can be drawn without a display, in the scale that is asked for.
/// To be called before the application object exists.
void prepareRendering(const Options& options);

/// Gives the application's font the size that is asked for. To be called once the application object exists.
void setTextSize(const Options& options);

/// Draws the open drawer as it would show at that moment, with the list or the wrap-up. Gives the exit code;
/// a failure is told on standard error.
int renderDrawer(const Options& options, const Paths& paths);

/// A drawer that is to be drawn.
struct DrawerPicture {
    PanelView* panel = nullptr; ///< taken over
    PanelSettings settings;
    const SessionStore& store;
    RunLoop& loop;
};

/// Draws a panel in its drawer, beside the tab. Gives the exit code; a failure is told on standard error.
int writeDrawer(const DrawerPicture& picture, const Options& options);

/// Draws the notice that the first press of the shortcut would bring at that moment.
int renderHud(const Options& options, const Paths& paths);

} // namespace mimkins
