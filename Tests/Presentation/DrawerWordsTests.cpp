#include "Presentation/CardRow.h"
#include "Presentation/DrawerState.h"
#include "Presentation/EdgeTabBadge.h"
#include "Presentation/HeaderWords.h"
#include "Presentation/MoodTint.h"
#include "Presentation/StatusItem.h"
#include "Presentation/SummaryColors.h"

#include <gmock/gmock.h>

namespace mimkins::test {

namespace {

using testing::ElementsAre;

Session session(Mood mood, const std::string& id = "s") {
    Session session;
    session.id = id;
    session.mood = mood;
    session.project = "shop";
    return session;
}

TEST(HeaderWords, TitleNamesTheScreen) {
    EXPECT_EQ(header::title(DrawerMode::pets), "Mimkins");
    EXPECT_EQ(header::title(DrawerMode::settings), "Settings");
    EXPECT_EQ(header::title(DrawerMode::sweep), "Wrap-up");
    EXPECT_EQ(header::title(DrawerMode::setup), "Setup");
}

TEST(HeaderWords, ButtonsToggleTheirOwnScreen) {
    EXPECT_EQ(header::afterSettingsButton(DrawerMode::pets), DrawerMode::settings);
    EXPECT_EQ(header::afterSettingsButton(DrawerMode::settings), DrawerMode::pets);
    EXPECT_EQ(header::afterSettingsButton(DrawerMode::sweep), DrawerMode::settings);
    EXPECT_EQ(header::afterWrapUpButton(DrawerMode::sweep), DrawerMode::pets);
    EXPECT_EQ(header::afterWrapUpButton(DrawerMode::settings), DrawerMode::sweep);
}

TEST(HeaderWords, ToolTipsSayWhereAButtonLeads) {
    EXPECT_EQ(header::settingsToolTip(DrawerMode::pets), "Settings");
    EXPECT_EQ(header::settingsToolTip(DrawerMode::settings), "Back to the pets");
    EXPECT_EQ(header::wrapUpToolTip(DrawerMode::pets), "Wrap-up: what's left before you log off");
    EXPECT_EQ(header::wrapUpToolTip(DrawerMode::sweep), "Back to the pets");
}

TEST(HeaderWords, SummaryStandsWithThePetsAlone) {
    EXPECT_TRUE(header::showsSummary(DrawerMode::pets));
    EXPECT_FALSE(header::showsSummary(DrawerMode::settings));
}

TEST(SummaryColors, FollowTheKind) {
    const auto& theme = PetTheme::nightSky();
    EXPECT_EQ(summaryFill(theme, SummaryKind::waiting), theme.waiting);
    EXPECT_EQ(summaryFill(theme, SummaryKind::replies), theme.yourTurn);
    EXPECT_EQ(summaryFill(theme, SummaryKind::pets), Color::white(0.08));
    EXPECT_EQ(summaryInk(theme, SummaryKind::waiting), Color::black(0.8));
    EXPECT_EQ(summaryInk(theme, SummaryKind::replies), Color::black(0.8));
    EXPECT_EQ(summaryInk(theme, SummaryKind::pets), theme.subtext);
}

TEST(MoodTint, EachMoodHasItsColour) {
    const auto& theme = PetTheme::nightSky();
    for (const auto mood : {Mood::working, Mood::compacting, Mood::background}) {
        EXPECT_EQ(tint(theme, mood), theme.working);
    }
    for (const auto mood : {Mood::needsPermission, Mood::needsInput, Mood::commitWaiting}) {
        EXPECT_EQ(tint(theme, mood), theme.waiting);
    }
    for (const auto mood : {Mood::question, Mood::plan}) {
        EXPECT_EQ(tint(theme, mood), theme.question);
    }
    for (const auto mood : {Mood::stuck, Mood::idle, Mood::done}) {
        EXPECT_EQ(tint(theme, mood), theme.quiet);
    }
    EXPECT_EQ(tint(theme, Mood::yourTurn), theme.yourTurn);
    EXPECT_EQ(tint(theme, Mood::snag), theme.snag);
}

TEST(StatusItem, TitleIsABlankAndTheNumber) {
    EXPECT_EQ(status_item::title(3, true), " 3");
    EXPECT_EQ(status_item::title(0, true), "");
    EXPECT_EQ(status_item::title(3, false), "");
}

TEST(StatusItem, ToolTipSaysTheSummary) {
    EXPECT_EQ(status_item::toolTip({session(Mood::plan)}), "Mimkins: 1 waiting on you");
    EXPECT_EQ(status_item::toolTip({}), "Mimkins: 0 pets out");
}

std::vector<std::string> texts(const status_item::MenuState& state) {
    std::vector<std::string> result;
    for (const auto& row : status_item::menu(state)) {
        result.push_back(row.text);
    }
    return result;
}

TEST(StatusItem, MenuStandsInOrder) {
    EXPECT_THAT(
        texts({true, "⌥⌘P", false}),
        ElementsAre("Hide Mimkins", "Next Waiting  ⌥⌘P", "Wrap-up…", "", "Open at Login", "", "Quit Mimkins")
    );
}

TEST(StatusItem, MenuOfAShutDrawerOffersToShowIt) {
    EXPECT_EQ(texts({false, "", false}).front(), "Show Mimkins");
}

TEST(StatusItem, WithoutAShortcutTheItemStandsAlone) {
    EXPECT_EQ(texts({true, "", false}).at(1), "Next Waiting");
}

TEST(StatusItem, CheckMarkFollowsTheLoginItem) {
    EXPECT_TRUE(status_item::menu({true, "", true}).at(4).checked);
    EXPECT_FALSE(status_item::menu({true, "", false}).at(4).checked);
    EXPECT_EQ(status_item::menu({true, "", false}).back().keyEquivalent, "q");
}

TEST(EdgeTabBadge, CountsRepliesOnlyWhenNobodyIsBlocked) {
    EXPECT_EQ(edgeTabBadge({session(Mood::yourTurn), session(Mood::yourTurn)}), (EdgeTabBadge{false, 2}));
    EXPECT_EQ(edgeTabBadge({session(Mood::yourTurn), session(Mood::question)}), (EdgeTabBadge{true, 1}));
    EXPECT_EQ(edgeTabBadge({session(Mood::commitWaiting)}), (EdgeTabBadge{true, 1}));
    EXPECT_EQ(edgeTabBadge({session(Mood::done)}), (EdgeTabBadge{false, 0}));
}

TEST(CardRow, SaysASessionInWords) {
    auto waiting = session(Mood::needsPermission, "one");
    waiting.title = "Fix the basket";
    waiting.tool = "Bash";
    waiting.detail = "npm test";
    waiting.openLink = "https://example.org/one";
    const auto row = cardRow(waiting, {});
    EXPECT_EQ(row.project, "SHOP");
    EXPECT_EQ(row.projectToolTip, "shop");
    EXPECT_EQ(row.title, "Fix the basket");
    EXPECT_EQ(row.name, waiting.petName(0));
    EXPECT_EQ(row.moodLabel, "Needs your OK");
    EXPECT_EQ(row.activity, "Bash: npm test");
    EXPECT_TRUE(row.waiting);
    EXPECT_EQ(row.toolTip, "Open this session · right-click for more");
    EXPECT_EQ(row.accessibleName, waiting.petName(0) + ", Needs your OK, shop");
    EXPECT_EQ(
        row.accessibleDescription, "Fix the basket. Bash: npm test. Open this session · right-click for more"
    );
}

TEST(CardRow, WithoutATitleTheProjectShowsTwice) {
    const auto row = cardRow(session(Mood::idle), {});
    EXPECT_EQ(row.project, "SHOP");
    EXPECT_EQ(row.title, "shop");
}

TEST(CardRow, WithoutALinkThereIsNoToolTip) {
    const auto row = cardRow(session(Mood::idle), {});
    EXPECT_FALSE(row.canOpen);
    EXPECT_EQ(row.toolTip, "");
}

TEST(CardRow, NameTagsMayBeOff) {
    const auto row = cardRow(session(Mood::idle), {.nameTags = false});
    EXPECT_FALSE(row.name.has_value());
    EXPECT_NE(row.accessibleName.find(session(Mood::idle).petName(0)), std::string::npos);
}

TEST(CardRow, WordsFromOutsideStayOnOneLine) {
    auto broken = session(Mood::working);
    broken.title = "one\ntwo\tthree\x01";
    broken.project = "stra\xC3\x9F"
                     "e\xFF";
    const auto row = cardRow(broken, {});
    EXPECT_EQ(row.title, "one two three");
    EXPECT_EQ(row.project, "STRASSE\xEF\xBF\xBD");
}

TEST(EdgeTabBadge, SaysInWordsWhoWaits) {
    EXPECT_EQ(edgeTabWords({true, 2}), "2 waiting on you");
    EXPECT_EQ(edgeTabWords({false, 1}), "1 new reply");
    EXPECT_EQ(edgeTabWords({false, 3}), "3 new replies");
    EXPECT_EQ(edgeTabWords({false, 0}), "Nobody waits on you");
}

TEST(DrawerState, TellsOnlyWhenAValueChanges) {
    DrawerState state;
    int changes = 0;
    state.changed().connect([&changes] { ++changes; });
    state.setOpen(true);
    state.setCovered(false);
    EXPECT_EQ(changes, 0);
    state.setOpen(false);
    state.setMode(DrawerMode::sweep);
    state.setHighlightedId("a");
    state.setHighlightedId("a");
    EXPECT_EQ(changes, 3);
}

TEST(DrawerState, NothingMovesInADrawerThatNobodySees) {
    DrawerState state;
    EXPECT_FALSE(state.animationsPaused());
    state.setCovered(true);
    EXPECT_TRUE(state.animationsPaused());
    state.setCovered(false);
    state.setOpen(false);
    EXPECT_TRUE(state.animationsPaused());
}

} // namespace

} // namespace mimkins::test
