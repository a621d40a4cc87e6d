#include "Session/Mood.h"

namespace mimkins {

namespace {

struct Words {
    std::string_view caseName;
    std::string_view label;
};

constexpr std::array<Words, allMoods.size()> words{{
    {"working", "Working"},
    {"compacting", "Tidying up"},
    {"snag", "Hit a snag"},
    {"stuck", "Maybe stuck"},
    {"idle", "Idle"},
    {"needsPermission", "Needs your OK"},
    {"needsInput", "Needs your input"},
    {"question", "Has a question"},
    {"plan", "Plan to approve"},
    {"yourTurn", "New reply"},
    {"done", "Done"},
    {"commitWaiting", "Commit ready"},
    {"background", "In the background"},
}};

} // namespace

std::string_view label(Mood mood) {
    return words.at(static_cast<std::size_t>(mood)).label;
}

std::string_view caseName(Mood mood) {
    return words.at(static_cast<std::size_t>(mood)).caseName;
}

} // namespace mimkins
