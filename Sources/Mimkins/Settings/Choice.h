#pragma once

#include "Session/Session.h"

#include <array>
#include <cstddef>
#include <string_view>

/// The settings' named choices: their raw words, as stored, and the numbers that the rest of the system uses.
namespace mimkins {

/// How large pets are drawn.
enum class PetSize { small, medium, large };

/// How wide the drawer's panel is.
enum class DrawerWidth { narrow, regular, wide };

/// How fast pets move.
enum class Liveliness { calm, normal, hyper };

/// Which keys open the next session that waits.
enum class Hotkey { optCmdP, ctrlOptP, ctrlOptSpace, off };

template <typename Case>
struct NamedCase {
    Case value;
    std::string_view word;
};

/// Of each enumeration all cases in their order, with the words under which they are stored, and the case
/// that an unknown word stands for.
template <typename Case>
struct Choice;

template <>
struct Choice<PetSize> {
    static constexpr std::array<NamedCase<PetSize>, 3> cases{
        {{PetSize::small, "small"}, {PetSize::medium, "medium"}, {PetSize::large, "large"}}};
    static constexpr PetSize fallback = PetSize::medium;
};

template <>
struct Choice<DrawerWidth> {
    static constexpr std::array<NamedCase<DrawerWidth>, 3> cases{
        {{DrawerWidth::narrow, "narrow"}, {DrawerWidth::regular, "regular"}, {DrawerWidth::wide, "wide"}}};
    static constexpr DrawerWidth fallback = DrawerWidth::regular;
};

template <>
struct Choice<Liveliness> {
    static constexpr std::array<NamedCase<Liveliness>, 3> cases{
        {{Liveliness::calm, "calm"}, {Liveliness::normal, "normal"}, {Liveliness::hyper, "hyper"}}};
    static constexpr Liveliness fallback = Liveliness::normal;
};

template <>
struct Choice<ReorderMode> {
    static constexpr std::array<NamedCase<ReorderMode>, 3> cases{
        {{ReorderMode::always, "always"},
         {ReorderMode::whenNeeded, "whenNeeded"},
         {ReorderMode::never, "never"}}};
    static constexpr ReorderMode fallback = ReorderMode::whenNeeded;
};

template <>
struct Choice<Hotkey> {
    static constexpr std::array<NamedCase<Hotkey>, 4> cases{
        {{Hotkey::optCmdP, "optCmdP"},
         {Hotkey::ctrlOptP, "ctrlOptP"},
         {Hotkey::ctrlOptSpace, "ctrlOptSpace"},
         {Hotkey::off, "off"}}};
    static constexpr Hotkey fallback = Hotkey::optCmdP;
};

/// The word under which a case is stored.
template <typename Case>
constexpr std::string_view choiceWord(Case value) {
    return Choice<Case>::cases.at(static_cast<std::size_t>(value)).word;
}

/// The case of this word; for an unknown word the enumeration's fallback, so that what a later version writes
/// never fails.
template <typename Case>
constexpr Case choiceNamed(std::string_view word) {
    for (const auto& named : Choice<Case>::cases) {
        if (named.word == word) {
            return named.value;
        }
    }
    return Choice<Case>::fallback;
}

/// The side of a pet's square in points.
constexpr double points(PetSize size) {
    constexpr std::array sides{48.0, 62.0, 78.0};
    return sides.at(static_cast<std::size_t>(size));
}

/// The panel's width in points.
constexpr double points(DrawerWidth width) {
    constexpr std::array widths{280.0, 320.0, 380.0};
    return widths.at(static_cast<std::size_t>(width));
}

/// The multiplier on animation time.
constexpr double animationSpeed(Liveliness liveliness) {
    constexpr std::array speeds{0.6, 1.0, 1.7};
    return speeds.at(static_cast<std::size_t>(liveliness));
}

} // namespace mimkins
