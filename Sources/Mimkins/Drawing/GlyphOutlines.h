#pragma once

#include "Drawing/Path.h"
#include "Drawing/TextRun.h"

namespace mimkins {

/// Gives texts as shapes.
class GlyphOutlines {
public:
    virtual ~GlyphOutlines() = default;

    /// The outline of a text at a size of 1, its box centred on the origin. Stays valid until the next call.
    virtual const Path& outline(const TextRun& text) = 0;
};

} // namespace mimkins
