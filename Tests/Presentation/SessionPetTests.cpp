#include "Presentation/SessionPet.h"

#include "Base/StableSeed.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <utility>

namespace mimkins::test {

namespace {

Session sessionIn(Mood mood) {
    Session session;
    session.id = "a";
    session.mood = mood;
    session.tool = "Bash";
    session.detail = "git push";
    session.since = Date{500};
    return session;
}

TEST(SessionPet, EveryMoodHasItsAction) {
    const std::array<std::pair<Mood, PetAction>, 13> expected{{
        {Mood::working, PetAction::parachuting},
        {Mood::compacting, PetAction::tidying},
        {Mood::snag, PetAction::snag},
        {Mood::stuck, PetAction::sleeping},
        {Mood::idle, PetAction::idle},
        {Mood::needsPermission, PetAction::waving},
        {Mood::needsInput, PetAction::waving},
        {Mood::question, PetAction::raisingHand},
        {Mood::plan, PetAction::holdingPlan},
        {Mood::yourTurn, PetAction::yourTurn},
        {Mood::done, PetAction::resting},
        {Mood::commitWaiting, PetAction::presenting},
        {Mood::background, PetAction::waitingOut},
    }};
    for (const auto& [mood, action] : expected) {
        EXPECT_EQ(petAction(sessionIn(mood)), action) << caseName(mood);
    }
    Session supervises = sessionIn(Mood::background);
    supervises.supervising = true;
    EXPECT_EQ(petAction(supervises), PetAction::supervising);
}

TEST(SessionPet, OnlyTheHeldUpWaitOnTheirKeeper) {
    const std::set waiting{
        Mood::needsPermission, Mood::needsInput, Mood::question, Mood::plan, Mood::commitWaiting};
    for (const Mood mood : allMoods) {
        EXPECT_EQ(waitsOnKeeper(mood), waiting.contains(mood)) << caseName(mood);
    }
}

TEST(SessionPet, TakesSeedStartAndEffortOfTheSession) {
    Session session = sessionIn(Mood::question);
    session.effort = "max";
    const Pet pet = sessionPet(session);
    EXPECT_EQ(pet.seed, stableSeed("a"));
    EXPECT_EQ(pet.since, Date{500});
    EXPECT_EQ(pet.effort, session.effortBoost());
    EXPECT_TRUE(pet.waitingOnKeeper);
}

TEST(SubtaskPet, WavesWorksOrRests) {
    Subtask task;
    task.id = "t";
    task.started = Date{7};
    task.tool = "Bash";
    task.detail = "git push";
    EXPECT_EQ(subtaskPet(task).action, PetAction::resting);
    task.running = true;
    EXPECT_EQ(subtaskPet(task).action, PetAction::hammering); // the detail doesn't count
    task.waitingForOK = true;
    EXPECT_EQ(subtaskPet(task).action, PetAction::waving);
    EXPECT_FALSE(subtaskPet(task).waitingOnKeeper);
    EXPECT_EQ(subtaskPet(task).since, Date{7});
    EXPECT_EQ(subtaskPet(task).seed, stableSeed("t"));
}

TEST(SubtaskPet, EffortFollowsThePips) {
    Subtask task;
    std::set<int> seen;
    for (const char* effort : {"low", "medium", "high", "xhigh", "max"}) {
        task.model.effort = effort;
        const int pips = task.model.pips();
        EXPECT_EQ(subtaskPet(task).effort, pips == 5 ? 2 : pips == 4 ? 1 : 0) << effort;
        seen.insert(subtaskPet(task).effort);
    }
    EXPECT_EQ(seen, (std::set{0, 1, 2}));
}

TEST(PetLookOf, MixesThemeAndMotion) {
    const PetLook look =
        petLook(PetTheme::named("terminal"), {.speed = 0.6, .antics = false, .party = true, .shuffle = 9});
    EXPECT_EQ(look.hue, 0.36);
    EXPECT_EQ(look.saturation, 0.75);
    EXPECT_EQ(look.brightness, 0.9);
    EXPECT_FALSE(look.outline);
    EXPECT_EQ(look.speed, 0.6);
    EXPECT_FALSE(look.antics);
    EXPECT_TRUE(look.party);
    EXPECT_EQ(look.shuffle, 9U);
    EXPECT_FALSE(look.forceTrick);
    EXPECT_EQ(petLook(PetTheme::named("paper"), {}).outline, (Color{0.15, 0.15, 0.2}));
}

} // namespace

} // namespace mimkins::test
