#pragma once

#include "Drawing/Path.h"

namespace mimkins {

/// Adds a path's element to another path as moves, lines, cubic curves and closings.
void appendCurves(Path& curves, const PathElement& element);

} // namespace mimkins
