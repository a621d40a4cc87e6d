#include "Presentation/CardScale.h"

#include <algorithm>

namespace mimkins {

namespace {

constexpr double dipSeconds = 0.08;
constexpr double grain = 0.0005;
constexpr SpringFeel releaseFeel{0.3, 1};
constexpr SpringFeel highlightFeel{0.35, 0.45};

/// Fast at first, slow at the end.
double easeOut(double fraction) {
    const double left = 1 - fraction;
    return 1 - left * left;
}

} // namespace

void CardScale::press() {
    pressTime_ = 0;
    pressFrom_ = scale_.value();
}

void CardScale::setHighlighted(bool on) {
    if (highlighted_ == on) {
        return;
    }
    highlighted_ = on;
    feel_ = highlightFeel;
    scale_.setGrain(grain);
    if (pressTime_ < 0) {
        scale_.setTarget(restingScale());
    }
}

bool CardScale::step(double seconds) {
    if (pressTime_ >= 0) {
        pressTime_ += seconds;
        const double fraction = std::min(pressTime_ / dipSeconds, 1.0);
        scale_.jump(pressFrom_ + (pressed - pressFrom_) * easeOut(fraction));
        if (fraction < 1) {
            return true;
        }
        pressTime_ = -1;
        feel_ = releaseFeel;
        scale_.setGrain(grain);
        scale_.setTarget(restingScale());
        return true;
    }
    return scale_.step(seconds, feel_);
}

void CardScale::finish() {
    pressTime_ = -1;
    scale_.jump(restingScale());
}

} // namespace mimkins
