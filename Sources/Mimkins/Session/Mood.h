#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace mimkins {

/// What a session is up to. The order is stable: ranges of it have a meaning.
enum class Mood : std::uint8_t {
    working,
    compacting,
    snag,
    stuck,
    idle,
    needsPermission,
    needsInput,
    question,
    plan,
    yourTurn,
    done,
    commitWaiting,
    background,
};

inline constexpr std::array allMoods{
    Mood::working,    Mood::compacting, Mood::snag, Mood::stuck,    Mood::idle, Mood::needsPermission,
    Mood::needsInput, Mood::question,   Mood::plan, Mood::yourTurn, Mood::done, Mood::commitWaiting,
    Mood::background,
};

/// The state's name as people read it, such as "Needs your OK".
std::string_view label(Mood mood);

/// The case's name, such as "needsPermission".
std::string_view caseName(Mood mood);

/// True for `needsPermission` to `plan`: the agent can't go on without the user.
constexpr bool waitsOnUser(Mood mood) {
    return mood >= Mood::needsPermission && mood <= Mood::plan;
}

/// True if the session waits on the user or has lines to commit: what the summary and the count show.
constexpr bool wantsAttention(Mood mood) {
    return waitsOnUser(mood) || mood == Mood::commitWaiting;
}

} // namespace mimkins
