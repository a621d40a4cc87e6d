#include "Presentation/PanelFrames.h"

#include <algorithm>

namespace mimkins::panel {

namespace {

constexpr double verticalMargin = 8;
constexpr double beyondEdge = 1;

constexpr double mixed(double from, double to, double fraction) {
    return from + (to - from) * fraction;
}

constexpr Rect mixed(const Rect& from, const Rect& to, double fraction) {
    return {
        mixed(from.x, to.x, fraction),
        mixed(from.y, to.y, fraction),
        mixed(from.width, to.width, fraction),
        mixed(from.height, to.height, fraction),
    };
}

/// A cubic curve from 0 to 1 by its two inner control values.
constexpr double bezier(double first, double second, double t) {
    const double rest = 1 - t;
    return 3 * rest * rest * t * first + 3 * rest * t * t * second + t * t * t;
}

} // namespace

Frames frames(const Placement& placement, bool open) {
    const Rect& visible = placement.visibleFrame;
    const double edge = open ? visible.maxX() - placement.panelWidth : visible.maxX();
    const Rect drawer{
        open ? edge : edge + beyondEdge,
        visible.y + verticalMargin,
        placement.panelWidth,
        visible.height - 2 * verticalMargin,
    };
    const double middle = visible.y + visible.height * placement.tabPosition;
    return {drawer, {edge - tabWidth, middle - tabHeight / 2, tabWidth, tabHeight}};
}

Rect flipped(const Rect& rect, const Rect& frame) {
    return {rect.x, frame.y + frame.maxY() - rect.maxY(), rect.width, rect.height};
}

Frames framesDownwards(const Placement& placement, bool open) {
    const Frames upwards = frames(placement, open);
    return {flipped(upwards.panel, placement.visibleFrame), flipped(upwards.tab, placement.visibleFrame)};
}

Frames between(const Frames& closed, const Frames& open, double fraction) {
    return {mixed(closed.panel, open.panel, fraction), mixed(closed.tab, open.tab, fraction)};
}

double easeInEaseOut(double fraction) {
    constexpr double firstX = 0.42;
    constexpr double secondX = 0.58;
    const double wanted = std::clamp(fraction, 0.0, 1.0);
    double low = 0;
    double high = 1;
    for (int step = 0; step < 40; ++step) {
        const double middle = (low + high) / 2;
        (bezier(firstX, secondX, middle) < wanted ? low : high) = middle;
    }
    return bezier(0, 1, (low + high) / 2);
}

} // namespace mimkins::panel
