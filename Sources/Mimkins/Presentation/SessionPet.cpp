#include "Presentation/SessionPet.h"

#include "Base/StableSeed.h"

namespace mimkins {

PetAction petAction(const Session& session) {
    switch (session.mood) {
    case Mood::working:
        return petActionForTool(session.tool, session.detail);
    case Mood::compacting:
        return PetAction::tidying;
    case Mood::snag:
        return PetAction::snag;
    case Mood::stuck:
        return PetAction::sleeping;
    case Mood::idle:
        return PetAction::idle;
    case Mood::needsPermission:
    case Mood::needsInput:
        return PetAction::waving;
    case Mood::question:
        return PetAction::raisingHand;
    case Mood::plan:
        return PetAction::holdingPlan;
    case Mood::yourTurn:
        return PetAction::yourTurn;
    case Mood::done:
        return PetAction::resting;
    case Mood::commitWaiting:
        return PetAction::presenting;
    case Mood::background:
        return session.supervising ? PetAction::supervising : PetAction::waitingOut;
    }
    return PetAction::idle;
}

bool waitsOnKeeper(Mood mood) {
    return wantsAttention(mood);
}

Pet sessionPet(const Session& session) {
    return {
        .action = petAction(session),
        .seed = stableSeed(session.id),
        .since = session.since,
        .effort = session.effortBoost(),
        .waitingOnKeeper = waitsOnKeeper(session.mood),
    };
}

int effortBoost(const ModelTag& model) {
    const int pips = model.pips();
    return pips == 5 ? 2 : pips == 4 ? 1 : 0;
}

Pet subtaskPet(const Subtask& task) {
    PetAction action = PetAction::resting;
    if (task.waitingForOK) {
        action = PetAction::waving;
    } else if (task.running) {
        action = petActionForTool(task.tool, std::nullopt);
    }
    return {
        .action = action,
        .seed = stableSeed(task.id),
        .since = task.started,
        .effort = effortBoost(task.model),
        .waitingOnKeeper = false,
    };
}

PetLook petLook(const PetTheme& theme, const PetMotion& motion) {
    PetLook look;
    look.hue = theme.petHue;
    look.saturation = theme.petSaturation;
    look.brightness = theme.petBrightness;
    look.outline = theme.petOutline;
    look.speed = motion.speed;
    look.antics = motion.antics;
    look.party = motion.party;
    look.shuffle = motion.shuffle;
    return look;
}

} // namespace mimkins
