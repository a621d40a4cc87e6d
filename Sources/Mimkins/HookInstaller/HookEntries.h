#pragma once

#include "Base/Paths.h"
#include "HookInstaller/SettingsValue.h"

#include <array>
#include <set>
#include <string>
#include <string_view>

/// What counts as a hook entry of ours in the client's settings, and how entries go in and out. Pure rules.
namespace mimkins {

/// The client's events, in the order in which they are written and shown.
inline constexpr std::array<std::string_view, 10> hookEvents{
    "SessionStart",      "UserPromptSubmit", "PreToolUse", "PostToolUse", "PostToolUseFailure",
    "PermissionRequest", "Notification",     "PreCompact", "Stop",        "SessionEnd",
};

/// The script paths that count as ours: the current one and those of earlier versions.
std::set<std::string> knownScripts(const Paths& paths);

/// The command that an entry of ours carries: the quoted path of the installed script.
std::string currentHookCommand(const Paths& paths);

/// True if a command runs one of the known scripts and nothing else. The path may be quoted, and the home
/// folder in it may be written "~", "$HOME" or "${HOME}".
bool isOurs(std::string_view command, const Paths& paths);

/// Entries of ours that were found in the settings.
struct FoundEntries {
    std::set<std::string> events;
    /// One of them isn't spelled exactly as it is written today.
    bool stale = false;
};

FoundEntries findEntries(const SettingsObject& root, const Paths& paths);

/// Removes our entries and the groups, events and "hooks" key that hold nothing else. Empty arrays of events
/// and an empty "hooks" object go too; everything else stays as it is.
void strip(SettingsObject& root, const Paths& paths);

/// Strips, then adds one group with one entry to each event, behind the groups of other tools. A value under
/// "hooks" that isn't an object, or under one of the events that isn't an array of objects, is replaced.
void addEntries(SettingsObject& root, const Paths& paths);

} // namespace mimkins
