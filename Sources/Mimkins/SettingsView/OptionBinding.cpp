#include "SettingsView/OptionBinding.h"

#include "Presentation/SettingsWords.h"

#include <algorithm>
#include <array>
#include <string>

namespace mimkins {

namespace {

/// `values` lives as long as the program.
template <typename T, typename Values>
OptionBinding over(Preference<T>& preference, const Values& values) {
    return {
        [&preference, &values]() -> std::optional<std::size_t> {
            const auto found = std::find(values.begin(), values.end(), preference());
            return found != values.end() ? std::optional(static_cast<std::size_t>(found - values.begin()))
                                         : std::nullopt;
        },
        [&preference, &values](std::size_t option) { preference.set(T(values.at(option))); }};
}

template <typename Case>
OptionBinding over(Preference<Case>& preference) {
    return {
        [&preference] { return std::optional(static_cast<std::size_t>(preference())); },
        [&preference](std::size_t option) { preference.set(Choice<Case>::cases.at(option).value); }};
}

} // namespace

OptionBinding optionBinding(AppSettings& settings, std::string_view key) {
    if (key == settings.liveliness.key()) {
        return over(settings.liveliness);
    }
    if (key == settings.petSize.key()) {
        return over(settings.petSize);
    }
    if (key == settings.drawerWidth.key()) {
        return over(settings.drawerWidth);
    }
    if (key == settings.reorder.key()) {
        return over(settings.reorder);
    }
    if (key == settings.hotkey.key()) {
        return over(settings.hotkey);
    }
    if (key == settings.leaveAfterMinutes.key()) {
        return over(settings.leaveAfterMinutes, settings_words::leaveAfterMinutes);
    }
    if (key == settings.stuckAfterMinutes.key()) {
        return over(settings.stuckAfterMinutes, settings_words::stuckAfterMinutes);
    }
    return over(settings.chirpSound, settings_words::sounds);
}

Preference<bool>* togglePreference(AppSettings& settings, std::string_view key) {
    const std::array all{&settings.antics,   &settings.nameTags, &settings.crewHeads, &settings.modelBadges,
                         &settings.showDone, &settings.chirp,    &settings.wiggleTab, &settings.menuBarCount};
    const auto found = std::find_if(all.begin(), all.end(), [key](const Preference<bool>* preference) {
        return preference->key() == key;
    });
    return found != all.end() ? *found : nullptr;
}

} // namespace mimkins
