#pragma once

#include "Drawing/GraphicsContext.h"

#include <array>

namespace mimkins::app_icon {

/// The sides of the application's icon in pixels that desktops ask for.
inline constexpr std::array sides{16, 22, 24, 32, 48, 64, 128, 256, 512};

/// The largest side at which the icon is drawn on the pixel grid with its essentials alone.
inline constexpr int simpleSide = 24;

/// Draws the application's icon, a pet that looks out of the night, into a square from the origin. A point is
/// a pixel of the picture.
void drawIcon(GraphicsContext& context, int side);

} // namespace mimkins::app_icon
