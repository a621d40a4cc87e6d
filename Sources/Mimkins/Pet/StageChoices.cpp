#include "Pet/StageChoices.h"

#include <cmath>
#include <initializer_list>

namespace mimkins {

namespace {

using enum Routine;

/// Seconds for which a new session's pet comes down, and after which an idle one may go to rest.
constexpr double landing = 4.5;
constexpr double idleLeisure = 300;

constexpr std::uint64_t variantSalt = 7;

void addVariant(Stage& stage, const PetFrame& frame, std::initializer_list<Routine> variants) {
    const auto count = static_cast<int>(variants.size());
    stage.add(variants.begin()[frame.choose(count, 45, variantSalt).index]);
}

/// One slot of ten seconds in eight opens with a break of 2.8 seconds.
bool addWorkBreak(Stage& stage, const PetFrame& frame) {
    const SlotChoice slot = frame.choose(8, 10, 9);
    if (slot.index != 0 || slot.phase >= 2.8) {
        return false;
    }
    if (frame.effort >= 2) {
        stage.add(guruHover);
    } else if (frame.effort == 1) {
        stage.add(flyingKick, slot.phase * 1.25);
    } else if ((frame.seed & 1) != 0) {
        stage.add(wipeBrow, slot.phase);
    } else {
        stage.addManner(coffee, false);
    }
    return true;
}

void addWork(Stage& stage, const PetFrame& frame, std::initializer_list<Routine> variants) {
    if (!addWorkBreak(stage, frame)) {
        addVariant(stage, frame, variants);
    }
}

void addThinking(Stage& stage, const PetFrame& frame) {
    switch (frame.choose(3, 45, variantSalt).index) {
    case 0:
        stage.add(chin);
        break;
    case 1:
        stage.add(pace);
        stage.add(thoughtDots);
        break;
    default:
        stage.add(lightbulb);
        break;
    }
}

void addIdle(Stage& stage, const PetFrame& frame) {
    if (frame.elapsed < landing) {
        stage.add(parachute, frame.elapsed);
    } else if (frame.elapsed > idleLeisure && frame.antics && frame.choose(3, 20, 15).index == 0) {
        addLeisure(stage, frame);
    } else {
        addIdleRoutine(stage, frame, 1);
    }
}

} // namespace

void addLeisure(Stage& stage, const PetFrame& frame) {
    stage.add(frame.choose(2, 40, 19).index == 0 ? hotTub : beach);
}

void addScene(Stage& stage, const PetFrame& frame, PetAction action) {
    switch (action) {
    case PetAction::typing:
        return addWork(stage, frame, {laptop, pencil});
    case PetAction::hammering:
        return addWork(stage, frame, {hammer, gear, bigButton});
    case PetAction::reading:
        return addWork(stage, frame, {book, scroll});
    case PetAction::searching:
        return addWork(stage, frame, {magnifier, binoculars});
    case PetAction::delegating:
        return addWork(stage, frame, {planes, megaphone});
    case PetAction::thinking:
        return addThinking(stage, frame);
    case PetAction::tidying:
        return addVariant(stage, frame, {broom, vacuum});
    case PetAction::snag:
        return addVariant(stage, frame, {scratchHead, facepalm});
    case PetAction::waving:
        return addWaitingRoutine(stage, frame);
    case PetAction::raisingHand:
        return stage.add(handUp);
    case PetAction::holdingPlan:
        return stage.addManner(planSign, frame.choose(2, 6, 4).index == 1);
    case PetAction::yourTurn:
        return addYourTurnRoutine(stage, frame);
    case PetAction::resting:
        return stage.add(beach, frame.elapsed / 60);
    case PetAction::sleeping:
        return stage.add(frame.choose(2, 12, 6).index == 0 ? sleep : snore);
    case PetAction::idle:
        return addIdle(stage, frame);
    case PetAction::party:
        return stage.add(partyDance);
    case PetAction::presenting:
        return stage.add(presentParcel);
    case PetAction::waitingOut:
        return stage.add(frame.choose(2, 20, 14).index == 0 ? fishing : hourglass);
    case PetAction::supervising:
        return stage.add(supervisor);
    case PetAction::vacuuming:
        return stage.add(vacuum);
    case PetAction::conducting:
        return stage.add(conductor);
    case PetAction::parachuting:
        return stage.add(parachute);
    }
}

} // namespace mimkins
