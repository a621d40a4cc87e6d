#pragma once

#include "Drawing/GraphicsContext.h"

namespace mimkins {

/// Small pictures in one ink, by what they mean.
enum class Symbol {
    wave,    ///< a hand that waves
    box,     ///< a parcel
    alarm,   ///< an alarm clock
    gears,   ///< two gear wheels
    openApp, ///< an arrow out of a frame
    refresh, ///< an arrow that goes round
};

/// Draws a symbol into a square from the origin.
void drawSymbol(GraphicsContext& context, Symbol symbol, const Shading& ink, double side);

} // namespace mimkins
