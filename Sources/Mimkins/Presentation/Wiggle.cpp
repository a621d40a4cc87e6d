#include "Presentation/Wiggle.h"

#include <cmath>

namespace mimkins {

double wiggleOffset(double t) {
    constexpr double cycle = 2.2;
    constexpr double length = 0.5;
    const double since = t - cycle * std::floor(t / cycle);
    return since < length ? 2 * (length - since) * 3 * std::sin(40 * since) : 0;
}

} // namespace mimkins
