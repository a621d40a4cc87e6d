#include "CairoCanvas.h"

#include <cmath>

namespace mimkins {

namespace {

using Kind = PathElement::Kind;

void addCurves(cairo_t* cairo, const Path& path) {
    for (const PathElement& element : path.elements()) {
        switch (element.kind) {
        case Kind::move:
            cairo_move_to(cairo, element.a.x, element.a.y);
            break;
        case Kind::line:
            cairo_line_to(cairo, element.a.x, element.a.y);
            break;
        case Kind::cubic:
            cairo_curve_to(
                cairo, element.b.x, element.b.y, element.c.x, element.c.y, element.a.x, element.a.y
            );
            break;
        default:
            cairo_close_path(cairo);
            break;
        }
    }
}

void addStops(cairo_pattern_t* pattern, const Gradient& gradient, ColorScheme scheme, double opacity) {
    for (std::size_t index = 0; index < gradient.colors().size(); ++index) {
        const Color color = gradient.colors()[index].resolved(scheme);
        cairo_pattern_add_color_stop_rgba(
            pattern, gradient.location(index), color.red, color.green, color.blue, color.opacity * opacity
        );
    }
}

} // namespace

bool CairoCanvas::begin(const Path& path, const Shading& shading, const DrawingState& state) {
    const Transform& map = state.transform;
    if (std::abs(map.a * map.d - map.b * map.c) < 1e-12) {
        return false; // a matrix that flattens everything stops cairo for good
    }
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, map.a, map.b, map.c, map.d, map.tx, map.ty);
    cairo_set_matrix(cairo_, &matrix);
    cairo_new_path(cairo_);
    addCurves(cairo_, path);
    if (const auto* plain = std::get_if<Color>(&shading)) {
        const Color color = plain->resolved(scheme_);
        cairo_set_source_rgba(cairo_, color.red, color.green, color.blue, color.opacity * state.opacity);
        return true;
    }
    cairo_pattern_t* pattern = nullptr;
    if (const auto* linear = std::get_if<LinearGradient>(&shading)) {
        pattern = cairo_pattern_create_linear(linear->start.x, linear->start.y, linear->end.x, linear->end.y);
        addStops(pattern, linear->gradient, scheme_, state.opacity);
    } else if (const auto* radial = std::get_if<RadialGradient>(&shading)) {
        pattern = cairo_pattern_create_radial(
            radial->center.x, radial->center.y, radial->startRadius, radial->center.x, radial->center.y,
            radial->endRadius
        );
        addStops(pattern, radial->gradient, scheme_, state.opacity);
    }
    if (pattern != nullptr) {
        cairo_set_source(cairo_, pattern);
        cairo_pattern_destroy(pattern);
    }
    return true;
}

void CairoCanvas::fill(const Path& path, const Shading& shading, const DrawingState& state) {
    if (begin(path, shading, state)) {
        cairo_fill(cairo_);
    }
}

void CairoCanvas::stroke(
    const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state
) {
    if (!begin(path, shading, state)) {
        return;
    }
    cairo_set_line_width(cairo_, style.width);
    cairo_set_line_cap(cairo_, style.cap == LineCap::round ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(
        cairo_, style.join == LineJoin::round ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_MITER
    );
    cairo_set_dash(cairo_, style.dash.data(), static_cast<int>(style.dashCount), 0);
    cairo_stroke(cairo_);
}

void CairoCanvas::draw(const TextRun& text, Point center, const DrawingState& state) {
    if (glyphs_ == nullptr) {
        return;
    }
    DrawingState placed = state;
    placed.transform = placed.transform.after(Transform::translation(center.x, center.y))
                           .after(Transform::scaling(text.size, text.size));
    fill(glyphs_->outline(text), text.color, placed);
}

} // namespace mimkins
