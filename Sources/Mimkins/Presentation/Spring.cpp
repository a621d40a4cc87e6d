#include "Presentation/Spring.h"

#include <cmath>
#include <numbers>

namespace mimkins {

void Spring::jump(double value) {
    value_ = value;
    target_ = value;
    velocity_ = 0;
}

bool Spring::step(double seconds, SpringFeel feel) {
    if (atRest()) {
        return false;
    }
    const double natural = 2 * std::numbers::pi / feel.response;
    const double decay = feel.damping * natural;
    const double swing = natural * std::sqrt(1 - feel.damping * feel.damping);
    const double offset = value_ - target_;
    const double lead = (velocity_ + decay * offset) / swing;
    const double fading = std::exp(-decay * seconds);
    const double cosine = std::cos(swing * seconds);
    const double sine = std::sin(swing * seconds);
    const double left = fading * (offset * cosine + lead * sine);
    velocity_ = fading * ((lead * swing - decay * offset) * cosine - (offset * swing + decay * lead) * sine);
    value_ = target_ + left;
    if (std::abs(left) < grain_ && std::abs(velocity_) < grain_ * natural) {
        jump(target_);
        return false;
    }
    return true;
}

} // namespace mimkins
