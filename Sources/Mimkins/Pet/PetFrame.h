#pragma once

#include "Base/Date.h"
#include "Drawing/Color.h"
#include "Pet/PetAction.h"
#include "Pet/PetLook.h"

#include <cstdint>
#include <optional>

namespace mimkins {

/// What is known of a pet, apart from how it looks.
struct Pet {
    PetAction action = PetAction::idle;
    std::uint64_t seed = 0;       ///< its identity
    Date since;                   ///< when the present state began
    int effort = 0;               ///< 0 ordinary, 1 high, 2 top
    bool waitingOnKeeper = false; ///< a person holds the session up

    friend bool operator==(const Pet&, const Pet&) = default;
};

struct PetColors {
    Color top;    ///< of the torso's gradient
    Color bottom; ///< of the torso's gradient
    Color limb;
    Color hand;
    Color accent; ///< of props, in contrast to the body
    Color ink;    ///< of eyes and mouth
    Color paper;  ///< of bubbles and light props
};

/// A slot of the clock: what was chosen for it, and the seconds already spent in it.
struct SlotChoice {
    int index = 0;
    double phase = 0;
};

/// A pet at one moment, before anything is drawn: all that follows from clock, seed, look and state.
struct PetFrame {
    std::uint64_t seed = 0; ///< mixed with the look's shuffle
    double t = 0;           ///< the clock of the animation in seconds, scaled by the look's speed
    double elapsed = 0;     ///< real seconds in the present state
    double blinkOffset = 0; ///< 0 to 3.9
    double hue = 0;         ///< of the body; may lie a little above 1
    std::optional<Color> outline;
    bool antics = true;
    std::optional<int> forceTrick;
    int effort = 0;
    bool waitingOnKeeper = false;
    PetColors colors;

    /// What the seed chooses, from 0 to `count` - 1, for the slot of `every` seconds in which `t` lies.
    /// Different salts choose independently on the same clock. Ends the process if `count` isn't positive or
    /// `t / every` isn't a number of 64 bits.
    SlotChoice choose(int count, double every, std::uint64_t salt) const;
};

/// Seconds from 1 January 1970 to the reference date of the animation clock, 1 January 2001.
inline constexpr double animationReference = 978'307'200;

PetFrame petFrame(const Pet& pet, const PetLook& look, Date date);

/// The action on stage: a party overrides all others.
PetAction actionOnStage(const Pet& pet, const PetLook& look);

} // namespace mimkins
