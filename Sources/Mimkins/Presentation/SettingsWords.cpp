#include "Presentation/SettingsWords.h"

#include "Settings/HotKeyRegistration.h"
#include "Theme/PetTheme.h"

namespace mimkins::settings_words {

namespace {

using Control = SettingsRow::Control;

constexpr std::string_view themeLine = "themeBlurb";
constexpr std::string_view reorderLine = "reorderLine";
constexpr std::string_view hotkeyLine = "hotkeyLine";
constexpr std::string_view soundKey = "chirpSound";

SettingsRow toggle(std::string_view key, std::string_view label, std::string_view hint = {}) {
    return {Control::toggle, key, label, hint, {}};
}

SettingsRow
picker(std::string_view key, std::string_view label, std::initializer_list<std::string_view> options) {
    return {Control::picker, key, label, {}, options};
}

SettingsRow line(std::string_view key) {
    return {Control::line, key, {}, {}, {}};
}

SettingsSection pets() {
    return {
        "Pets",
        {picker("liveliness", "Liveliness", {"Calm", "Normal", "Hyper"}),
         picker("petSize", "Size", {"S", "M", "L"}),
         toggle("antics", "Idle antics", "Juggling, sneezing, dancing…"),
         toggle("nameTags", "Name tags", "Every pet gets a name"),
         toggle("crewHeads", "Crew heads", "Tiny helpers when subagents run"),
         toggle("modelBadges", "Model badges", "Each pet's model and effort")}};
}

SettingsSection panel() {
    return {
        "Panel",
        {picker("drawerWidth", "Drawer width", {"Narrow", "Regular", "Wide"}),
         {Control::slider, "tabHeight", "Tab height", {}, {}},
         picker("reorder", "Reorder pets", {"Always", "When they need you", "Never"}),
         line(reorderLine),
         toggle("showDone", "Show Done pets", "Finished and already seen"),
         picker("leaveAfterMinutes", "Pets leave after", {"15m", "30m", "1h", "2h"}),
         picker("stuckAfterMinutes", "“Maybe stuck” after", {"5m", "10m", "20m"})}};
}

SettingsSection alerts() {
    return {
        "Alerts",
        {toggle("chirp", "Chirp when a pet needs you", "A sound when one starts waiting"),
         {Control::menu, soundKey, "Sound", {}, {sounds.begin(), sounds.end()}},
         toggle("wiggleTab", "Wiggle the tab", "When the drawer's closed and a pet needs you"),
         toggle("menuBarCount", "Count in the menu bar")}};
}

SettingsSection shortcuts() {
    return {
        "Shortcuts",
        {{Control::menu, "hotkey", "Next waiting", {}, {"⌥⌘P", "⌃⌥P", "⌃⌥Space", "Off"}},
         line(HotKeyRegistration::statusKey),
         line(hotkeyLine),
         {Control::text,
          "customPrompt",
          "My quick prompt",
          "Shows under “New session with…” when you right-click a pet",
          {}}}};
}

std::string_view reorderWords(ReorderMode mode) {
    switch (mode) {
    case ReorderMode::always:
        return "Whatever changed most recently moves to the top.";
    case ReorderMode::never:
        return "Pets keep their places. The glow and the next-up shortcut find whoever needs you.";
    case ReorderMode::whenNeeded:
        break;
    }
    return "Pets keep their places. One that needs you jumps to the top until you've dealt with it.";
}

/// The outcome of the last registration is stored with the keys it was about, and stays when they are given
/// up.
bool hotkeyFailed(const SettingsFacts& facts) {
    return facts.hotkey != Hotkey::off && facts.hotkeyStatus.starts_with(label(facts.hotkey) + ": failed");
}

} // namespace

std::vector<SettingsSection> sections(HasConnection connection) {
    std::vector<SettingsSection> all{
        {"Theme", {{Control::themes, "themeId", {}, {}, {}}, line(themeLine)}},
        pets(),
        panel(),
        alerts(),
        shortcuts(),
        {"Fun",
         {{Control::fun, "throwParty", "Throw a party", {}, {}},
          {Control::fun, "shuffle", "Shuffle pets", {}, {}}}}};
    if (connection == HasConnection::yes) {
        all.push_back({"Claude Code", {{Control::connection, "connection", {}, {}, {}}}});
    }
    all.push_back(
        {"General", {toggle("loginOn", "Open at login"), {Control::button, "quit", "Quit Mimkins", {}, {}}}}
    );
    return all;
}

bool shows(std::string_view key, const SettingsFacts& facts) {
    if (key == soundKey) {
        return facts.chirp;
    }
    return key != HotKeyRegistration::statusKey || hotkeyFailed(facts);
}

std::string line(std::string_view key, const SettingsFacts& facts) {
    if (key == themeLine) {
        return std::string(PetTheme::named(facts.themeId).blurb);
    }
    if (key == reorderLine) {
        return std::string(reorderWords(facts.reorder));
    }
    if (key == hotkeyLine) {
        return "Jumps to whichever session has waited longest for you. Press again for the next one.";
    }
    if (key == HotKeyRegistration::statusKey && hotkeyFailed(facts)) {
        return label(facts.hotkey) + ": failed (taken by another app?)";
    }
    return {};
}

} // namespace mimkins::settings_words
