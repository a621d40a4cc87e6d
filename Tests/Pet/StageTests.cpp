#include "Pet/Stage.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace mimkins::test {

namespace {

using enum Routine;

struct Given {
    PetAction action = PetAction::idle;
    double t = 0;
    std::uint64_t seed = 0;
    double elapsed = 60;
    int effort = 0;
    bool waiting = false;
    bool antics = true;
    std::optional<int> trick = {};
};

PetFrame frameOf(const Given& given) {
    PetFrame frame;
    frame.t = given.t;
    frame.seed = given.seed;
    frame.elapsed = given.elapsed;
    frame.effort = given.effort;
    frame.waitingOnKeeper = given.waiting;
    frame.antics = given.antics;
    frame.forceTrick = given.trick;
    return frame;
}

Stage stageOf(const Given& given) {
    return stage(frameOf(given), given.action);
}

std::vector<Routine> routines(const Given& given) {
    std::vector<Routine> result;
    for (const Cue& cue : stageOf(given)) {
        result.push_back(cue.routine);
    }
    return result;
}

bool holds(const std::vector<Routine>& routines, Routine routine) {
    return std::find(routines.begin(), routines.end(), routine) != routines.end();
}

/// Everything that an action is seen doing over many slots and seeds.
std::set<Routine> repertoire(Given given) {
    std::set<Routine> all;
    for (given.seed = 0; given.seed < 40; ++given.seed) {
        for (given.t = 0; given.t < 2000; given.t += 2.9) {
            for (const Routine routine : routines(given)) {
                all.insert(routine);
            }
        }
    }
    return all;
}

using Set = std::set<Routine>;

TEST(Stage, WorkActionsHaveTheirVariantsAndBreaks) {
    const Set breaks{wipeBrow, coffee};
    const std::map<PetAction, Set> expected{
        {PetAction::typing, {laptop, pencil}},        {PetAction::hammering, {hammer, gear, bigButton}},
        {PetAction::reading, {book, scroll}},         {PetAction::searching, {magnifier, binoculars}},
        {PetAction::delegating, {planes, megaphone}},
    };
    for (const auto& [action, variants] : expected) {
        Set all = variants;
        all.insert(breaks.begin(), breaks.end());
        EXPECT_EQ(repertoire({.action = action}), all) << name(action);
    }
}

TEST(Stage, OtherActionsHaveNoBreak) {
    EXPECT_EQ(repertoire({.action = PetAction::thinking}), (Set{chin, pace, thoughtDots, lightbulb}));
    EXPECT_EQ(repertoire({.action = PetAction::tidying}), (Set{broom, vacuum}));
    EXPECT_EQ(repertoire({.action = PetAction::snag}), (Set{scratchHead, facepalm}));
    EXPECT_EQ(repertoire({.action = PetAction::raisingHand}), (Set{handUp}));
    EXPECT_EQ(repertoire({.action = PetAction::holdingPlan}), (Set{planSign}));
    EXPECT_EQ(repertoire({.action = PetAction::resting}), (Set{beach}));
    EXPECT_EQ(repertoire({.action = PetAction::sleeping}), (Set{sleep, snore}));
    EXPECT_EQ(repertoire({.action = PetAction::party}), (Set{partyDance}));
    EXPECT_EQ(repertoire({.action = PetAction::presenting}), (Set{presentParcel}));
    EXPECT_EQ(repertoire({.action = PetAction::waitingOut}), (Set{fishing, hourglass}));
    EXPECT_EQ(repertoire({.action = PetAction::supervising}), (Set{supervisor}));
    EXPECT_EQ(repertoire({.action = PetAction::vacuuming}), (Set{vacuum}));
    EXPECT_EQ(repertoire({.action = PetAction::conducting}), (Set{conductor}));
    EXPECT_EQ(repertoire({.action = PetAction::parachuting}), (Set{parachute}));
}

TEST(Stage, ThoughtDotsFollowThePacing) {
    bool seen = false;
    for (double t = 0; t < 2000; t += 45) {
        const auto on = routines({.action = PetAction::thinking, .t = t, .seed = 3});
        if (holds(on, pace)) {
            EXPECT_EQ(on, (std::vector{pace, thoughtDots}));
            seen = true;
        }
    }
    EXPECT_TRUE(seen);
}

TEST(Stage, VariantsLastForFortyFiveSeconds) {
    for (std::uint64_t seed = 0; seed < 50; ++seed) {
        const auto first = routines({.action = PetAction::tidying, .t = 90, .seed = seed});
        for (double t = 90; t < 135; t += 0.5) {
            EXPECT_EQ(routines({.action = PetAction::tidying, .t = t, .seed = seed}), first);
        }
    }
}

/// The start of a slot that opens with a break.
double breakSlot(std::uint64_t seed) {
    for (double t = 0;; t += 10) {
        if (frameOf({.t = t, .seed = seed}).choose(8, 10, 9).index == 0) {
            return t;
        }
    }
}

TEST(Stage, ABreakLastsForTwoPointEightSeconds) {
    const double start = breakSlot(2);
    const auto at = [&](double phase, std::uint64_t seed, int effort) {
        return stageOf(
            {.action = PetAction::typing, .t = breakSlot(seed) + phase, .seed = seed, .effort = effort}
        );
    };
    EXPECT_EQ(at(0, 2, 0)[0].routine, coffee);
    EXPECT_EQ(at(0, 2, 0)[0].manner, false);
    EXPECT_EQ(at(2.79, 2, 0)[0].routine, coffee);
    const Routine after = at(2.81, 2, 0)[0].routine;
    EXPECT_TRUE(after == laptop || after == pencil);
    EXPECT_NE(start, 1e9);
    EXPECT_EQ(at(1, 3, 0)[0].routine, wipeBrow);
    EXPECT_NEAR(*at(1, 3, 0)[0].phase, 1, 1e-9);
    EXPECT_EQ(at(1, 3, 1)[1].routine, flyingKick);
    EXPECT_NEAR(*at(1, 3, 1)[1].phase, 1.25, 1e-9);
    EXPECT_EQ(at(1, 3, 2)[1].routine, guruHover);
}

TEST(Stage, OneSlotInEightHasABreak) {
    int breaks = 0;
    for (int slot = 0; slot < 8000; ++slot) {
        breaks += holds(routines({.action = PetAction::typing, .t = slot * 10.0 + 1, .seed = 9}), wipeBrow);
    }
    EXPECT_NEAR(breaks, 1000, 200);
}

TEST(Stage, ANewSessionDropsIn) {
    EXPECT_EQ(routines({.elapsed = 0}), (std::vector{parachute}));
    EXPECT_EQ(*stageOf({.elapsed = 4.4})[0].phase, 4.4);
    EXPECT_EQ(routines({.elapsed = 4.49}), (std::vector{parachute}));
    EXPECT_FALSE(holds(routines({.elapsed = 4.5}), parachute));
    EXPECT_FALSE(stageOf({.action = PetAction::parachuting})[0].phase);
}

TEST(Stage, LeisureBeginsAfterFiveMinutesOfIdling) {
    const Set leisure{hotTub, beach};
    const auto isLeisure = [&](Given given) { return leisure.contains(routines(given)[0]); };
    bool seen = false;
    for (double t = 0; t < 4000; t += 20) {
        EXPECT_FALSE(isLeisure({.t = t, .seed = 4, .elapsed = 300}));
        seen = seen || isLeisure({.t = t, .seed = 4, .elapsed = 300.1});
        EXPECT_FALSE(isLeisure({.t = t, .seed = 4, .elapsed = 1e6, .antics = false}));
    }
    EXPECT_TRUE(seen);
}

TEST(Stage, YourTurnByTime) {
    EXPECT_EQ(repertoire({.action = PetAction::yourTurn, .elapsed = 5.99}), (Set{celebrate}));
    const Set early{holdingEnvelope, readingLetter, hello, lookAroundScene, whistle,    balloon,   ukulele,
                    butterfly,       juggle,        dance, hulaHoop,        stepSideTo, peekAround};
    EXPECT_EQ(repertoire({.action = PetAction::yourTurn, .elapsed = 6}), early);
    EXPECT_EQ(repertoire({.action = PetAction::yourTurn, .elapsed = 600}), early);
    EXPECT_EQ(
        repertoire({.action = PetAction::yourTurn, .elapsed = 600.1}),
        (Set{yawnSitting, readingLetter, hotTub, beach, fishing})
    );
}

TEST(Stage, YourTurnWithoutAntics) {
    EXPECT_EQ(
        repertoire({.action = PetAction::yourTurn, .elapsed = 60, .antics = false}),
        (Set{holdingEnvelope, readingLetter, hello})
    );
    EXPECT_EQ(
        repertoire({.action = PetAction::yourTurn, .elapsed = 601, .antics = false}),
        (Set{yawnSitting, readingLetter})
    );
}

TEST(Stage, WavingCallsWithABubbleAtTheEnd) {
    EXPECT_EQ(
        repertoire({.action = PetAction::waving}),
        (Set{boredThenButterfly, bothArmsWave, impatient, checkWatch, pace, jumpWave, stepSideTo, bubble})
    );
    EXPECT_FALSE(repertoire({.action = PetAction::waving, .antics = false}).contains(boredThenButterfly));
    for (double t = 0; t < 500; t += 1.6) {
        const Stage on = stageOf({.action = PetAction::waving, .t = t, .seed = 8});
        ASSERT_EQ(on.size(), 2U);
        EXPECT_EQ(on[1].routine, bubble);
        EXPECT_EQ(on[1].bubble, Bubble::exclamation);
        if (on[0].routine == checkWatch) {
            EXPECT_GE(*on[0].phase, 2.2);
            EXPECT_LT(*on[0].phase, 5.4 + 1e-9);
        }
        if (on[0].routine == stepSideTo) {
            EXPECT_EQ(on[0].manner, true);
        }
    }
}

TEST(Stage, TheSignWalksInSomeSlots) {
    std::set<bool> manners;
    for (double t = 0; t < 200; t += 6) {
        manners.insert(*stageOf({.action = PetAction::holdingPlan, .t = t})[0].manner);
    }
    EXPECT_EQ(manners.size(), 2U);
}

TEST(LongWait, Thresholds) {
    const auto at = [](double elapsed) {
        return Given{.action = PetAction::waving, .elapsed = elapsed, .waiting = true};
    };
    EXPECT_FALSE(holds(routines(at(899.9)), wallClock));
    EXPECT_TRUE(holds(routines(at(900)), wallClock));
    EXPECT_FALSE(holds(routines(at(1799.9)), cobweb));
    EXPECT_TRUE(holds(routines(at(1800)), cobweb));
    EXPECT_FALSE(holds(routines(at(3599.9)), skeleton));
    EXPECT_EQ(routines(at(3600)), (std::vector{wallClock, skeleton}));
    EXPECT_EQ(routines(at(86399.9)), (std::vector{wallClock, skeleton}));
    EXPECT_EQ(routines(at(86400)), (std::vector{dustPile}));
    EXPECT_EQ(routines(at(1e9)), (std::vector{dustPile}));
}

TEST(LongWait, TheBodyWastesAway) {
    const auto thin = [](double elapsed) {
        return stageOf({.action = PetAction::waving, .elapsed = elapsed, .waiting = true}).thin;
    };
    EXPECT_EQ(thin(899), 0);
    EXPECT_EQ(thin(900), 0);
    EXPECT_DOUBLE_EQ(thin(900 + 1350), 4.5);
    EXPECT_NEAR(thin(3599.999), 9, 1e-4);
}

TEST(LongWait, TheClockShowsMinutes) {
    EXPECT_DOUBLE_EQ(*stageOf({.action = PetAction::waving, .elapsed = 1200, .waiting = true})[0].phase, 20);
    EXPECT_DOUBLE_EQ(*stageOf({.action = PetAction::waving, .elapsed = 7200, .waiting = true})[0].phase, 120);
}

TEST(LongWait, BubblesGoWithTheActionUntilTheSkeleton) {
    const auto bubbleOf = [](PetAction action, double elapsed) -> std::optional<Bubble> {
        for (const Cue& cue : stageOf({.action = action, .elapsed = elapsed, .waiting = true})) {
            if (cue.routine == bubble) {
                return cue.bubble;
            }
        }
        return std::nullopt;
    };
    EXPECT_EQ(bubbleOf(PetAction::raisingHand, 1000), Bubble::question);
    EXPECT_EQ(bubbleOf(PetAction::waving, 1000), Bubble::exclamation);
    EXPECT_EQ(bubbleOf(PetAction::waving, 100), Bubble::exclamation);
    EXPECT_FALSE(bubbleOf(PetAction::holdingPlan, 1000));
    EXPECT_FALSE(bubbleOf(PetAction::presenting, 1000));
    EXPECT_FALSE(bubbleOf(PetAction::waving, 4000));
    EXPECT_FALSE(bubbleOf(PetAction::waving, 1e5));
}

TEST(LongWait, TwoPosesByTurns) {
    Set poses;
    for (double t = 0; t < 400; t += 10) {
        poses.insert(routines({.action = PetAction::waving, .t = t, .elapsed = 1000, .waiting = true})[1]);
    }
    EXPECT_EQ(poses, (Set{waitingWithHourglass, pointAtClock}));
}

TEST(LongWait, NotForThoseWhoWaitOnNobody) {
    for (const double elapsed : {1000.0, 2000.0, 4000.0, 1e5}) {
        const auto on = routines({.action = PetAction::yourTurn, .elapsed = elapsed});
        for (const Routine gag : {wallClock, cobweb, skeleton, dustPile}) {
            EXPECT_FALSE(holds(on, gag)) << elapsed;
        }
    }
}

TEST(LongWait, NotForAParty) {
    for (const double elapsed : {1000.0, 2000.0, 4000.0, 1e5}) {
        EXPECT_EQ(
            routines({.action = PetAction::party, .elapsed = elapsed, .waiting = true}),
            (std::vector{partyDance})
        );
    }
}

TEST(Effort, FramesTheScene) {
    EXPECT_EQ(
        routines({.action = PetAction::conducting, .effort = 1}),
        (std::vector{powerAura, conductor, headband})
    );
    EXPECT_EQ(routines({.action = PetAction::conducting, .effort = 2}), (std::vector{powerAura, conductor}));
    EXPECT_EQ(routines({.action = PetAction::conducting}), (std::vector{conductor}));
    const auto waiting =
        routines({.action = PetAction::presenting, .elapsed = 2000, .effort = 1, .waiting = true});
    EXPECT_EQ(waiting.front(), powerAura);
    EXPECT_EQ(waiting.back(), headband);
}

TEST(Effort, IsNotDrawnOverBonesAndDust) {
    for (const double elapsed : {4000.0, 1e5}) {
        for (const int effort : {1, 2}) {
            const auto on =
                routines({.action = PetAction::waving, .elapsed = elapsed, .effort = effort, .waiting = true}
                );
            EXPECT_FALSE(holds(on, powerAura));
            EXPECT_FALSE(holds(on, headband));
        }
    }
}

TEST(Effort, ShowsOffWhileIdle) {
    const Set high = repertoire({.effort = 1});
    for (const Routine trick : {flyingKick, karateChop, punches}) {
        EXPECT_TRUE(high.contains(trick));
    }
    EXPECT_FALSE(high.contains(guruHover));
    const Set top = repertoire({.effort = 2});
    EXPECT_TRUE(top.contains(guruHover));
    EXPECT_FALSE(top.contains(punches));
    EXPECT_FALSE(repertoire({}).contains(guruHover));
    EXPECT_EQ(repertoire({.effort = 2, .antics = false}), (Set{powerAura, lookAroundScene}));
}

TEST(Idle, ShowsAllOfItsTable) {
    // Three slots of twenty-seven only look around.
    const Set all = repertoire({});
    EXPECT_EQ(all.size(), 24U);
    for (auto index = static_cast<int>(lookAroundScene); index <= static_cast<int>(peekAround); ++index) {
        EXPECT_TRUE(all.contains(static_cast<Routine>(index))) << name(static_cast<Routine>(index));
    }
}

TEST(Idle, OneSlotInNineIsQuiet) {
    int quiet = 0;
    for (int slot = 0; slot < 9000; ++slot) {
        quiet += holds(routines({.t = slot * 6.0, .seed = 12}), lookAroundScene);
    }
    EXPECT_NEAR(quiet, 1000, 200);
}

TEST(Idle, WithoutAnticsOnlyLooksAround) {
    EXPECT_EQ(repertoire({.antics = false}), (Set{lookAroundScene}));
    EXPECT_EQ(repertoire({.antics = false, .trick = 104}), (Set{lookAroundScene}));
}

TEST(Tricks, ArePinned) {
    const std::map<int, Routine> expected{
        {100, hotTub},     {101, beach},     {102, boredThenButterfly}, {103, guruHover}, {104, flyingKick},
        {105, karateChop}, {106, punches},   {107, guruHover},          {108, guruHover}, {109, peekAround},
        {110, guruHover},  {999, guruHover}, {0, lookAroundScene},      {5, stretch},     {8, juggle},
        {26, peekAround},  {27, checkWatch}, {99, checkWatch},
    };
    for (const auto& [trick, routine] : expected) {
        for (const int effort : {0, 1, 2}) {
            const auto on = routines({.t = 100, .effort = effort, .trick = trick});
            EXPECT_EQ(on[effort == 0 ? 0 : 1], routine) << trick;
        }
    }
}

TEST(Tricks, PhasesRunOnTheClock) {
    const auto phase = [](int trick) { return *stageOf({.t = 100, .trick = trick})[0].phase; };
    EXPECT_DOUBLE_EQ(phase(102), std::fmod(100, 9));
    EXPECT_DOUBLE_EQ(phase(104), std::fmod(100, 2.2));
    EXPECT_DOUBLE_EQ(phase(105), std::fmod(100, 3));
    EXPECT_DOUBLE_EQ(phase(109), std::fmod(100, 6));
    EXPECT_DOUBLE_EQ(phase(5), std::fmod(100, 6));
    EXPECT_FALSE(stageOf({.t = 100, .trick = 8})[0].phase);
    EXPECT_FALSE(stageOf({.t = 100, .trick = 101})[0].phase);
    EXPECT_EQ(stageOf({.t = 100, .trick = 26})[0].length, 6);
    EXPECT_EQ(stageOf({.t = 100, .trick = 3})[0].manner, false);
    EXPECT_EQ(stageOf({.t = 100, .trick = 4})[0].manner, true);
}

TEST(Beach, ShowsTheMinutesToThoseWhoRest) {
    EXPECT_DOUBLE_EQ(*stageOf({.action = PetAction::resting, .elapsed = 90})[0].phase, 1.5);
}

TEST(RoutineNames, GoBothWays) {
    std::set<std::string_view> names;
    for (std::size_t index = 0; index < routineCount; ++index) {
        const auto routine = static_cast<Routine>(index);
        EXPECT_EQ(routineNamed(name(routine)), routine);
        names.insert(name(routine));
    }
    EXPECT_EQ(names.size(), routineCount);
    EXPECT_EQ(name(laptop), "laptop");
    EXPECT_EQ(name(headband), "headband");
    EXPECT_FALSE(routineNamed("nothing"));
}

TEST(StageJson, TellsAll) {
    const auto json = nlohmann::json::parse(stageJson(
        frameOf({.action = PetAction::raisingHand, .elapsed = 2000, .effort = 1, .waiting = true}),
        PetAction::raisingHand
    ));
    EXPECT_EQ(json["stage"].size(), 6U);
    EXPECT_EQ(json["stage"][0]["routine"], "powerAura");
    EXPECT_TRUE(json["stage"][0]["phase"].is_null());
    EXPECT_EQ(json["stage"][1]["routine"], "wallClock");
    EXPECT_DOUBLE_EQ(json["stage"][1]["phase"], 2000.0 / 60);
    EXPECT_EQ(
        json["stage"][3],
        (nlohmann::json{
            {"routine", "bubble"}, {"phase", nullptr}, {"text", "?"}, {"color", "pink"}, {"pulse", true}})
    );
    EXPECT_EQ(json["stage"][4]["routine"], "cobweb");
    EXPECT_EQ(json["stage"][5]["routine"], "headband");
    EXPECT_NEAR(json["thin"].get<double>(), (2000 - 900) / 300.0, 1e-12);
    EXPECT_EQ(json["colors"].size(), 7U);
    for (const char* key : {"t", "seed", "blinkOffset", "hue"}) {
        EXPECT_TRUE(json.contains(key)) << key;
    }
}

} // namespace

} // namespace mimkins::test
