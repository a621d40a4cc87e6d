#pragma once

#include "Base/Handle.h"
#include "Demo/Schedule.h"
#include "DemoStage.h"
#include "Platform/RunLoop.h"

#include <cstddef>
#include <deque>

namespace mimkins {

/// Plays the days of a crew on a stage, as the loop's time goes by. Where the machine can't keep up, the days
/// go by more slowly, and nothing is left out.
class DemoPlayer {
public:
    /// `loop` and `stage` outlive the player.
    DemoPlayer(RunLoop& loop, DemoStage& stage, const demo::Schedule& schedule);

    /// Begins to play. What a step throws comes out of the loop's run.
    void start();

    const demo::Schedule& schedule() const { return schedule_; }

    /// Seconds of the day that have gone by since the first arrival.
    double position() const { return position_ * schedule_.speed; }

    /// Steps played so far.
    std::size_t steps() const { return steps_; }

private:
    void tick();
    void advance();

    RunLoop& loop_;
    DemoStage& stage_;
    const demo::Schedule schedule_;
    std::deque<demo::Happening> due_;
    Date advanced_;       ///< when `position_` was last moved on
    double position_ = 0; ///< real seconds played
    std::size_t steps_ = 0;
    Handle timer_;
};

} // namespace mimkins
