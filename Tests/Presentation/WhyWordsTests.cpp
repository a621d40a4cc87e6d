#include "Presentation/WhyWords.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using namespace mimkins;

namespace {

constexpr Date now{1'795'246'200};

class Why : public testing::Test {
protected:
    Why() {
        hook.id = "s";
        hook.state = "done";
        hook.event = "Stop";
        hook.ts = (now - 60).milliseconds();
        hook.since = hook.ts;
        registered.sessionId = "s";
        registered.status = "idle";
        registered.pid = 7;
        registered.updated = now - 30;
        subject.id = "s";
        subject.inputs.now = now;
    }

    WhyWords words() {
        subject.derivation = isLive(subject.liveness) ? deriveSession(subject.inputs) : Derivation();
        return WhyWords::of(subject);
    }

    StatusRecord hook;
    RegistryEntry registered;
    WhySubject subject;
};

} // namespace

TEST_F(Why, AllSourcesStandInOneOrderEvenWhereNothingIsKnown) {
    std::string names;
    for (const auto& source : words().sources) {
        names += std::string(source.name) + " ";
        EXPECT_EQ(source.says, std::nullopt) << source.name;
        EXPECT_FALSE(source.speaks);
    }
    EXPECT_EQ(
        names, "statusRecord registry desktopClient subtasks repository transcript background approval "
    );
    EXPECT_EQ(words().speaker, "");
    EXPECT_EQ(words().rule, "");
    EXPECT_EQ(words().headline, "s");
    EXPECT_EQ(words().listing, "Not listed: it has neither a status record nor a running client.");
}

TEST_F(Why, EachSourceSpeaksForItself) {
    hook.tool = "Bash";
    hook.detail = "make";
    hook.message = "Ready";
    registered.waitingFor = "permission";
    AppSessionInfo app;
    app.archived = true;
    app.lastFocused = now - 5;
    const ModelTag model{"claude-opus-4-5", "high"};
    const PendingApproval approval{"Bash", "make", now - 3, "task"};
    const BackgroundWork work{1, 2, std::nullopt, {}};
    auto& inputs = subject.inputs;
    inputs.hook = &hook;
    inputs.registry = &registered;
    inputs.app = &app;
    inputs.runningSubtasks = 2;
    inputs.subtasksActive = now - 2;
    inputs.repo = RepoChanges{3, 1, "main", {}};
    subject.repositoryChecked = now - 1;
    inputs.toolPending = true;
    inputs.transcriptModel = &model;
    inputs.background = &work;
    inputs.approval = &approval;
    const auto sources = words().sources;
    ASSERT_EQ(sources.size(), 8U);
    EXPECT_EQ(sources[0].says, "\"done\" · Stop · Bash: make · Ready");
    EXPECT_EQ(sources[0].time, now - 60);
    EXPECT_EQ(sources[1].says, "\"idle\" for permission · process 7");
    EXPECT_EQ(sources[1].time, now - 30);
    EXPECT_EQ(sources[2].says, "archived · you looked at it");
    EXPECT_EQ(sources[2].time, now - 5);
    EXPECT_EQ(sources[3].says, "2 running");
    EXPECT_EQ(sources[3].time, now - 2);
    EXPECT_EQ(sources[4].says, "+3 −1 on main");
    EXPECT_EQ(sources[4].time, now - 1);
    EXPECT_EQ(sources[5].says, "a tool call without a result · Opus 4.5 (claude-opus-4-5), effort high");
    EXPECT_EQ(sources[6].says, "1 command · 2 scheduled");
    EXPECT_EQ(sources[7].says, "Bash: make waits for your OK, from a subtask");
    EXPECT_EQ(sources[7].time, now - 3);
}

TEST_F(Why, ACheckedRepositoryMayHaveNothing) {
    subject.repositoryChecked = now;
    EXPECT_EQ(words().sources[4].says, "nothing of this session to commit");
}

TEST_F(Why, NamesTheSpeakerAndTheReason) {
    subject.inputs.hook = &hook;
    EXPECT_EQ(words().speaker, "The status record speaks: the client registry has no entry.");
    EXPECT_TRUE(words().sources[0].speaks);
    subject.inputs.registry = &registered;
    EXPECT_EQ(words().speaker, "The status record speaks: the client registry agrees with it.");
    registered.status = "busy";
    EXPECT_EQ(
        words().speaker, "The client registry speaks: it disagrees with the status record, and is newer."
    );
    EXPECT_TRUE(words().sources[1].speaks);
    EXPECT_FALSE(words().sources[0].speaks);
    registered.updated = now - 90;
    EXPECT_EQ(words().speaker, "The status record speaks: the client registry disagrees, and isn't newer.");
    registered.updated = now;
    registered.status = "idle";
    hook.state = "waiting";
    subject.inputs.toolPending = true;
    EXPECT_EQ(
        words().speaker, "The status record speaks: the client registry is newer and says \"idle\", but the "
                         "transcript has a tool call without a result."
    );
    subject.inputs.hook = nullptr;
    EXPECT_EQ(words().speaker, "The client registry speaks: there is no status record.");
    EXPECT_EQ(words().rule, "New reply: the client registry says \"idle\".");
}

TEST_F(Why, NamesTheRuleOfAStatusRecord) {
    subject.inputs.hook = &hook;
    EXPECT_EQ(words().rule, "New reply: the status record says \"done\".");
    hook.state = "working";
    hook.event = "PreCompact";
    EXPECT_EQ(words().rule, "Tidying up: the status record says \"working\" with the event \"PreCompact\".");
    hook.state = "waiting";
    hook.tool = "ExitPlanMode";
    EXPECT_EQ(words().rule, "Plan to approve: the status record says \"waiting\" with a plan.");
    hook.tool = "AskUserQuestion";
    EXPECT_EQ(words().rule, "Has a question: the status record says \"waiting\" with a question.");
    hook.state = "working";
    hook.ts = (now - 601).milliseconds();
    EXPECT_EQ(
        words().rule,
        "Maybe stuck: the status record says \"working\", but there was no sign of life for longer than 10m."
    );
}

TEST_F(Why, NamesTheRuleOfAnEndedTurn) {
    subject.inputs.hook = &hook;
    const BackgroundWork work{1, 0, std::nullopt, {}};
    subject.inputs.background = &work;
    EXPECT_EQ(words().rule, "In the background: the turn is over, but commands or scheduled tasks are left.");
    subject.inputs.repo = RepoChanges{3, 1, std::nullopt, {}};
    EXPECT_EQ(words().rule, "Commit ready: the turn is over, and it left uncommitted lines.");
    subject.inputs.runningSubtasks = 1;
    EXPECT_EQ(words().rule, "In the background: the turn is over, but 1 subtask still runs.");
    const PendingApproval approval{"Bash", std::nullopt, now, std::nullopt};
    subject.inputs.approval = &approval;
    EXPECT_EQ(
        words().rule, "Needs your OK: a tool call waits for your OK, which outranks what the speaker says."
    );
}

TEST_F(Why, TellsWhyASessionIsNotListed) {
    subject.inputs.hook = &hook;
    EXPECT_EQ(words().listing, "It is listed.");
    EXPECT_EQ(absenceName(subject.liveness, subject.derivation.absence), std::nullopt);
    AppSessionInfo app;
    app.lastFocused = now;
    subject.inputs.app = &app;
    subject.inputs.rules.showDone = false;
    EXPECT_EQ(words().listing, "Not listed: it is done, and your settings hide sessions that are.");
    EXPECT_EQ(words().rule, "Done: the turn is over, and you have looked at it since.");
    hook.ts = (now - 2000).milliseconds();
    EXPECT_EQ(
        words().listing, "Not listed: there was no sign of life for 33m, and sessions leave after 30m."
    );
    app.archived = true;
    EXPECT_EQ(words().listing, "Not listed: it is archived in the desktop client.");
    EXPECT_EQ(absenceName(subject.liveness, subject.derivation.absence), "archived");
    subject.liveness = Liveness::leftBehind;
    EXPECT_EQ(words().listing, "Not listed: its client has ended, and left the status record behind.");
    EXPECT_EQ(words().speaker, "") << "it isn't derived then";
    subject.liveness = Liveness::agentEnded;
    EXPECT_EQ(words().listing, "Not listed: its agent's process has ended.");
    EXPECT_EQ(absenceName(subject.liveness, subject.derivation.absence), "agentEnded");
}

TEST_F(Why, TextNamesAgesAndBreaksBetweenWords) {
    subject.inputs.hook = &hook;
    hook.ts = (now + 125).milliseconds();
    EXPECT_NE(whyText(words(), now, {}).find("Status record    in 2m  \"done\" · Stop\n"), std::string::npos)
        << whyText(words(), now, {});
    for (std::size_t width = 24; width < 100; ++width) {
        std::istringstream lines(whyText(words(), now, {width, false}));
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(displayWidth(line), width) << line;
        }
    }
    EXPECT_NE(
        whyText(words(), now, {40, false}).find("The status record speaks: the client\nregistry has"),
        std::string::npos
    );
}
