#include "Settings/QuickPrompts.h"

#include "Base/Text.h"

namespace mimkins {

std::vector<QuickPrompt> quickPrompts(std::string_view customPrompt) {
    std::vector<QuickPrompt> prompts{
        {"Commit the changes", "Commit the working tree changes with a sensible message."},
        {"Review before commit", "Review the current uncommitted changes for bugs before I commit them. "
                                 "Report findings; don't change anything yet."},
        {"Write a handover", "Write a short handover for this project: what's done, what's in progress, "
                             "what's next, and any open questions."},
        {"Pick up where we left off",
         "Pick up where the last session left off. Read the project's dev-log and "
         "handover notes first, then tell me the next step."},
    };
    if (auto own = text::trimmed(customPrompt); !own.empty()) {
        prompts.push_back({"My prompt", std::move(own)});
    }
    return prompts;
}

} // namespace mimkins
