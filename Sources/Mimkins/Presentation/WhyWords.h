#pragma once

#include "Presentation/Table.h"
#include "Session/Derivation.h"
#include "Session/Liveness.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// One session with all that was known when it was judged, and the judgement.
struct WhySubject {
    std::string id;
    SessionInputs inputs;
    Liveness liveness = Liveness::noRegistry;
    Derivation derivation; ///< made only of a session that can be alive
    std::optional<Date> repositoryChecked;
    std::uint64_t shuffle = 0; ///< as pet names are shuffled
};

/// Why a session shows as it does, in plain words.
struct WhyWords {
    struct Source {
        std::string_view name;           ///< for programs
        std::string_view label;          ///< for people
        std::optional<std::string> says; ///< nothing if nothing is known from it
        std::optional<Date> time;        ///< the moment that it tells of
        bool speaks = false;

        friend bool operator==(const Source&, const Source&) = default;
    };

    std::string headline;
    std::string listing;         ///< whether it is listed, and why not
    std::string speaker;         ///< which source speaks, and why; empty if the derivation didn't get there
    std::string rule;            ///< what settled the mood; likewise
    std::vector<Source> sources; ///< always all of them, in one order

    static WhyWords of(const WhySubject& subject);
};

/// The words for a terminal, the sources as a table with their age at `now`.
std::string whyText(const WhyWords& words, Date now, const TableStyle& style);

// The same for programs. Nothing stands for a step that wasn't reached, and for a session that is listed.

std::optional<std::string_view> speakerName(Speaker speaker);
std::optional<std::string_view> reasonName(SpeakerReason reason);
std::optional<std::string_view> ruleName(MoodRule rule);
std::optional<std::string_view> absenceName(Liveness liveness, Absence absence);

} // namespace mimkins
