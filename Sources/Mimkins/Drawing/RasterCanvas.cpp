#include "Drawing/RasterCanvas.h"

#include "Drawing/Rounding.h"
#include "Drawing/ShadingSpans.h"

#include <cmath>

namespace mimkins {

namespace {

/// Memory that all canvases of a thread draw with, one after the other.
struct Scratch {
    Outline lines;
    Outline widened;
    CoverageMask mask;
    ShadingSpans spans;
};

Scratch& scratch() {
    static thread_local Scratch all;
    return all;
}

/// The larger of the factors by which a map lengthens the two axes.
double stretch(const Transform& map) {
    return std::sqrt(std::max(map.a * map.a + map.b * map.b, map.c * map.c + map.d * map.d));
}

void place(Outline& outline, const Transform& map) {
    for (Point& point : outline.points()) {
        point = map.apply(point);
    }
}

/// Multiplies the four channels of a pixel by a factor from 0 to 256.
std::uint32_t times(std::uint32_t pixel, std::uint32_t factor) {
    const std::uint32_t even = ((pixel & 0x00FF00FFU) * factor >> 8) & 0x00FF00FFU;
    const std::uint32_t odd = ((pixel >> 8) & 0x00FF00FFU) * factor & 0xFF00FF00U;
    return even | odd;
}

void blend(std::uint32_t& target, std::uint32_t source, float coverage) {
    if (coverage <= 1.0F / 512) {
        return;
    }
    const auto part = nearestWhole(coverage * 256);
    const std::uint32_t covered = part >= 256 ? source : times(source, part);
    const std::uint32_t alpha = covered >> 24;
    target = alpha == 255 ? covered : covered + times(target, 256 - (alpha + (alpha >> 7)));
}

} // namespace

RasterCanvas::RasterCanvas(const Bitmap& bitmap, double scale, ColorScheme scheme, GlyphOutlines* glyphs)
    : bitmap_(bitmap), scale_(scale), scheme_(scheme), glyphs_(glyphs) {}

void RasterCanvas::paint(const Transform& map, const Shading& shading, double opacity) {
    Scratch& all = scratch();
    all.mask.rasterize(all.lines, bitmap_.width, bitmap_.height);
    const auto& bounds = all.mask.bounds();
    if (bounds.isEmpty() || !all.spans.begin(shading, scheme_, map, opacity)) {
        return;
    }
    for (int y = bounds.top; y < bounds.bottom; ++y) {
        const auto [left, coverage] = all.mask.row(y);
        std::uint32_t* target = bitmap_.pixels + static_cast<std::ptrdiff_t>(y) * bitmap_.stride + left;
        if (const auto plain = all.spans.plainRow(y)) {
            for (std::size_t x = 0; x < coverage.size(); ++x) {
                blend(target[x], *plain, coverage[x]);
            }
            continue;
        }
        const auto colors = all.spans.row(left, y, coverage.size());
        for (std::size_t x = 0; x < coverage.size(); ++x) {
            blend(target[x], colors[x], coverage[x]);
        }
    }
}

void RasterCanvas::fill(const Path& path, const Shading& shading, const DrawingState& state) {
    const Transform map = Transform::scaling(scale_, scale_).after(state.transform);
    Outline& lines = scratch().lines;
    lines.clear();
    flatten(lines, path, stretch(map));
    place(lines, map);
    paint(map, shading, state.opacity);
}

void RasterCanvas::stroke(
    const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state
) {
    const Transform map = Transform::scaling(scale_, scale_).after(state.transform);
    const double pixels = stretch(map);
    Scratch& all = scratch();
    all.widened.clear();
    flatten(all.widened, path, pixels);
    all.lines.clear();
    strokeOutline(all.lines, all.widened, style, pixels);
    place(all.lines, map);
    paint(map, shading, state.opacity);
}

void RasterCanvas::draw(const TextRun& text, Point center, const DrawingState& state) {
    if (glyphs_ == nullptr) {
        return;
    }
    DrawingState placed = state;
    placed.transform = placed.transform.after(Transform::translation(center.x, center.y))
                           .after(Transform::scaling(text.size, text.size));
    fill(glyphs_->outline(text), text.color, placed);
}

} // namespace mimkins
