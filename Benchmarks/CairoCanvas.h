#pragma once

#include "Drawing/GlyphOutlines.h"
#include "Drawing/GraphicsContext.h"

#include <cairo.h>

namespace mimkins {

/// Draws through cairo, as a reference to compare our own rasteriser with. Paths have to be made of moves,
/// lines, cubic curves and closings, so that what is measured is cairo and not a conversion.
class CairoCanvas final : public Canvas {
public:
    CairoCanvas(cairo_t* cairo, ColorScheme scheme, GlyphOutlines* glyphs)
        : cairo_(cairo), scheme_(scheme), glyphs_(glyphs) {}

    void fill(const Path& path, const Shading& shading, const DrawingState& state) override;
    void stroke(const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state)
        override;
    void draw(const TextRun& text, Point center, const DrawingState& state) override;

private:
    /// False if nothing can be seen of it.
    bool begin(const Path& path, const Shading& shading, const DrawingState& state);

    cairo_t* cairo_;
    ColorScheme scheme_;
    GlyphOutlines* glyphs_;
};

} // namespace mimkins
