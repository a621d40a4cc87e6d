#pragma once

#include "Settings/Choice.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// What the settings screen says and offers, as values.
namespace mimkins {

/// One row of a section: something that the user can change or start, or a line that explains.
struct SettingsRow {
    enum class Control : std::uint8_t {
        themes,     ///< the themes as tiles
        picker,     ///< all options beside one another
        menu,       ///< the chosen option, and the others on demand
        toggle,     ///< a switch
        slider,     ///< a number between two limits
        text,       ///< a text of a few lines, below its label
        line,       ///< words alone
        fun,        ///< a button of two beside one another
        button,     ///< a button of its own
        connection, ///< how the client is connected; has no words of its own
    };

    Control control = Control::line;
    /// The key of the preference that the row shows and sets; for other rows a word of its own.
    std::string_view key;
    std::string_view label;
    std::string_view hint;                 ///< empty where the label says it all
    std::vector<std::string_view> options; ///< in their order

    friend bool operator==(const SettingsRow&, const SettingsRow&) = default;
};

struct SettingsSection {
    std::string_view title;
    std::vector<SettingsRow> rows;

    friend bool operator==(const SettingsSection&, const SettingsSection&) = default;
};

/// What lines and conditional rows depend on.
struct SettingsFacts {
    std::string themeId;
    ReorderMode reorder = ReorderMode::whenNeeded;
    bool chirp = false;
    Hotkey hotkey = Hotkey::off;
    std::string hotkeyStatus; ///< as stored; empty for none
};

namespace settings_words {

enum class HasConnection : bool { no, yes };

/// All sections in their order. Without a connection there is none about the client.
std::vector<SettingsSection> sections(HasConnection connection);

/// True if a row shows at the moment.
bool shows(std::string_view key, const SettingsFacts& facts);

/// What a row of words says at the moment; empty for a row that is no line.
std::string line(std::string_view key, const SettingsFacts& facts);

/// Minutes, in the order of their options.
inline constexpr std::array<std::int64_t, 4> leaveAfterMinutes{15, 30, 60, 120};
inline constexpr std::array<std::int64_t, 3> stuckAfterMinutes{5, 10, 20};

/// The sounds that come with the program.
inline constexpr std::array<std::string_view, 7> sounds{"Pop",  "Purr",   "Tink", "Glass",
                                                        "Frog", "Bottle", "Ping"};

/// The limits of the tab's height.
inline constexpr double lowestTab = 0.15;
inline constexpr double highestTab = 0.85;

inline constexpr std::string_view customPromptPlaceholder = "e.g. Run the tests and tell me what fails";

/// Stands below the last section.
inline constexpr std::string_view footer =
    "Mimkins · everything stays on this Mac, nothing is sent anywhere.";

} // namespace settings_words

} // namespace mimkins
