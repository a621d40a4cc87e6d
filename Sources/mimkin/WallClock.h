#pragma once

#include "Base/Date.h"

namespace mimkins {

/// The present by the wall clock, in whole milliseconds as records hold it.
Date wallClock();

} // namespace mimkins
