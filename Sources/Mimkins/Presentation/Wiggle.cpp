#include "Presentation/Wiggle.h"

#include <cmath>

namespace mimkins {

namespace {

constexpr double cycle = 2.2;
constexpr double length = 0.5;
constexpr double frame = 1.0 / 30;

double sinceStart(double t) {
    return t - cycle * std::floor(t / cycle);
}

} // namespace

double wiggleOffset(double t) {
    const double since = sinceStart(t);
    return since < length ? 2 * (length - since) * 3 * std::sin(40 * since) : 0;
}

double nextWiggle(double t) {
    const double since = sinceStart(t);
    // Never less than a frame: what is left of a cycle can be too little to move a clock on.
    return since < length ? frame : std::fmax(cycle - since, frame);
}

} // namespace mimkins
