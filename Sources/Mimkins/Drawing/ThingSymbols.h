#pragma once

#include "Drawing/Symbols.h"

namespace mimkins {

/// Draws those symbols that show things, `wave` and all after it, in a square of 16 units.
void drawThing(GraphicsContext& context, Symbol symbol, const Shading& ink);

} // namespace mimkins
