#include "Base/StableSeed.h"
#include "Pet/PetFrame.h"
#include "Presentation/CrewRow.h"
#include "Presentation/SubtaskRows.h"

#include <gmock/gmock.h>

namespace mimkins::test {

namespace {

Subtask task(const std::string& id, bool running) {
    Subtask task;
    task.id = id;
    task.running = running;
    task.description = "Look for " + id;
    task.started = Date{1000};
    task.lastActivity = Date{1090};
    return task;
}

std::vector<Subtask> tasks(int running, int finished) {
    std::vector<Subtask> result;
    for (int index = 0; index < running; ++index) {
        result.push_back(task("r" + std::to_string(index), true));
    }
    for (int index = 0; index < finished; ++index) {
        result.push_back(task("f" + std::to_string(index), false));
    }
    return result;
}

TEST(SubtaskRow, SaysWhatItIsToAScreenReader) {
    const auto done = subtaskRow(task("a", false), {});
    EXPECT_EQ(done.accessibleName(), "Look for a, Done");
    EXPECT_EQ(done.accessibleDescription(), "Took 1m");
    Subtask running = task("b", true);
    running.tool = "Bash";
    running.detail = "make";
    const auto row = subtaskRow(running, ModelTag{"claude-opus-4-5", std::nullopt});
    EXPECT_EQ(row.accessibleName(), "Look for b, Working");
    EXPECT_THAT(row.accessibleDescription(), testing::HasSubstr("make. Since "));
}

TEST(SubtaskRows, ButtonSaysWhatAPressDoes) {
    EXPECT_EQ(finishedHelp(false), "Show finished subtasks");
    EXPECT_EQ(finishedHelp(true), "Hide finished subtasks");
}

TEST(SubtaskRows, SixRunningOnesAllShow) {
    const auto rows = subtaskRows(tasks(6, 0), {});
    EXPECT_EQ(rows.running.size(), 6U);
    EXPECT_EQ(rows.moreRunning, std::nullopt);
    EXPECT_EQ(rows.finishedLabel, std::nullopt);
    EXPECT_EQ(rows.empty, std::nullopt);
}

TEST(SubtaskRows, OfSevenOneIsCounted) {
    const auto rows = subtaskRows(tasks(7, 0), {});
    EXPECT_EQ(rows.running.size(), 6U);
    EXPECT_EQ(rows.moreRunning, "+1 more running");
    EXPECT_EQ(subtaskRows(tasks(9, 0), {}).moreRunning, "+3 more running");
}

TEST(SubtaskRows, OfEightFinishedOnesSixCanBeShown) {
    const auto rows = subtaskRows(tasks(0, 8), {});
    EXPECT_TRUE(rows.running.empty());
    EXPECT_EQ(rows.finishedLabel, "8 finished");
    EXPECT_EQ(rows.finished.size(), 6U);
    EXPECT_EQ(rows.moreRunning, std::nullopt);
    EXPECT_EQ(finishedSymbol(false), Symbol::checkmarkCircle);
    EXPECT_EQ(finishedSymbol(true), Symbol::chevronDown);
}

TEST(SubtaskRows, EmptyListSaysSo) {
    const auto rows = subtaskRows({}, {});
    EXPECT_EQ(rows.empty, "No subtasks right now. Subagents this session starts will show up here.");
}

TEST(SubtaskRow, WaitingComesBeforeRunning) {
    auto waiting = task("a", true);
    waiting.waitingForOK = true;
    waiting.tool = "Bash";
    const auto row = subtaskRow(waiting, {});
    EXPECT_EQ(row.stateWord, "Needs your OK");
    EXPECT_EQ(row.state, SubtaskRow::State::waiting);
    EXPECT_EQ(row.pet.action, PetAction::waving);
    EXPECT_FALSE(row.pet.waitingOnKeeper);
    EXPECT_EQ(subtaskRow(task("a", true), {}).stateWord, "Working");
    EXPECT_EQ(subtaskRow(task("a", false), {}).stateWord, "Done");
    EXPECT_EQ(subtaskRow(task("a", false), {}).pet.action, PetAction::resting);
}

TEST(SubtaskRow, TimeOfAFinishedOneStandsStill) {
    const auto running = subtaskRow(task("a", true), {});
    EXPECT_EQ(running.elapsedText(Date{1030}), "30s");
    EXPECT_EQ(running.elapsedText(Date{1200}), "3m");
    EXPECT_EQ(running.elapsedText(Date{900}), "0s");
    const auto finished = subtaskRow(task("a", false), {});
    EXPECT_EQ(finished.elapsedText(Date{1030}), "1m");
    EXPECT_EQ(finished.elapsedText(Date{9000}), "1m");
}

TEST(SubtaskRow, WordsStayOnOneLine) {
    auto broken = task("a", true);
    broken.description = " Look\nfor \x7Fit ";
    EXPECT_EQ(subtaskRow(broken, {}).description, "Look for  it");
}

ModelTag model(const char* id) {
    return {id, std::nullopt};
}

TEST(SubtaskBadges, WithoutAParentThereIsNone) {
    EXPECT_EQ(subtaskBadges({"claude-opus-4-5", "max"}, std::nullopt), SubtaskBadges{});
}

TEST(SubtaskBadges, WithoutAModelOrEffortThereIsNone) {
    EXPECT_EQ(subtaskBadges({}, model("claude-opus-4-5")), SubtaskBadges{});
}

TEST(SubtaskBadges, SameNameIsPlain) {
    const auto badges = subtaskBadges(model("claude-opus-4-5-20251101"), model("claude-opus-4-5"));
    ASSERT_TRUE(badges.plain);
    EXPECT_FALSE(badges.highlighted);
    EXPECT_EQ(badges.plain->name, std::nullopt);
    EXPECT_FALSE(badges.plain->highlight);
    EXPECT_EQ(badges.plain->symbol, Symbol::note);
}

TEST(SubtaskBadges, AnotherNameIsHighlighted) {
    for (const char* other : {"claude-haiku-4-5", "claude-opus-4-1", "gpt-5-codex"}) {
        const auto badges = subtaskBadges(model(other), model("claude-opus-4-5"));
        EXPECT_FALSE(badges.plain) << other;
        ASSERT_TRUE(badges.highlighted) << other;
        EXPECT_TRUE(badges.highlighted->highlight);
        EXPECT_TRUE(badges.highlighted->name);
        EXPECT_THAT(
            badges.highlighted->toolTip, testing::EndsWith(" (a different model from its main thread)")
        );
    }
    // Case counts: these two are no family and so keep their letters.
    EXPECT_TRUE(subtaskBadges(model("Local"), model("local")).highlighted);
}

TEST(SubtaskBadges, TagWithoutANameIsPlain) {
    EXPECT_TRUE(subtaskBadges(model("<synthetic>"), model("claude-opus-4-5")).plain);
    EXPECT_TRUE(subtaskBadges({std::nullopt, "high"}, model("claude-opus-4-5")).plain);
    EXPECT_TRUE(subtaskBadges(model("claude-opus-4-5"), ModelTag{}).plain);
}

TEST(ModelBadge, ShowsIconNameAndDots) {
    EXPECT_EQ(modelBadge(model("claude-3-5-haiku-latest"), ModelBadgeForm::named).symbol, Symbol::flower);
    EXPECT_EQ(modelBadge(model("claude-sonnet-4"), ModelBadgeForm::named).symbol, Symbol::pencil);
    EXPECT_EQ(modelBadge(model("claude-fable-1"), ModelBadgeForm::named).symbol, Symbol::book);
    const auto foreign = modelBadge({"gpt-5-codex", "extra_high"}, ModelBadgeForm::named);
    EXPECT_EQ(foreign.symbol, Symbol::chip);
    EXPECT_EQ(foreign.name, "gpt-5-codex");
    EXPECT_EQ(foreign.pips, 4);
    EXPECT_EQ(modelBadge(model("gpt"), ModelBadgeForm::named).pips, std::nullopt);
    EXPECT_EQ(modelBadge({"gpt", "odd"}, ModelBadgeForm::named).pips, 0);
    EXPECT_EQ(
        modelBadge(model("123456789012345678901234567890"), ModelBadgeForm::named).name,
        "123456789012345678901234"
    );
}

TEST(ModelBadge, SyntheticModelHasNoName) {
    const auto badge = modelBadge(model("<synthetic>"), ModelBadgeForm::named);
    EXPECT_EQ(badge.name, std::nullopt);
    EXPECT_EQ(badge.symbol, Symbol::chip);
}

std::optional<CrewRow> crewOf(int count, std::uint64_t shuffle = 0) {
    const auto all = tasks(count, 0);
    std::vector<const Subtask*> crew;
    for (const auto& one : all) {
        crew.push_back(&one);
    }
    return crewRow(crew, shuffle);
}

TEST(CrewRow, FourHeadsShowAndTheRestIsCounted) {
    EXPECT_EQ(crewOf(0), std::nullopt);
    EXPECT_EQ(crewOf(4)->heads.size(), 4U);
    EXPECT_EQ(crewOf(4)->more, std::nullopt);
    EXPECT_EQ(crewOf(5)->heads.size(), 4U);
    EXPECT_EQ(crewOf(5)->more, "+1");
}

TEST(CrewRow, ToolTipCountsThemAll) {
    EXPECT_EQ(crewOf(1)->toolTip, "1 subagent working");
    EXPECT_EQ(crewOf(3)->toolTip, "3 subagents working");
    EXPECT_EQ(crewOf(12)->toolTip, "12 subagents working");
}

TEST(CrewRow, SeedsFollowTheShuffle) {
    EXPECT_EQ(crewOf(1)->heads[0].seed, stableSeed("r0"));
    EXPECT_EQ(crewOf(1, 3)->heads[0].seed, stableSeed("r0") ^ (3 * 0x9e3779b97f4a7c15U));
}

TEST(CrewRow, BoostFollowsTheEffort) {
    auto hard = task("a", true);
    hard.model.effort = "max";
    auto ordinary = task("b", true);
    ordinary.model.effort = "high";
    auto high = task("c", true);
    high.model.effort = "xhigh";
    const std::vector<const Subtask*> crew{&hard, &ordinary, &high};
    const auto row = crewRow(crew, 0);
    EXPECT_EQ(row->heads[0].boost, 2);
    EXPECT_EQ(row->heads[1].boost, 0);
    EXPECT_EQ(row->heads[2].boost, 1);
}

TEST(CrewRow, NeighboursBobOutOfPhase) {
    const Date start{animationReference};
    EXPECT_EQ(crewBob(0, start), 0);
    EXPECT_NEAR(crewBob(1, start), std::sin(1.3) * 1.5, 1e-9);
    EXPECT_NEAR(crewBob(2, start + 0.5), std::sin(2.6 + 2.5) * 1.5, 1e-6);
}

} // namespace

} // namespace mimkins::test
