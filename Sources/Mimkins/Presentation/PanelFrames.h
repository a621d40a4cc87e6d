#pragma once

#include "Drawing/Geometry.h"

/// Where the drawer and its tab stand.
namespace mimkins::panel {

inline constexpr double tabWidth = 28;
inline constexpr double tabHeight = 92;
/// How long the drawer slides, seconds.
inline constexpr double slideSeconds = 0.28;

struct Frames {
    Rect panel;
    Rect tab;

    friend constexpr bool operator==(const Frames&, const Frames&) = default;
};

struct Placement {
    Rect visibleFrame;      ///< of the screen, without the bars of the desktop
    double panelWidth = 0;  ///< points
    double tabPosition = 0; ///< of the tab's middle, a fraction of the visible height
};

/// The frames with y pointing upwards: a shut drawer lies one point beyond the screen's edge.
Frames frames(const Placement& placement, bool open);

/// Turns a rectangle over: from y pointing upwards to y pointing downwards, or back, inside a frame whose
/// least y and height are the same in both.
Rect flipped(const Rect& rect, const Rect& frame);

/// The same as `frames` with y pointing downwards, as window systems count it.
Frames framesDownwards(const Placement& placement, bool open);

/// The frames on the way, for a drawer that is out by a fraction from 0 to 1.
Frames between(const Frames& closed, const Frames& open, double fraction);

/// The timing of a slide that begins and ends softly: from 0 to 1 for a fraction of the time from 0 to 1.
double easeInEaseOut(double fraction);

} // namespace mimkins::panel
