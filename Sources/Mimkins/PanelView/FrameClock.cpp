#include "PanelView/FrameClock.h"

#include <algorithm>
#include <utility>

namespace mimkins {

namespace {

constexpr int frameMilliseconds = 16;
/// A frame that came late, such as after the machine slept, moves things no further than this.
constexpr double longestStep = 0.1;

} // namespace

FrameClock::FrameClock(std::function<bool(double)> step) : step_(std::move(step)) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(frameMilliseconds);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tick(); });
}

void FrameClock::start() {
    if (!timer_.isActive()) {
        since_.start();
        timer_.start();
    }
}

void FrameClock::stop() {
    timer_.stop();
}

void FrameClock::tick() {
    const double seconds = static_cast<double>(since_.nsecsElapsed()) * 1e-9;
    since_.start();
    if (!step_(std::min(seconds, longestStep))) {
        stop();
    }
}

} // namespace mimkins
