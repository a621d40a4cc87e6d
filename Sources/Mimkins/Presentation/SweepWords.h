#pragma once

#include "Session/Mood.h"
#include "Sweep/SweepReport.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// What the screen of a sweep says.
struct SweepWords {
    /// The four lists of a report, in the order in which they are shown.
    enum class Kind { waiting, uncommitted, scheduled, running };

    struct Row {
        std::string title;
        std::string detail;
        std::uint64_t seed = 0; ///< of the row's pet
        /// Set in the waiting section, where it decides the row's colour.
        std::optional<Mood> mood;
        std::optional<std::string> link; ///< what a press opens; nothing happens without one

        friend bool operator==(const Row&, const Row&) = default;
    };

    struct Section {
        Kind kind = Kind::waiting;
        std::string title;
        std::vector<Row> rows; ///< never empty; their number stands beside the title

        friend bool operator==(const Section&, const Section&) = default;
    };

    /// The two lines under the resting pet.
    struct AllClear {
        std::string title;
        std::string detail;

        friend bool operator==(const AllClear&, const AllClear&) = default;
    };

    /// Set when nothing keeps the user. Scheduled work goes on by itself and doesn't.
    std::optional<AllClear> allClear;
    std::vector<Section> sections; ///< those that have rows
    std::string checked;           ///< such as "Checked 14:30"

    /// Shown while there is no report yet.
    static constexpr const char* checkingSessions = "Checking your sessions…";
    /// The help text of every row.
    static constexpr const char* rowHelp = "Open this session";
    /// The seed of the resting pet.
    static constexpr std::uint64_t allClearSeed = 168;

    /// The words for a report as they read at `now`.
    static SweepWords of(const SweepReport& report, Date now);
    /// The words of the button that starts a sweep.
    static std::string button(bool sweeping);
};

/// The title of a section.
std::string title(SweepWords::Kind kind);

} // namespace mimkins
