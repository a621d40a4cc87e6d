#pragma once

#include "Drawing/CoverageMask.h"
#include "Drawing/GlyphOutlines.h"
#include "Drawing/GraphicsContext.h"

#include <cstdint>

namespace mimkins {

/// Pixels in memory: 32 bits each, 0xAARRGGBB, premultiplied, rows from the top.
struct Bitmap {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0; ///< pixels from a row to the next
};

/// Draws into memory with a rasteriser made for small pictures that change all the time: nothing is set up or
/// kept for a shape, and no memory is taken once the largest has been seen.
class RasterCanvas final : public Canvas {
public:
    /// What is drawn in units appears `scale` times as large in pixels. Texts are left out without glyphs.
    RasterCanvas(const Bitmap& bitmap, double scale, ColorScheme scheme, GlyphOutlines* glyphs);

    void fill(const Path& path, const Shading& shading, const DrawingState& state) override;
    void stroke(const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state)
        override;
    void draw(const TextRun& text, Point center, const DrawingState& state) override;

private:
    void paint(const Transform& map, const Shading& shading, double opacity);

    Bitmap bitmap_;
    double scale_;
    ColorScheme scheme_;
    GlyphOutlines* glyphs_;
};

} // namespace mimkins
