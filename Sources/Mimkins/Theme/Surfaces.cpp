#include "Theme/ThemeDrawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

Path wholeArea(Size size) {
    Path path;
    path.addRoundedRect({0, 0, size.width, size.height}, 0);
    return path;
}

void drawGlass(GraphicsContext& context, ColorScheme scheme, Size size) {
    const bool dark = scheme == ColorScheme::dark;
    const Color top = Color::grey(dark ? 0.2 : 0.96);
    const Color bottom = Color::grey(dark ? 0.15 : 0.91);
    constexpr double thickness = 0.82;
    context.fill(
        wholeArea(size),
        LinearGradient{{top.faded(thickness), bottom.faded(thickness)}, {0, 0}, {0, size.height}}
    );
    context.fill(wholeArea(size), top.faded(0.5));
}

void drawDots(GraphicsContext& context, Size size) {
    constexpr double first = 9;
    constexpr double step = 18;
    constexpr double side = 1.4;
    Path dots;
    for (double y = first; y < size.height; y += step) {
        for (double x = first; x < size.width; x += step) {
            dots.addEllipse({x, y, side, side});
        }
    }
    context.fill(dots, Color::white(0.05));
}

void drawRows(GraphicsContext& context, Size size, const Rect& first, double step, const Color& color) {
    Path rows;
    for (double y = first.y; y < size.height; y += step) {
        rows.addRoundedRect({first.x, y, first.width, first.height}, 0);
    }
    context.fill(rows, color);
}

void drawRuled(GraphicsContext& context, Size size) {
    drawRows(context, size, {0, 30, size.width, 0.8}, 22, {0.45, 0.6, 0.9, 0.28});
    Path margin;
    margin.addRoundedRect({14, 0, 1, size.height}, 0);
    context.fill(margin, Color{0.9, 0.35, 0.35, 0.35});
}

/// A floor of lines that runs to a horizon.
void drawGrid(GraphicsContext& context, Size size) {
    constexpr double opacity = 0.3;
    constexpr int rows = 12;
    constexpr int columns = 13;
    const Color pink{1, 0.3, 0.8, opacity};
    const double horizon = 0.68 * size.height;
    const double depth = size.height - horizon;
    Path line;
    line.addRoundedRect({0, horizon, size.width, 1.2}, 0);
    context.fill(line, pink.faded(1.5));
    Path floor;
    for (int row = 1; row <= rows; ++row) {
        const double near = static_cast<double>(row) / rows;
        const double y = horizon + depth * near * near;
        floor.move({0, y});
        floor.addLine({size.width, y});
    }
    for (int column = 0; column < columns; ++column) {
        const double across = static_cast<double>(column) / (columns - 1) - 0.5;
        floor.move({size.width / 2, horizon});
        floor.addLine({size.width * (0.5 + 2.4 * across), size.height});
    }
    context.stroke(floor, pink, StrokeStyle::plain(1));
}

} // namespace

void drawSky(GraphicsContext& context, const PetTheme& theme, ColorScheme scheme, Size size) {
    if (theme.sky.empty()) {
        drawGlass(context, scheme, size);
    } else {
        context.fill(wholeArea(size), LinearGradient{Gradient(theme.sky), {0, 0}, {0, size.height}});
    }
    for (const Glow& glow : theme.glows) {
        const Point center{glow.center.x * size.width, glow.center.y * size.height};
        context.fill(
            wholeArea(size), RadialGradient{{glow.color, glow.color.faded(0)}, center, 0, glow.radius}
        );
    }
}

void drawTexture(GraphicsContext& context, Texture texture, Size size) {
    switch (texture) {
    case Texture::none:
        break;
    case Texture::dots:
        drawDots(context, size);
        break;
    case Texture::ruled:
        drawRuled(context, size);
        break;
    case Texture::scanlines:
        drawRows(context, size, {0, 0, size.width, 1}, 3, Color::black(0.35));
        break;
    case Texture::grid:
        drawGrid(context, size);
        break;
    }
}

Path edgePath(Size size, double radius, double inset) {
    return Path::leftRoundedRect(
        {inset, inset, size.width - 2 * inset, size.height - 2 * inset}, std::max(radius - inset, 0.0)
    );
}

void drawBorder(GraphicsContext& context, const Path& shape, const PetTheme& theme, Size size, double t) {
    const Point middle{size.width / 2, size.height / 2};
    if (theme.borderTravels) {
        constexpr double round = 24; // seconds
        constexpr double strength = 0.75;
        GraphicsContext faded = context;
        faded.setOpacity(context.opacity() * strength);
        const double angle = 2 * std::numbers::pi * (t - round * std::floor(t / round)) / round;
        faded.stroke(
            shape, AngularGradient{Gradient(theme.border), middle, angle},
            StrokeStyle::plain(theme.borderWidth)
        );
        return;
    }
    StrokeStyle style = StrokeStyle::plain(theme.borderWidth);
    for (const double length : theme.borderDash) {
        if (style.dashCount < style.dash.size()) {
            style.dash[style.dashCount++] = length;
        }
    }
    if (theme.border.size() == 1) {
        context.stroke(shape, theme.border.front(), style);
    } else {
        context.stroke(
            shape, LinearGradient{Gradient(theme.border), {0, 0}, {size.width, size.height}}, style
        );
    }
}

} // namespace mimkins
