#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// A prompt that a new session can be started with.
struct QuickPrompt {
    std::string title;
    std::string prompt;

    friend bool operator==(const QuickPrompt&, const QuickPrompt&) = default;
};

/// The four fixed prompts, and the user's own, bare of white space at both ends, unless nothing is left of
/// it.
std::vector<QuickPrompt> quickPrompts(std::string_view customPrompt);

} // namespace mimkins
