#pragma once

#include "App/Options.h"
#include "Base/Paths.h"

namespace mimkins {

/// Draws the cards of a home's sessions at a moment, below one another on the theme's ground, all in the
/// state that is asked for. Gives the exit code; a failure is told on standard error.
int renderCards(const Options& options, const Paths& paths);

/// Draws the edge tab as it would show at that moment.
int renderTab(const Options& options, const Paths& paths);

} // namespace mimkins
