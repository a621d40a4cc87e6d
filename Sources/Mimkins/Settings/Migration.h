#pragma once

#include "Platform/PreferencesStore.h"

#include <array>
#include <functional>
#include <memory>
#include <string_view>

/// Carries preferences over from the former product.
namespace mimkins::Migration {

/// The former product's domain.
inline constexpr std::string_view formerDomain = "local.zorbly";

/// What is carried over. Preferences that are younger than the former product aren't in the list.
inline constexpr std::array<std::string_view, 19> keys{
    "themeId",           "liveliness",  "petSize",      "antics",     "nameTags",
    "crewHeads",         "drawerWidth", "tabHeight",    "showDone",   "leaveAfterMinutes",
    "stuckAfterMinutes", "chirp",       "chirpSound",   "wiggleTab",  "menuBarCount",
    "shuffle",           "hotkey",      "customPrompt", "drawerOpen",
};

/// Copies what the own preferences have no value for, once in their life. `former` opens the former domain,
/// or gives nothing; it is only asked when needed. The former domain is never changed.
void fromZorbly(
    PreferencesStore& own, const std::function<std::unique_ptr<const PreferencesStore>()>& former
);

} // namespace mimkins::Migration
