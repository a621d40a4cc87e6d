#pragma once

#include "Drawing/Geometry.h"

/// When and where a notice is seen.
namespace mimkins::hud {

inline constexpr double fadeInSeconds = 0.15;
/// From the show to the beginning of the fade.
inline constexpr double stayingSeconds = 1.8;
inline constexpr double fadeOutSeconds = 0.3;
/// Between the top of the screen's visible frame and the notice, points.
inline constexpr double topMargin = 14;

/// The frame of a notice of this size at the top of the middle, with y pointing downwards.
constexpr Rect frame(const Rect& visible, double width, double height) {
    return {visible.x + visible.width / 2 - width / 2, visible.y + topMargin, width, height};
}

} // namespace mimkins::hud
