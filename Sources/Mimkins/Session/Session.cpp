#include "Session/Session.h"

#include "Base/Link.h"
#include "Base/StableSeed.h"
#include "Base/Text.h"
#include "Session/DeepLink.h"

#include <array>
#include <string_view>
#include <vector>

namespace mimkins {

namespace {

constexpr std::array<std::string_view, 30> petNames{
    "Mochi",   "Biscuit", "Pickle",    "Noodle",   "Waffles", "Bean",    "Pip",   "Sprout",
    "Taco",    "Muffin",  "Ziggy",     "Bloop",    "Nugget",  "Pudding", "Toast", "Gizmo",
    "Wobble",  "Sushi",   "Peanut",    "Dumpling", "Bubbles", "Turbo",   "Fig",   "Maple",
    "Pretzel", "Doodle",  "Jellybean", "Kiwi",     "Scout",   "Pebble",
};

struct Verb {
    std::string_view tool;
    std::string_view verb;
};

constexpr std::array<Verb, 11> verbs{{
    {"Bash", "Running"},
    {"Read", "Reading"},
    {"Grep", "Reading"},
    {"Glob", "Reading"},
    {"Edit", "Editing"},
    {"Write", "Editing"},
    {"NotebookEdit", "Editing"},
    {"WebFetch", "Browsing"},
    {"WebSearch", "Browsing"},
    {"Agent", "Delegating"},
    {"Task", "Delegating"},
}};

std::string verbOf(std::string_view tool) {
    for (const auto& entry : verbs) {
        if (entry.tool == tool) {
            return std::string(entry.verb);
        }
    }
    if (tool.substr(0, 5) != "mcp__") {
        return std::string(tool);
    }
    // The third piece is taken as it falls: "mcp__github__create_pr" gives "create".
    const auto pieces = text::splitDroppingEmpty(tool, '_');
    return pieces.size() < 3 ? "Using a tool" : "Using " + std::string(pieces[2]);
}

std::optional<std::string>
joined(const std::optional<std::string>& first, const std::optional<std::string>& second) {
    std::vector<std::string> pieces;
    if (first) {
        pieces.push_back(*first);
    }
    if (second) {
        pieces.push_back(*second);
    }
    std::string result = text::join(pieces, ": ");
    return result.empty() ? std::nullopt : std::optional(std::move(result));
}

} // namespace

std::optional<std::string> Session::activity() const {
    switch (mood) {
    case Mood::working:
    case Mood::stuck:
        return tool ? joined(verbOf(*tool), detail) : "Thinking";
    case Mood::compacting:
        return "Compacting the conversation";
    case Mood::snag:
        return joined(tool ? std::optional(*tool + " failed") : std::nullopt, detail);
    case Mood::needsPermission: {
        auto words = joined(tool, detail);
        return words ? words : message;
    }
    case Mood::needsInput:
    case Mood::commitWaiting:
    case Mood::background:
        return message;
    case Mood::idle:
    case Mood::question:
    case Mood::plan:
    case Mood::yourTurn:
    case Mood::done:
        break;
    }
    return std::nullopt;
}

std::optional<std::string> Session::jumpURL() const {
    if (localId) {
        return deep_link::continueSession(*localId);
    }
    if (openLink) {
        // A status record must not be able to make the program open any other scheme.
        const auto scheme = linkScheme(*openLink);
        if (scheme == "http" || scheme == "https" || scheme == "file") {
            return openLink;
        }
    }
    return std::nullopt;
}

int Session::effortBoost() const {
    const std::string word = text::lowercase(effort.value_or(""));
    if (word == "max" || word == "ultra") {
        return 2;
    }
    return word == "xhigh" || word == "extra-high" || word == "extra_high" ? 1 : 0;
}

std::string Session::petName(std::uint64_t shuffle) const {
    const std::uint64_t value = stableSeed(id) ^ (shuffle * 0x9e3779b97f4a7c15U);
    return std::string(petNames.at(value % petNames.size()));
}

} // namespace mimkins
