#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace mimkins {

/// The model and effort of a session or subtask, and their short form.
struct ModelTag {
    /// The model families of the client, in their order; any other name has no family.
    enum class Family { opus, sonnet, haiku, fable };

    struct Parts {
        std::optional<Family> family;
        std::string name; ///< such as "Opus 4.5"

        friend bool operator==(const Parts&, const Parts&) = default;
    };

    std::optional<std::string> model; ///< the raw id
    std::optional<std::string> effort;

    /// Family and name. Nothing without a model, or when it is "<synthetic>" or empty.
    std::optional<Parts> parts() const;
    /// How many of five dots the effort fills; 0 for an unknown word or none.
    int pips() const;
    /// A line for a tool tip, such as "Opus 4.5 (claude-opus-4-5), effort high"; empty if nothing is known.
    std::string summary() const;

    friend bool operator==(const ModelTag&, const ModelTag&) = default;
};

/// The family's raw word, such as "opus".
std::string_view rawWord(ModelTag::Family family);

} // namespace mimkins
