#pragma once

#include "Drawing/Path.h"
#include "Drawing/Shading.h"
#include "Drawing/StrokeStyle.h"
#include "Drawing/TextRun.h"
#include "Drawing/Transform.h"

namespace mimkins {

/// What a drawing operation goes through on its way to the canvas.
struct DrawingState {
    Transform transform;
    double opacity = 1; ///< a factor on everything drawn
};

/// Where drawings end up: a picture, a window, a list of commands.
class Canvas {
public:
    virtual ~Canvas() = default;

    /// Fills by the non-zero winding rule.
    virtual void fill(const Path& path, const Shading& shading, const DrawingState& state) = 0;
    virtual void
    stroke(const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state) = 0;
    /// Draws a text whose box is centred on a point.
    virtual void draw(const TextRun& text, Point center, const DrawingState& state) = 0;
};

/// The handle that drawings are made through. A copy draws on the same canvas, and what is done to its
/// transform or opacity leaves the original as it is.
class GraphicsContext {
public:
    explicit GraphicsContext(Canvas& canvas) : canvas_(&canvas) {}

    void fill(const Path& path, const Shading& shading) { canvas_->fill(path, shading, state_); }

    void stroke(const Path& path, const Shading& shading, const StrokeStyle& style) {
        canvas_->stroke(path, shading, style, state_);
    }

    void draw(const TextRun& text, Point center) { canvas_->draw(text, center, state_); }

    void translateBy(double x, double y) { apply(Transform::translation(x, y)); }

    /// Clockwise, in radians.
    void rotate(double angle) { apply(Transform::rotation(angle)); }

    void scaleBy(double x, double y) { apply(Transform::scaling(x, y)); }

    double opacity() const { return state_.opacity; }

    /// Replaces the opacity, 0 to 1.
    void setOpacity(double opacity) { state_.opacity = opacity; }

    const DrawingState& state() const { return state_; }

private:
    void apply(const Transform& first) { state_.transform = state_.transform.after(first); }

    Canvas* canvas_;
    DrawingState state_;
};

} // namespace mimkins
