#pragma once

#include "App/Options.h"
#include "Base/Paths.h"

namespace mimkins {

/// Draws the open drawer with the settings of a home, at least as high as all of them. Gives the exit code; a
/// failure is told on standard error.
int renderSettings(const Options& options, const Paths& paths);

} // namespace mimkins
