#include "Session/Derivation.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>

using namespace mimkins;

namespace {

constexpr Date noon{1'795'262'400.0}; // 21 November 2026, 12:00:00 UTC

StatusRecord hookAt(Date date, const std::string& state) {
    StatusRecord record;
    record.id = "s";
    record.state = state;
    record.event = "PreToolUse";
    record.ts = date.milliseconds();
    record.since = date.milliseconds();
    return record;
}

RegistryEntry registryAt(Date date, const std::string& status) {
    RegistryEntry entry;
    entry.sessionId = "s";
    entry.status = status;
    entry.updated = date;
    entry.pid = 7;
    return entry;
}

SessionInputs inputsAt(Date now) {
    SessionInputs inputs;
    inputs.now = now;
    return inputs;
}

} // namespace

struct HookCase {
    const char* state;
    const char* event;
    const char* tool;
    const char* notification;
    double silence;
    Mood mood;
};

class MoodFromHook : public testing::TestWithParam<HookCase> {};

TEST_P(MoodFromHook, FollowsTheTable) {
    const auto& row = GetParam();
    StatusRecord hook = hookAt(noon, row.state);
    hook.event = row.event;
    if (row.tool != nullptr) {
        hook.tool = row.tool;
    }
    if (row.notification != nullptr) {
        hook.notification = row.notification;
    }
    EXPECT_EQ(moodFromHook(hook, noon, 600, noon + row.silence), row.mood);
}

INSTANTIATE_TEST_SUITE_P(
    Table, MoodFromHook,
    testing::Values(
        HookCase{"working", "PreToolUse", nullptr, nullptr, 600, Mood::working},
        HookCase{"working", "PreToolUse", nullptr, nullptr, 600.001, Mood::stuck},
        HookCase{"working", "PreCompact", nullptr, nullptr, 1, Mood::compacting},
        HookCase{"working", "PreCompact", nullptr, nullptr, 601, Mood::stuck},
        HookCase{"working", "PostToolUseFailure", nullptr, nullptr, 1, Mood::snag},
        HookCase{"waiting", "PermissionRequest", "AskUserQuestion", nullptr, 9999, Mood::question},
        HookCase{"waiting", "Notification", "Bash", "elicitation_dialog", 1, Mood::question},
        HookCase{"waiting", "PermissionRequest", "ExitPlanMode", nullptr, 1, Mood::plan},
        HookCase{"waiting", "PermissionRequest", "ExitPlanMode", "elicitation_dialog", 1, Mood::question},
        HookCase{"waiting", "PermissionRequest", "Bash", nullptr, 1, Mood::needsPermission},
        HookCase{"waiting", "Notification", nullptr, nullptr, 1, Mood::needsPermission},
        HookCase{"done", "Stop", nullptr, nullptr, 1, Mood::yourTurn},
        HookCase{"started", "SessionStart", nullptr, nullptr, 1, Mood::idle},
        HookCase{"", "", nullptr, nullptr, 1, Mood::idle}
    )
);

TEST(Derivation, NeedsASource) {
    const AppSessionInfo app;
    auto inputs = inputsAt(noon);
    inputs.app = &app;
    const auto result = deriveSession(inputs);
    EXPECT_FALSE(result.session);
    EXPECT_EQ(result.absence, Absence::noSource);
}

TEST(Derivation, ArchivedNeverShows) {
    AppSessionInfo app;
    app.archived = true;
    const auto hook = hookAt(noon, "waiting");
    auto inputs = inputsAt(noon);
    inputs.app = &app;
    inputs.hook = &hook;
    EXPECT_EQ(deriveSession(inputs).absence, Absence::archived);
    EXPECT_EQ(deriveSession(inputs).mood, std::nullopt) << "nothing else is looked at";
}

TEST(Derivation, SilentButBusySessionIsStuckAndStays) {
    const auto hook = hookAt(noon - 660, "working");
    const auto registry = registryAt(noon - 1, "busy");
    auto inputs = inputsAt(noon);
    inputs.hook = &hook;
    inputs.registry = &registry;
    const auto result = deriveSession(inputs);
    ASSERT_TRUE(result.session);
    EXPECT_EQ(result.session->mood, Mood::stuck);
    EXPECT_EQ(result.speaker, Speaker::hook);
    EXPECT_EQ(result.speakerReason, SpeakerReason::sourcesAgree);
    EXPECT_EQ(result.moodRule, MoodRule::silentTooLong);

    inputs.now = noon + 86'400;
    EXPECT_TRUE(deriveSession(inputs).session) << "the registry says busy, so it can't go out of play";
}

TEST(Derivation, RunningSubtaskKeepsASilentSessionFromBeingStuck) {
    const auto hook = hookAt(noon - 660, "working");
    auto inputs = inputsAt(noon);
    inputs.hook = &hook;
    inputs.subtasksActive = noon - 5;
    inputs.runningSubtasks = 1;
    const auto session = deriveSession(inputs).session;
    ASSERT_TRUE(session);
    EXPECT_EQ(session->mood, Mood::working);
    EXPECT_EQ(session->lastActivity, noon - 5);
}

TEST(Derivation, WaitingHookAgainstNewerIdleRegistry) {
    const auto hook = hookAt(noon - 10, "waiting");
    const auto registry = registryAt(noon - 1, "idle");
    auto inputs = inputsAt(noon);
    inputs.hook = &hook;
    inputs.registry = &registry;
    EXPECT_EQ(deriveSession(inputs).session->mood, Mood::yourTurn);
    EXPECT_EQ(deriveSession(inputs).session->since, noon - 1);

    inputs.toolPending = true;
    const auto held = deriveSession(inputs);
    EXPECT_EQ(held.session->mood, Mood::needsPermission);
    EXPECT_EQ(held.speakerReason, SpeakerReason::toolCallIsOpen);
    EXPECT_EQ(held.session->since, noon - 10);
}

TEST(Derivation, WaitingHookAgainstNewerBusyRegistry) {
    auto hook = hookAt(noon - 10, "waiting");
    hook.tool = "Bash";
    const auto registry = registryAt(noon - 1, "busy");
    auto inputs = inputsAt(noon);
    inputs.hook = &hook;
    inputs.registry = &registry;
    inputs.toolPending = true;
    const auto result = deriveSession(inputs);
    EXPECT_EQ(result.session->mood, Mood::working);
    EXPECT_EQ(result.session->tool, std::nullopt) << "the hook's tool is old news when the registry speaks";
    EXPECT_EQ(result.session->activity(), "Thinking");
}

TEST(Derivation, HookSpeaksWhenNotOlder) {
    const auto hook = hookAt(noon, "done");
    const auto registry = registryAt(noon, "busy");
    auto inputs = inputsAt(noon);
    inputs.hook = &hook;
    inputs.registry = &registry;
    EXPECT_EQ(deriveSession(inputs).speakerReason, SpeakerReason::hookIsNewer);
    EXPECT_EQ(deriveSession(inputs).session->mood, Mood::yourTurn);
}

TEST(Derivation, FocusStampHasOneSecondOfSlack) {
    const auto hook = hookAt(noon, "done");
    AppSessionInfo app;
    app.lastFocused = noon - 0.5;
    auto inputs = inputsAt(noon + 1);
    inputs.hook = &hook;
    inputs.app = &app;
    EXPECT_EQ(deriveSession(inputs).session->mood, Mood::done);
    EXPECT_EQ(deriveSession(inputs).moodRule, MoodRule::focusedSince);

    app.lastFocused = noon - 1;
    EXPECT_EQ(deriveSession(inputs).session->mood, Mood::done);
    app.lastFocused = noon - 1.01;
    EXPECT_EQ(deriveSession(inputs).session->mood, Mood::yourTurn);
}

TEST(Derivation, NewReplyStaysUntilOutOfPlay) {
    const auto hook = hookAt(noon, "done");
    auto inputs = inputsAt(noon + 1800);
    inputs.hook = &hook;
    EXPECT_TRUE(deriveSession(inputs).session);
    inputs.now = noon + 1800.5;
    const auto left = deriveSession(inputs);
    EXPECT_EQ(left.absence, Absence::outOfPlay);
    EXPECT_EQ(left.mood, Mood::yourTurn) << "it is known what was taken off the list";
    EXPECT_EQ(left.lastActivity, noon);
}

class TurnEnd : public testing::Test {
protected:
    TurnEnd() : hook(hookAt(noon, "done")), inputs(inputsAt(noon)) { inputs.hook = &hook; }

    StatusRecord hook;
    RepoChanges repo{3, 1, "main", {"a.txt"}};
    BackgroundWork work{1, 0, std::nullopt, {}};
    SessionInputs inputs;
};

TEST_F(TurnEnd, SubtasksOutrankTheCommit) {
    inputs.runningSubtasks = 2;
    inputs.subtasksActive = noon;
    inputs.repo = repo;
    inputs.background = &work;
    const auto result = deriveSession(inputs);
    EXPECT_EQ(result.session->mood, Mood::background);
    EXPECT_EQ(result.session->message, "2 subtasks running · 1 command running");
    EXPECT_TRUE(result.session->supervising);
    EXPECT_EQ(result.moodRule, MoodRule::subtasksRunning);
}

TEST_F(TurnEnd, OneSubtaskAlone) {
    inputs.runningSubtasks = 1;
    EXPECT_EQ(deriveSession(inputs).session->message, "1 subtask running");
    EXPECT_EQ(deriveSession(inputs).session->mood, Mood::background);
}

TEST_F(TurnEnd, UncommittedLinesOutrankBackgroundWork) {
    inputs.repo = repo;
    inputs.background = &work;
    const auto session = *deriveSession(inputs).session;
    EXPECT_EQ(session.mood, Mood::commitWaiting);
    EXPECT_EQ(session.message, "+3 −1 on main");
    EXPECT_EQ(session.activity(), "+3 −1 on main");
    EXPECT_FALSE(session.supervising);
}

TEST_F(TurnEnd, NoBranchNoWord) {
    repo.branch.reset();
    inputs.repo = repo;
    EXPECT_EQ(deriveSession(inputs).session->message, "+3 −1");
}

TEST_F(TurnEnd, NothingCountedMeansNothingToCommit) {
    repo.added = 0;
    repo.removed = 0;
    inputs.repo = repo;
    EXPECT_EQ(deriveSession(inputs).session->mood, Mood::yourTurn);
}

TEST_F(TurnEnd, EmptyBackgroundRecordIsIgnored) {
    work.commands = 0;
    inputs.background = &work;
    EXPECT_EQ(deriveSession(inputs).session->mood, Mood::yourTurn);
}

TEST_F(TurnEnd, SeveralCommandsAndASchedule) {
    work.commands = 2;
    work.scheduled = 1;
    inputs.background = &work;
    EXPECT_EQ(deriveSession(inputs).session->message, "2 commands running · 1 scheduled");
    EXPECT_EQ(deriveSession(inputs).moodRule, MoodRule::workInBackground);
}

TEST_F(TurnEnd, BackgroundWorkNeverLeavesByAge) {
    inputs.background = &work;
    inputs.now = noon + 1e7;
    EXPECT_TRUE(deriveSession(inputs).session);
}

TEST_F(TurnEnd, ApprovalInASubtask) {
    const PendingApproval approval{"Bash", "rm x", noon - 20, "a1"};
    hook.message = "said";
    inputs.runningSubtasks = 1;
    inputs.approval = &approval;
    const auto session = *deriveSession(inputs).session;
    EXPECT_EQ(session.mood, Mood::needsPermission);
    EXPECT_EQ(session.tool, "Subtask Bash");
    EXPECT_EQ(session.detail, "rm x");
    EXPECT_EQ(session.since, noon - 20);
    EXPECT_EQ(session.message, std::nullopt);
    EXPECT_EQ(session.activity(), "Subtask Bash: rm x");
    EXPECT_FALSE(session.supervising);
}

TEST_F(TurnEnd, DoneIsHiddenOnRequestAndNewReplyIsNot) {
    inputs.rules.showDone = false;
    EXPECT_TRUE(deriveSession(inputs).session);
    AppSessionInfo app;
    app.lastFocused = noon;
    inputs.app = &app;
    EXPECT_EQ(deriveSession(inputs).absence, Absence::doneHidden);
}

TEST(Derivation, ApprovalLeavesAWaitingMoodAlone) {
    auto hook = hookAt(noon, "waiting");
    hook.tool = "AskUserQuestion";
    hook.message = "Which colour?";
    const PendingApproval approval{"Bash", std::nullopt, noon - 20, std::nullopt};
    auto inputs = inputsAt(noon);
    inputs.hook = &hook;
    inputs.approval = &approval;
    const auto session = *deriveSession(inputs).session;
    EXPECT_EQ(session.mood, Mood::question);
    EXPECT_EQ(session.since, noon);
    EXPECT_EQ(session.message, "Which colour?");
}

TEST(Derivation, RegistryAlone) {
    auto registry = registryAt(noon, "waiting");
    registry.waitingFor = "permission";
    registry.cwd = "/home/kim/shop";
    registry.name = "";
    auto inputs = inputsAt(noon + 99'999);
    inputs.registry = &registry;
    const auto session = *deriveSession(inputs).session;
    EXPECT_EQ(session.mood, Mood::needsInput);
    EXPECT_EQ(session.message, "permission");
    EXPECT_EQ(session.activity(), "permission");
    EXPECT_EQ(session.project, "shop");
    EXPECT_EQ(session.folder, "/home/kim/shop");
    EXPECT_EQ(session.title, std::nullopt);

    registry.status = "shelled";
    inputs.now = noon;
    EXPECT_EQ(deriveSession(inputs).session->mood, Mood::yourTurn) << "an unknown status reads as idle";
}

TEST(Derivation, PlacesAndNames) {
    auto hook = hookAt(noon, "working");
    hook.cwd = "/hook/place";
    hook.title = "From the hook";
    auto inputs = inputsAt(noon);
    inputs.hook = &hook;
    EXPECT_EQ(deriveSession(inputs).session->project, "?");
    hook.project = "place";
    EXPECT_EQ(deriveSession(inputs).session->project, "place");
    EXPECT_EQ(deriveSession(inputs).session->folder, "/hook/place");
    EXPECT_EQ(deriveSession(inputs).session->title, "From the hook");

    auto registry = registryAt(noon, "busy");
    registry.localId = "local_registry";
    registry.name = "From the registry";
    AppSessionInfo app;
    app.localId = "local_app";
    app.title = "";
    inputs.registry = &registry;
    inputs.app = &app;
    EXPECT_EQ(deriveSession(inputs).session->title, "From the registry") << "an empty title doesn't count";
    EXPECT_EQ(deriveSession(inputs).session->localId, "local_registry");
    registry.localId.reset();
    EXPECT_EQ(deriveSession(inputs).session->localId, "local_app");
}

TEST(Derivation, ModelAndEffortHaveDifferentChains) {
    auto hook = hookAt(noon, "working");
    hook.model = "hook-model";
    hook.effort = "hook-effort";
    const ModelTag transcript{"transcript-model", "transcript-effort"};
    auto inputs = inputsAt(noon);
    inputs.hook = &hook;
    inputs.transcriptModel = &transcript;
    EXPECT_EQ(deriveSession(inputs).session->model, "transcript-model");
    EXPECT_EQ(deriveSession(inputs).session->effort, "hook-effort");
    AppSessionInfo app;
    app.model = "app-model";
    app.effort = "app-effort";
    inputs.app = &app;
    EXPECT_EQ(deriveSession(inputs).session->model, "app-model");
    EXPECT_EQ(deriveSession(inputs).session->effort, "app-effort");
}

namespace {

template <typename Value>
rc::Gen<std::optional<Value>> maybe(rc::Gen<Value> value) {
    return rc::gen::mapcat(rc::gen::arbitrary<bool>(), [value](bool present) {
        return present
                   ? rc::gen::map(value, [](Value found) { return std::optional<Value>(std::move(found)); })
                   : rc::gen::just(std::optional<Value>());
    });
}

StatusRecord anyHook() {
    StatusRecord hook = hookAt(noon + *rc::gen::inRange(-5000, 5000), "");
    hook.state = *rc::gen::element<std::string>("working", "waiting", "done", "other");
    hook.event = *rc::gen::element<std::string>("PreToolUse", "PreCompact", "PostToolUseFailure", "Stop");
    hook.tool = *maybe(rc::gen::element<std::string>("Bash", "AskUserQuestion", "ExitPlanMode"));
    hook.agent = *maybe(rc::gen::element<std::string>("other"));
    return hook;
}

} // namespace

TEST(Derivation, IsAPureFunctionWhoseResultsObeyTheRules) {
    EXPECT_TRUE(rc::check([] {
        const auto hook = anyHook();
        auto registry = registryAt(noon + *rc::gen::inRange(-5000, 5000), "");
        registry.status = *rc::gen::element<std::string>("busy", "waiting", "idle", "shelled");
        const RepoChanges repo{*rc::gen::inRange(0, 3), *rc::gen::inRange(0, 3), std::nullopt, {}};
        const PendingApproval approval{"Bash", std::nullopt, noon, std::nullopt};
        auto inputs = inputsAt(noon);
        inputs.hook = *rc::gen::arbitrary<bool>() ? &hook : nullptr;
        inputs.registry = *rc::gen::arbitrary<bool>() ? &registry : nullptr;
        inputs.repo = *rc::gen::arbitrary<bool>() ? std::optional(repo) : std::nullopt;
        inputs.approval = *rc::gen::arbitrary<bool>() ? &approval : nullptr;
        inputs.runningSubtasks = *rc::gen::inRange(0, 3);
        inputs.toolPending = *rc::gen::arbitrary<bool>();
        const auto first = deriveSession(inputs);
        const auto second = deriveSession(inputs);
        RC_ASSERT(first.session == second.session);
        if (!first.session) {
            RC_ASSERT(first.absence != Absence::listed);
            return;
        }
        const auto& session = *first.session;
        if (inputs.approval != nullptr) {
            RC_ASSERT(waitsOnUser(session.mood));
        }
        RC_ASSERT(!session.supervising || (inputs.runningSubtasks > 0 && session.mood == Mood::background));
        RC_ASSERT(session.mood != Mood::commitWaiting || repo.added + repo.removed > 0);
    }));
}
