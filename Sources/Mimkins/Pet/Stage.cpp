#include "Pet/Stage.h"

#include "Pet/StageChoices.h"

#include <algorithm>
#include <cstdlib>

namespace mimkins {

namespace {

// How long a person has kept a pet waiting, in seconds, when the next gag begins.
constexpr double clockAppears = 900;
constexpr double cobwebAppears = 1800;
constexpr double skeletonAppears = 3600;
constexpr double dustAppears = 86400;

/// The pet wastes away between the clock and the skeleton, by so many units on each side.
constexpr double wastesBy = 9;

void addLongWait(Stage& stage, const PetFrame& frame, PetAction action) {
    stage.thin = std::min((frame.elapsed - clockAppears) / (skeletonAppears - clockAppears), 1.0) * wastesBy;
    stage.add(Routine::wallClock, frame.elapsed / 60);
    const bool points = frame.choose(2, 10, 21).index == 1;
    stage.add(points ? Routine::pointAtClock : Routine::waitingWithHourglass);
    if (action == PetAction::raisingHand) {
        stage.add(Cue{Routine::bubble, {}, {}, {}, Bubble::question});
    } else if (action == PetAction::waving) {
        stage.add(Cue{Routine::bubble, {}, {}, {}, Bubble::exclamation});
    }
    if (frame.elapsed >= cobwebAppears) {
        stage.add(Routine::cobweb);
    }
}

} // namespace

void Stage::add(const Cue& cue) {
    if (count_ == most) {
        std::abort();
    }
    cues_[count_++] = cue;
}

Stage stage(const PetFrame& frame, PetAction action) {
    Stage stage;
    const bool waits = frame.waitingOnKeeper && action != PetAction::party;
    if (waits && frame.elapsed >= dustAppears) {
        stage.add(Routine::dustPile);
        return stage;
    }
    if (waits && frame.elapsed >= skeletonAppears) {
        stage.add(Routine::wallClock, frame.elapsed / 60);
        stage.add(Routine::skeleton);
        return stage;
    }
    if (frame.effort >= 1) {
        stage.add(Routine::powerAura);
    }
    if (waits && frame.elapsed >= clockAppears) {
        addLongWait(stage, frame, action);
    } else {
        addScene(stage, frame, action);
    }
    if (frame.effort == 1) {
        stage.add(Routine::headband);
    }
    return stage;
}

} // namespace mimkins
