#include "Presentation/CardMenu.h"
#include "Presentation/CardRow.h"

#include <gmock/gmock.h>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Session session() {
    Session session;
    session.id = "one";
    session.mood = Mood::working;
    session.project = "shop";
    return session;
}

Subtask task(const std::string& id, bool running) {
    Subtask task;
    task.id = id;
    task.running = running;
    return task;
}

TEST(CardBadges, AnAgentsNameStandsInUpperCase) {
    auto foreign = session();
    foreign.agent = "codex\n";
    EXPECT_EQ(cardRow(foreign, {}).agent, "CODEX");
    EXPECT_EQ(cardRow(session(), {}).agent, std::nullopt);
    EXPECT_STREQ(agentToolTip, "Connected via mimkin");
}

TEST(CardBadges, HighEffortHasABadge) {
    auto hard = session();
    EXPECT_EQ(cardRow(hard, {}).effort, std::nullopt);
    hard.effort = "high";
    EXPECT_EQ(cardRow(hard, {}).effort, std::nullopt);
    hard.effort = "xhigh";
    EXPECT_EQ(cardRow(hard, {}).effort->word, "XHIGH");
    hard.effort = "ultra";
    EXPECT_EQ(cardRow(hard, {}).effort->word, "MAX");
}

TEST(CardBadges, EffortBadgeSaysWhichEffort) {
    const auto top = effortBadge(2);
    EXPECT_EQ(top.symbol, Symbol::bolt);
    EXPECT_EQ(top.toolTip, "Running at max effort");
    EXPECT_EQ(top.gradient, (Gradient{Color::named(NamedColor::yellow), Color::named(NamedColor::orange)}));
    for (const int boost : {1, 0, 3}) {
        const auto high = effortBadge(boost);
        EXPECT_EQ(high.symbol, Symbol::flame);
        EXPECT_EQ(high.word, "XHIGH");
        EXPECT_EQ(high.toolTip, "Running at extra high effort");
        EXPECT_EQ(high.gradient, (Gradient{{1, 0.55, 0.4}, {0.95, 0.3, 0.35}}));
    }
}

TEST(CardBadges, ModelShowsIfEitherModelOrEffortIsKnown) {
    auto known = session();
    EXPECT_EQ(cardRow(known, {}).model, std::nullopt);
    known.effort = "medium";
    const auto byEffort = cardRow(known, {}).model;
    ASSERT_TRUE(byEffort);
    EXPECT_EQ(byEffort->symbol, Symbol::chip);
    EXPECT_EQ(byEffort->name, std::nullopt);
    EXPECT_EQ(byEffort->pips, 2);
    known.model = "claude-opus-4-5-20251101[1m]";
    const auto both = cardRow(known, {}).model;
    EXPECT_EQ(both->name, "Opus 4.5");
    EXPECT_FALSE(both->highlight);
    EXPECT_EQ(both->toolTip, "Opus 4.5 (claude-opus-4-5-20251101[1m]), effort medium");
    EXPECT_EQ(cardRow(known, {.modelBadges = false}).model, std::nullopt);
}

TEST(CardSubtasks, PillCountsTheRunningOnesWhateverTheCrewSettingSays) {
    const std::vector tasks{task("a", true), task("b", true), task("c", false)};
    const auto row = cardRow(session(), {.crewHeads = false}, {tasks});
    EXPECT_EQ(row.pill->count, "2");
    EXPECT_FALSE(row.pill->on);
    EXPECT_EQ(row.pill->symbol, Symbol::stack);
    EXPECT_EQ(row.pill->toolTip, "Show subtasks");
    EXPECT_EQ(row.crew, std::nullopt);
    EXPECT_EQ(row.subtasks, std::nullopt);
    EXPECT_EQ(cardRow(session(), {}, {tasks}).crew->heads.size(), 2U);
}

TEST(CardSubtasks, PillIsOnWhileTheListIsOpen) {
    const std::vector tasks{task("a", true)};
    const auto pill = cardRow(session(), {}, {tasks, true}).pill;
    EXPECT_TRUE(pill->on);
    EXPECT_EQ(pill->symbol, Symbol::chevronUp);
    EXPECT_EQ(pill->count, "1");
    EXPECT_EQ(pill->toolTip, "Hide subtasks");
}

TEST(CardSubtasks, PillStaysWhileAnEmptyListIsOpen) {
    const auto row = cardRow(session(), {}, {{}, true});
    EXPECT_EQ(row.pill->count, std::nullopt);
    EXPECT_TRUE(row.pill->on);
    EXPECT_EQ(row.subtasks->empty, "No subtasks right now. Subagents this session starts will show up here.");
    EXPECT_EQ(cardRow(session(), {}).pill, std::nullopt);
}

TEST(CardSubtasks, FinishedOnesAloneShowNoPill) {
    const std::vector tasks{task("a", false)};
    EXPECT_EQ(cardRow(session(), {}, {tasks}).pill, std::nullopt);
    EXPECT_TRUE(subtasksPill(0, true)->on);
}

TEST(CardSubtasks, WithoutModelBadgesNoRowHasOne) {
    std::vector tasks{task("a", true)};
    tasks[0].model.model = "claude-haiku-4-5";
    auto known = session();
    known.model = "claude-opus-4-5";
    EXPECT_TRUE(cardRow(known, {}, {tasks, true}).subtasks->running[0].badges.highlighted);
    const auto rows = cardRow(known, {.modelBadges = false}, {tasks, true}).subtasks;
    EXPECT_EQ(rows->running[0].badges, SubtaskBadges{});
}

TEST(CardSubtasks, ScreenReadersHearOfBadgesAndCrew) {
    const std::vector tasks{task("a", true)};
    auto busy = session();
    busy.title = "Fix it";
    busy.agent = "codex";
    busy.effort = "max";
    const auto words = cardRow(busy, {}, {tasks}).accessibleDescription;
    EXPECT_THAT(words, testing::StartsWith("Fix it. "));
    EXPECT_THAT(words, testing::HasSubstr("CODEX. Running at max effort. effort max. 1 subagent working"));
}

std::vector<std::string> titles(const std::vector<CardMenuEntry>& menu) {
    std::vector<std::string> result;
    for (const auto& entry : menu) {
        result.push_back(entry.title);
    }
    return result;
}

TEST(CardMenu, StandsInOrder) {
    const auto prompts = quickPrompts("");
    const auto menu = cardMenu(true, true, prompts);
    EXPECT_THAT(
        titles(menu),
        ElementsAre("Open Session", "", "New Session Here", "New Session With…", "", "Show Folder in Finder")
    );
    EXPECT_EQ(menu[1].kind, CardMenuEntry::Kind::divider);
    EXPECT_TRUE(menu[0].enabled);
    EXPECT_EQ(menu[2].choice, (CardChoice{CardChoice::Action::newSession, std::nullopt}));
    EXPECT_EQ(menu[5].choice.action, CardChoice::Action::showFolder);
}

TEST(CardMenu, WithoutALinkOpenSessionIsGrey) {
    EXPECT_FALSE(cardMenu(false, true, quickPrompts("")).front().enabled);
}

TEST(CardMenu, WithoutAFolderThereIsNoThirdGroup) {
    EXPECT_THAT(
        titles(cardMenu(true, false, quickPrompts(""))),
        ElementsAre("Open Session", "", "New Session Here", "New Session With…")
    );
}

TEST(CardMenu, OffersTheQuickPromptsByTheirTitles) {
    const auto prompts = quickPrompts("Write a haiku");
    const auto submenu = cardMenu(true, false, prompts)[3];
    EXPECT_EQ(submenu.kind, CardMenuEntry::Kind::submenu);
    ASSERT_EQ(submenu.entries.size(), prompts.size());
    ASSERT_GE(submenu.entries.size(), 4U);
    for (std::size_t index = 0; index < prompts.size(); ++index) {
        EXPECT_EQ(submenu.entries[index].title, prompts[index].title);
        EXPECT_EQ(submenu.entries[index].choice.prompt, prompts[index].prompt);
    }
    EXPECT_EQ(submenu.entries.back().choice.prompt, "Write a haiku");
    EXPECT_GE(cardMenu(true, false, quickPrompts("")).at(3).entries.size(), 4U);
}

} // namespace

} // namespace mimkins::test
