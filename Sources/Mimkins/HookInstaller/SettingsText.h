#pragma once

#include "HookInstaller/SettingsValue.h"

#include <string>
#include <string_view>

namespace mimkins {

/// Values nested deeper than this are refused, so that nothing that walks them can run out of stack.
inline constexpr std::size_t deepestSettings = 512;

/// Reads JSON text whose root is an object. Of a key that stands twice in an object the last value holds.
/// Throws an `Error` that says what is wrong if the text isn't JSON, isn't valid UTF-8, is nested too deeply
/// (domain "JSON"), or if the root is something else (the application's code 1).
SettingsObject parseSettings(std::string_view text);

/// Pretty-printed JSON with sorted keys, unescaped slashes and one line feed at the end. Strings must be
/// valid UTF-8; otherwise throws an `Error`.
std::string serialiseSettings(const SettingsObject& root);

} // namespace mimkins
