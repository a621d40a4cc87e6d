#pragma once

#include "Drawing/GraphicsContext.h"

class QPainter;

namespace mimkins {

/// Draws through a Qt painter. What the painter's own transform and opacity are when the canvas is made holds
/// for all of it; they are put back when it goes.
class PainterCanvas final : public Canvas {
public:
    PainterCanvas(QPainter& painter, ColorScheme scheme);
    ~PainterCanvas() override;
    PainterCanvas(const PainterCanvas&) = delete;
    PainterCanvas& operator=(const PainterCanvas&) = delete;

    void fill(const Path& path, const Shading& shading, const DrawingState& state) override;
    void stroke(const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state)
        override;
    void draw(const TextRun& text, Point center, const DrawingState& state) override;

private:
    void enter(const DrawingState& state);

    QPainter* painter_;
    ColorScheme scheme_;
};

} // namespace mimkins
