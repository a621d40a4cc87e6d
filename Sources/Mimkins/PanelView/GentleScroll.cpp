#include "PanelView/GentleScroll.h"

#include "Presentation/PanelFrames.h"

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double seconds = 0.35;

} // namespace

std::optional<double> GentleScroll::valueShowing(double top, double bottom) const {
    const double value = bar_.value();
    const double view = bar_.pageStep();
    if (top < value) {
        return top;
    }
    return bottom > value + view ? std::optional(std::min(bottom - view, top)) : std::nullopt;
}

void GentleScroll::jumpTo(double value) {
    way_.reset();
    bar_.setValue(static_cast<int>(std::lround(value)));
}

void GentleScroll::glideTo(double value) {
    way_ = Way{static_cast<double>(bar_.value()), value, 0};
}

void GentleScroll::finish() {
    if (way_) {
        jumpTo(way_->to);
    }
}

bool GentleScroll::step(double elapsed) {
    if (!way_) {
        return false;
    }
    way_->time += elapsed;
    const double fraction = std::min(way_->time / seconds, 1.0);
    const double value = way_->from + (way_->to - way_->from) * panel::easeInEaseOut(fraction);
    bar_.setValue(static_cast<int>(std::lround(value)));
    if (fraction >= 1) {
        way_.reset();
    }
    return way_.has_value();
}

} // namespace mimkins
