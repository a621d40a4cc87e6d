#pragma once

#include "App/Options.h"
#include "Base/Paths.h"

namespace mimkins {

/// Draws the drawer with the set-up screen, connected as the options say. The connection is that of a
/// throw-away home; only the look comes from the one of `paths`. Gives the exit code; a failure is told on
/// standard error.
int renderSetup(const Options& options, const Paths& paths);

} // namespace mimkins
