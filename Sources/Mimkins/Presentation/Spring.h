#pragma once

namespace mimkins {

/// How a spring moves.
struct SpringFeel {
    double response = 0.5; ///< seconds of one swing without damping
    double damping = 0.8;  ///< fraction of what stops all swinging; above 0, at most 1
};

/// A value on a damped spring. It moves only when stepped, by the exact solution, so that steps of any length
/// lead to the same place. A new target keeps the velocity: an interrupted movement goes on from where it is.
class Spring {
public:
    Spring() = default;

    explicit Spring(double value) : value_(value), target_(value) {}

    double value() const { return value_; }

    double target() const { return target_; }

    double velocity() const { return velocity_; }

    void setTarget(double target) { target_ = target; }

    /// Puts the value there at once, at rest.
    void jump(double value);

    /// Moves on by so many seconds. True if it hasn't come to rest.
    bool step(double seconds, SpringFeel feel = {});

    /// True if it is at its target. `grain` is the difference that nobody sees.
    bool atRest() const { return value_ == target_ && velocity_ == 0; }

    /// The difference to the target that counts as none, in the value's own unit.
    void setGrain(double grain) { grain_ = grain; }

private:
    double value_ = 0;
    double target_ = 0;
    double velocity_ = 0;
    double grain_ = 0.2;
};

} // namespace mimkins
