#pragma once

#include "Drawing/GraphicsContext.h"

#include <span>

namespace mimkins {

enum class IconForm { outlined, filled };

/// A crescent with two stars in a square from the origin, painted from its top left corner to its bottom
/// right one.
void drawMoon(GraphicsContext& context, IconForm form, std::span<const Color> colors, double side);

} // namespace mimkins
