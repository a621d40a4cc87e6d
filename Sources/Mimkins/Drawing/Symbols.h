#pragma once

#include "Drawing/GraphicsContext.h"

#include <cstdint>

namespace mimkins {

/// Small icons, named by what they show.
enum class Symbol : std::uint8_t {
    chevronUp,
    chevronDown,
    stack,
    ellipsisCircle,
    checkmarkCircle,
    flame,
    bolt,
    note,
    pencil,
    flower,
    book,
    chip
};

/// Draws an icon in a square of this size with its top left corner at the origin. The ink fills most of the
/// square.
void drawSymbol(GraphicsContext context, Symbol symbol, double size, const Color& color);

} // namespace mimkins
