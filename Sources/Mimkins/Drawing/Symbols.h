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
    chip,
    wave,    ///< a hand that waves
    box,     ///< a parcel
    alarm,   ///< an alarm clock
    gears,   ///< two gear wheels
    openApp, ///< an arrow out of a frame
    refresh, ///< an arrow that goes round
    partyPopper,
    shuffle, ///< two arrows that cross
    power,   ///< the sign on a switch
    infoCircle,
    checkmarkCircleFilled, ///< a disc with the tick cut out
};

/// Draws an icon in a square of this size with its top left corner at the origin. The ink fills most of the
/// square.
void drawSymbol(GraphicsContext context, Symbol symbol, double size, const Shading& ink);

} // namespace mimkins
