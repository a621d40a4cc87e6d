#include "Presentation/Accent.h"
#include "Presentation/SettingsWords.h"

#include <gmock/gmock.h>

namespace mimkins {

namespace {

using settings_words::HasConnection;
using testing::ElementsAre;
using Control = SettingsRow::Control;
using Rows = std::vector<SettingsRow>;

std::vector<std::string_view> titles(HasConnection connection) {
    std::vector<std::string_view> all;
    for (const auto& section : settings_words::sections(connection)) {
        all.push_back(section.title);
    }
    return all;
}

Rows rowsOf(std::string_view title) {
    for (const auto& section : settings_words::sections(HasConnection::yes)) {
        if (section.title == title) {
            return section.rows;
        }
    }
    return {};
}

TEST(SettingsWords, SectionsInOrder) {
    EXPECT_THAT(
        titles(HasConnection::yes),
        ElementsAre("Theme", "Pets", "Panel", "Alerts", "Shortcuts", "Fun", "Claude Code", "General")
    );
    EXPECT_THAT(
        titles(HasConnection::no),
        ElementsAre("Theme", "Pets", "Panel", "Alerts", "Shortcuts", "Fun", "General")
    );
}

TEST(SettingsWords, RowsOfTheThemeAndThePets) {
    EXPECT_EQ(
        rowsOf("Theme"),
        (Rows{{Control::themes, "themeId", "", "", {}}, {Control::line, "themeBlurb", "", "", {}}})
    );
    EXPECT_EQ(
        rowsOf("Pets"),
        (Rows{
            {Control::picker, "liveliness", "Liveliness", "", {"Calm", "Normal", "Hyper"}},
            {Control::picker, "petSize", "Size", "", {"S", "M", "L"}},
            {Control::toggle, "antics", "Idle antics", "Juggling, sneezing, dancing…", {}},
            {Control::toggle, "nameTags", "Name tags", "Every pet gets a name", {}},
            {Control::toggle, "crewHeads", "Crew heads", "Tiny helpers when subagents run", {}},
            {Control::toggle, "modelBadges", "Model badges", "Each pet's model and effort", {}},
        })
    );
}

TEST(SettingsWords, RowsOfThePanel) {
    EXPECT_EQ(
        rowsOf("Panel"),
        (Rows{
            {Control::picker, "drawerWidth", "Drawer width", "", {"Narrow", "Regular", "Wide"}},
            {Control::slider, "tabHeight", "Tab height", "", {}},
            {Control::picker, "reorder", "Reorder pets", "", {"Always", "When they need you", "Never"}},
            {Control::line, "reorderLine", "", "", {}},
            {Control::toggle, "showDone", "Show Done pets", "Finished and already seen", {}},
            {Control::picker, "leaveAfterMinutes", "Pets leave after", "", {"15m", "30m", "1h", "2h"}},
            {Control::picker, "stuckAfterMinutes", "“Maybe stuck” after", "", {"5m", "10m", "20m"}},
        })
    );
}

TEST(SettingsWords, RowsOfTheAlertsAndTheShortcuts) {
    EXPECT_EQ(
        rowsOf("Alerts"),
        (Rows{
            {Control::toggle, "chirp", "Chirp when a pet needs you", "A sound when one starts waiting", {}},
            {Control::menu,
             "chirpSound",
             "Sound",
             "",
             {"Pop", "Purr", "Tink", "Glass", "Frog", "Bottle", "Ping"}},
            {Control::toggle,
             "wiggleTab",
             "Wiggle the tab",
             "When the drawer's closed and a pet needs you",
             {}},
            {Control::toggle, "menuBarCount", "Count in the menu bar", "", {}},
        })
    );
    EXPECT_EQ(
        rowsOf("Shortcuts"),
        (Rows{
            {Control::menu, "hotkey", "Next waiting", "", {"⌥⌘P", "⌃⌥P", "⌃⌥Space", "Off"}},
            {Control::line, "hotkeyStatus", "", "", {}},
            {Control::line, "hotkeyLine", "", "", {}},
            {Control::text,
             "customPrompt",
             "My quick prompt",
             "Shows under “New session with…” when you right-click a pet",
             {}},
        })
    );
}

TEST(SettingsWords, RowsOfTheLastSections) {
    EXPECT_EQ(
        rowsOf("Fun"), (Rows{
                           {Control::fun, "throwParty", "Throw a party", "", {}},
                           {Control::fun, "shuffle", "Shuffle pets", "", {}},
                       })
    );
    EXPECT_EQ(
        rowsOf("General"), (Rows{
                               {Control::toggle, "loginOn", "Open at login", "", {}},
                               {Control::button, "quit", "Quit Mimkins", "", {}},
                           })
    );
    EXPECT_EQ(settings_words::footer, "Mimkins · everything stays on this Mac, nothing is sent anywhere.");
    EXPECT_EQ(settings_words::customPromptPlaceholder, "e.g. Run the tests and tell me what fails");
}

TEST(SettingsWords, EachOptionHasItsValue) {
    for (const auto& row : rowsOf("Panel")) {
        if (row.key == "leaveAfterMinutes") {
            EXPECT_EQ(row.options.size(), settings_words::leaveAfterMinutes.size());
        } else if (row.key == "stuckAfterMinutes") {
            EXPECT_EQ(row.options.size(), settings_words::stuckAfterMinutes.size());
        } else if (row.key == "reorder") {
            EXPECT_EQ(row.options.size(), Choice<ReorderMode>::cases.size());
        }
    }
}

TEST(SettingsWords, LineBelowReorderFollowsIt) {
    const auto words = [](ReorderMode mode) {
        SettingsFacts facts;
        facts.reorder = mode;
        return settings_words::line("reorderLine", facts);
    };
    EXPECT_EQ(words(ReorderMode::always), "Whatever changed most recently moves to the top.");
    EXPECT_EQ(
        words(ReorderMode::whenNeeded),
        "Pets keep their places. One that needs you jumps to the top until you've dealt with it."
    );
    EXPECT_EQ(
        words(ReorderMode::never),
        "Pets keep their places. The glow and the next-up shortcut find whoever needs you."
    );
}

TEST(SettingsWords, LineBelowTheThemesIsTheBlurbOfTheShownOne) {
    SettingsFacts facts;
    facts.themeId = "paper";
    EXPECT_EQ(settings_words::line("themeBlurb", facts), "A notebook page, inked pets");
    facts.themeId = "none such";
    EXPECT_EQ(settings_words::line("themeBlurb", facts), "Indigo night, soft glows, drifting sparks");
}

TEST(SettingsWords, SoundShowsOnlyWithTheChirp) {
    SettingsFacts facts;
    EXPECT_FALSE(settings_words::shows("chirpSound", facts));
    facts.chirp = true;
    EXPECT_TRUE(settings_words::shows("chirpSound", facts));
    EXPECT_TRUE(settings_words::shows("wiggleTab", {}));
}

TEST(SettingsWords, FailedShortcutIsTold) {
    SettingsFacts facts;
    facts.hotkey = Hotkey::ctrlOptP;
    EXPECT_FALSE(settings_words::shows("hotkeyStatus", facts));
    facts.hotkeyStatus = "⌃⌥P: failed 2026-11-21 07:30:00 +0000";
    EXPECT_TRUE(settings_words::shows("hotkeyStatus", facts));
    EXPECT_EQ(settings_words::line("hotkeyStatus", facts), "⌃⌥P: failed (taken by another app?)");
    EXPECT_EQ(
        settings_words::line("hotkeyLine", facts),
        "Jumps to whichever session has waited longest for you. Press again for the next one."
    );
}

TEST(SettingsWords, OutcomeForOtherKeysIsNotTold) {
    SettingsFacts facts;
    facts.hotkey = Hotkey::ctrlOptSpace;
    for (const char* status :
         {"⌃⌥P: failed 2026-11-21 07:30:00 +0000", "⌃⌥Space: registered 2026-11-21 07:30:00 +0000"}) {
        facts.hotkeyStatus = status;
        EXPECT_FALSE(settings_words::shows("hotkeyStatus", facts)) << status;
        EXPECT_EQ(settings_words::line("hotkeyStatus", facts), "") << status;
    }
    facts.hotkey = Hotkey::off;
    facts.hotkeyStatus = ": failed ";
    EXPECT_FALSE(settings_words::shows("hotkeyStatus", facts));
}

TEST(Accent, IsAColourInEveryThemeAndItsInkIsRead) {
    for (const auto& theme : PetTheme::all()) {
        for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
            const Color color = controlAccent(theme.resolved(scheme));
            const double most = std::max({color.red, color.green, color.blue});
            const double least = std::min({color.red, color.green, color.blue});
            EXPECT_GT(most - least, 0.25) << theme.id;
            const Color ink = inkOn(color);
            EXPECT_GE(contrast(color, {ink.red, ink.green, ink.blue, 1}), 4.5) << theme.id;
        }
    }
}

TEST(Accent, ContrastOfBlackAndWhite) {
    EXPECT_NEAR(contrast(Color::black(), Color::white()), 21, 1e-9);
    EXPECT_NEAR(contrast(Color::grey(0.5), Color::grey(0.5)), 1, 1e-9);
}

} // namespace

} // namespace mimkins
