#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace mimkins {

/// What a pet acts out.
enum class PetAction : std::uint8_t {
    typing,
    hammering,
    reading,
    searching,
    delegating,
    thinking,
    tidying,
    snag,
    waving,
    raisingHand,
    holdingPlan,
    yourTurn,
    resting,
    sleeping,
    idle,
    party,
    presenting,
    waitingOut,
    supervising,
    vacuuming,
    conducting,
    parachuting,
};

inline constexpr std::size_t petActionCount = 22;

/// Every action with the name it goes by outside of the program.
std::string_view name(PetAction action);

/// Nothing for a name that no action has.
std::optional<PetAction> petActionNamed(std::string_view name);

/// True for the actions that are shown at half the frame rate.
bool isCalm(PetAction action);

/// What the use of a tool looks like. The detail is what the tool was asked to do, and counts for "Bash"
/// alone.
PetAction petActionForTool(std::optional<std::string_view> tool, std::optional<std::string_view> detail);

} // namespace mimkins
