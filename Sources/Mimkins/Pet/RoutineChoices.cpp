#include "Pet/StageChoices.h"

#include <array>
#include <cmath>

namespace mimkins {

namespace {

using enum Routine;

/// What a table of routines has in one of its slots.
struct Slot {
    enum class Time : std::uint8_t { clock, phase };

    Routine routine = lookAroundScene;
    Time time = Time::clock;
    std::optional<bool> manner = {};
};

constexpr auto phase = Slot::Time::phase;
constexpr auto clock = Slot::Time::clock;
constexpr double idleSlot = 6;

constexpr std::array<Slot, 26> idleTable{{
    {lookAroundScene},
    {lookAroundScene},
    {lookAroundScene},
    {stepSideTo, clock, false},
    {stepSideTo, clock, true},
    {stretch, phase},
    {whistle, clock, false},
    {bubbleGum, phase},
    {juggle},
    {sneeze, phase},
    {kickPebble, phase},
    {dance},
    {hello},
    {checkWatch, phase},
    {yoyo},
    {skippingRope},
    {cartwheel, phase},
    {hiccups},
    {ukulele},
    {meditate},
    {hulaHoop},
    {butterfly},
    {balloon},
    {skateboard},
    {peekaboo},
    {popcorn},
}};

constexpr std::array<Slot, 13> yourTurnTable{{
    {holdingEnvelope},
    {holdingEnvelope},
    {readingLetter},
    {hello},
    {lookAroundScene},
    {whistle, clock, false},
    {balloon},
    {ukulele},
    {butterfly},
    {juggle},
    {dance},
    {hulaHoop},
    {stepSideTo, clock, true},
}};

void addSlot(Stage& stage, const Slot& slot, double seconds) {
    Cue cue;
    cue.routine = slot.routine;
    cue.manner = slot.manner;
    if (slot.time == phase) {
        cue.phase = seconds;
    }
    stage.add(cue);
}

void addPeek(Stage& stage, double seconds, double length) {
    Cue cue;
    cue.routine = peekAround;
    cue.phase = seconds;
    cue.length = length;
    stage.add(cue);
}

void addLateYourTurn(Stage& stage, const PetFrame& frame) {
    switch (frame.choose(frame.antics ? 4 : 2, 12, 5).index) {
    case 0:
        stage.add(yawnSitting);
        break;
    case 1:
        stage.add(readingLetter);
        break;
    case 2:
        addLeisure(stage, frame);
        break;
    default:
        stage.add(fishing);
        break;
    }
}

void addForcedTrick(Stage& stage, const PetFrame& frame, int trick) {
    switch (trick) {
    case 100:
        stage.add(hotTub);
        break;
    case 101:
        stage.add(beach);
        break;
    case 102:
        stage.add(boredThenButterfly, std::fmod(frame.t, 9));
        break;
    case 104:
        stage.add(flyingKick, std::fmod(frame.t, 2.2));
        break;
    case 105:
        stage.add(karateChop, std::fmod(frame.t, 3));
        break;
    case 106:
        stage.add(punches);
        break;
    case 109:
        addPeek(stage, std::fmod(frame.t, idleSlot), idleSlot);
        break;
    default:
        stage.add(guruHover);
        break;
    }
}

/// A pet of high effort shows off in every second slot.
bool addEffortTrick(Stage& stage, const PetFrame& frame) {
    if (frame.effort >= 2) {
        if (frame.choose(2, idleSlot, 18).index != 0) {
            return false;
        }
        stage.add(guruHover);
        return true;
    }
    if (frame.effort != 1 || frame.choose(2, idleSlot, 22).index != 0) {
        return false;
    }
    const double seconds = std::fmod(frame.t, idleSlot);
    switch (frame.choose(3, idleSlot, 24).index) {
    case 0:
        stage.add(flyingKick, seconds);
        break;
    case 1:
        stage.add(karateChop, seconds);
        break;
    default:
        stage.add(punches);
        break;
    }
    return true;
}

void addFromIdleTable(Stage& stage, int index, double seconds) {
    constexpr int peekIndex = 26;
    if (index >= 0 && index < peekIndex) {
        addSlot(stage, idleTable[static_cast<std::size_t>(index)], seconds);
    } else if (index == peekIndex) {
        addPeek(stage, seconds, idleSlot);
    } else {
        stage.add(checkWatch, seconds);
    }
}

} // namespace

void addYourTurnRoutine(Stage& stage, const PetFrame& frame) {
    constexpr double celebrates = 6;
    constexpr double late = 600;
    if (frame.elapsed < celebrates) {
        stage.add(celebrate);
        return;
    }
    if (frame.elapsed > late) {
        addLateYourTurn(stage, frame);
        return;
    }
    const int index = frame.choose(frame.antics ? 15 : 4, 5, 2).index;
    if (index < 13) {
        addSlot(stage, yourTurnTable[static_cast<std::size_t>(index)], 0);
    } else if (index == 13) {
        addPeek(stage, std::fmod(frame.t, 5), 5);
    } else {
        stage.add(lookAroundScene);
    }
}

void addWaitingRoutine(Stage& stage, const PetFrame& frame) {
    if (frame.antics && frame.choose(4, 9, 16).index == 0) {
        stage.add(boredThenButterfly, std::fmod(frame.t, 9));
    } else {
        const SlotChoice choice = frame.choose(7, 3.2, 3);
        switch (choice.index) {
        case 0:
        case 1:
            stage.add(bothArmsWave);
            break;
        case 2:
            stage.add(impatient);
            break;
        case 3:
            stage.add(checkWatch, choice.phase + 2.2);
            break;
        case 4:
            stage.add(pace);
            break;
        case 5:
            stage.add(jumpWave);
            break;
        default:
            stage.addManner(stepSideTo, true);
            break;
        }
    }
    Cue call;
    call.routine = bubble;
    call.bubble = Bubble::exclamation;
    stage.add(call);
}

void addIdleRoutine(Stage& stage, const PetFrame& frame, std::uint64_t salt) {
    constexpr int firstPin = 100;
    if (!frame.antics) {
        stage.add(lookAroundScene);
        return;
    }
    if (frame.forceTrick) {
        if (*frame.forceTrick >= firstPin) {
            addForcedTrick(stage, frame, *frame.forceTrick);
        } else {
            addFromIdleTable(stage, *frame.forceTrick, std::fmod(frame.t, idleSlot));
        }
        return;
    }
    if (addEffortTrick(stage, frame)) {
        return;
    }
    const SlotChoice choice = frame.choose(27, idleSlot, salt);
    addFromIdleTable(stage, choice.index, choice.phase);
}

} // namespace mimkins
