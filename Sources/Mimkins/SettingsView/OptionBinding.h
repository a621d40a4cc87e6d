#pragma once

#include "Settings/AppSettings.h"

#include <functional>
#include <optional>
#include <string_view>

namespace mimkins {

/// A preference as one of a few options.
struct OptionBinding {
    /// The place of the present option; nothing if the preference holds something else.
    std::function<std::optional<std::size_t>()> chosen;
    std::function<void(std::size_t)> choose;
};

/// How the preference of this key is chosen. The key is that of a row with options.
OptionBinding optionBinding(AppSettings& settings, std::string_view key);

/// The preference of this key, which is on or off; null if there is none.
Preference<bool>* togglePreference(AppSettings& settings, std::string_view key);

} // namespace mimkins
