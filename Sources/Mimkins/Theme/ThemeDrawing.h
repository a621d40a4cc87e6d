#pragma once

#include "Drawing/GraphicsContext.h"
#include "Theme/PetTheme.h"

/// A theme's pictures as functions of the clock: `t` is in seconds since 1 January 2001. Sizes are in points.
namespace mimkins {

struct Size {
    double width = 0;
    double height = 0;
};

/// The gradient of the sky and its glows; for a theme without a sky, the glass of the scheme.
void drawSky(GraphicsContext& context, const PetTheme& theme, ColorScheme scheme, Size size);

void drawTexture(GraphicsContext& context, Texture texture, Size size);

/// Fourteen particles that drift over the panel, in the theme's colours by turns.
void drawParticles(GraphicsContext& context, const PetTheme& theme, double t, Size size);

/// The rectangles that the particles lie in at that moment; those too faint to be seen are left out.
std::vector<Rect> particleAreas(const PetTheme& theme, double t, Size size);

/// A shape that hugs the right edge of the screen, its left corners rounded, its right ones square, inset on
/// every side.
Path edgePath(Size size, double radius, double inset);

/// Strokes a shape that has been inset by the border's width. The colours of a travelling border go once
/// round the middle in 24 seconds.
void drawBorder(GraphicsContext& context, const Path& shape, const PetTheme& theme, Size size, double t);

struct Cog {
    double size = 22;
    double turn = 0; ///< radians
};

/// A gear with a small face that blinks.
void drawCog(GraphicsContext& context, const std::vector<Color>& colors, const Cog& cog, double t);

/// True while the cog's eyes are shut.
bool cogBlinks(double t);

/// A shower of sixty pieces of paper that never ends.
void drawConfetti(GraphicsContext& context, double t, Size size);

/// The squares that the papers lie in at that moment.
std::vector<Rect> confettiAreas(double t, Size size);

/// How bright the outline of whoever waits glows at a moment, from 0 to 1.
double glowPulse(double t);

/// How opaque that outline is, and the light around it.
double glowOpacity(double t);
double glowLightOpacity(double t);

struct GlowFrame {
    Color tint;
    double blur = 0; ///< radius of the light around the outline; none for 0
};

/// The outline of whoever waits. The shape has been inset by one point, half of the outline's width.
void drawGlowFrame(GraphicsContext& context, const Path& shape, const GlowFrame& frame, double t);

} // namespace mimkins
