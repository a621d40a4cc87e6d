#include "Pet/PetAction.h"

#include "Base/Text.h"

#include <algorithm>
#include <string>

namespace mimkins {

namespace {

using enum PetAction;

constexpr std::array<std::string_view, petActionCount> names{
    "typing",     "hammering",   "reading",     "searching", "delegating", "thinking",    "tidying", "snag",
    "waving",     "raisingHand", "holdingPlan", "yourTurn",  "resting",    "sleeping",    "idle",    "party",
    "presenting", "waitingOut",  "supervising", "vacuuming", "conducting", "parachuting",
};

/// Words of a command that send something off, and those of one that puts something in order. Parts of words
/// count.
constexpr std::array<std::string_view, 7> sending{"push",   "deploy", "release", "publish",
                                                  "upload", "ship",   "launch"};
constexpr std::array<std::string_view, 11> cleaning{"clean",    "tidy",     "lint",   "format",
                                                    "prettier", "refactor", "remove", "delete",
                                                    "prune",    "purge",    "dedupe"};

struct ToolAction {
    std::string_view tool;
    PetAction action;
};

constexpr std::array<ToolAction, 14> tools{{
    {"Edit", typing},
    {"Write", typing},
    {"MultiEdit", typing},
    {"NotebookEdit", typing},
    {"Bash", hammering},
    {"Read", reading},
    {"Grep", reading},
    {"Glob", reading},
    {"LS", reading},
    {"WebFetch", searching},
    {"WebSearch", searching},
    {"Agent", delegating},
    {"Task", delegating},
    {"Workflow", conducting},
}};

template <std::size_t Count>
bool holdsOne(std::string_view text, const std::array<std::string_view, Count>& words) {
    return std::any_of(words.begin(), words.end(), [text](std::string_view word) {
        return text.find(word) != std::string_view::npos;
    });
}

std::optional<PetAction> forCommand(std::string_view command) {
    const std::string lower = text::lowercase(command);
    if (holdsOne(lower, sending)) {
        return parachuting;
    }
    if (holdsOne(lower, cleaning)) {
        return vacuuming;
    }
    return std::nullopt;
}

} // namespace

std::string_view name(PetAction action) {
    return names[static_cast<std::size_t>(action)];
}

std::optional<PetAction> petActionNamed(std::string_view name) {
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) {
        return std::nullopt;
    }
    return static_cast<PetAction>(found - names.begin());
}

bool isCalm(PetAction action) {
    switch (action) {
    case yourTurn:
    case resting:
    case sleeping:
    case idle:
    case waitingOut:
    case supervising:
        return true;
    default:
        return false;
    }
}

PetAction petActionForTool(std::optional<std::string_view> tool, std::optional<std::string_view> detail) {
    if (!tool) {
        return thinking;
    }
    if (*tool == "Bash" && detail) {
        if (const auto action = forCommand(*detail)) {
            return *action;
        }
    }
    const auto known = std::find_if(tools.begin(), tools.end(), [&](const ToolAction& entry) {
        return entry.tool == *tool;
    });
    if (known != tools.end()) {
        return known->action;
    }
    const bool browses =
        tool->find("Browser") != std::string_view::npos || tool->find("chrome") != std::string_view::npos;
    return browses ? searching : typing;
}

} // namespace mimkins
