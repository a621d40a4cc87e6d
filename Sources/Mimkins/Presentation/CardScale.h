#pragma once

#include "Presentation/Spring.h"

namespace mimkins {

/// How large a card is shown: a little smaller for a moment when it is pressed, a little larger while the
/// user is pointed at it.
class CardScale {
public:
    static constexpr double pressed = 0.97;
    static constexpr double highlighted = 1.03;

    double value() const { return scale_.value(); }

    bool isMoving() const { return pressTime_ >= 0 || !scale_.atRest(); }

    /// Begins the dip of a press. It goes on by itself.
    void press();
    void setHighlighted(bool on);
    /// Moves on by so many seconds. True if it hasn't come to rest.
    bool step(double seconds);
    /// Comes to rest at once.
    void finish();

private:
    double restingScale() const { return highlighted_ ? highlighted : 1; }

    Spring scale_{1};
    SpringFeel feel_;
    bool highlighted_ = false;
    double pressTime_ = -1; ///< since the dip began; below 0 without one
    double pressFrom_ = 1;
};

} // namespace mimkins
