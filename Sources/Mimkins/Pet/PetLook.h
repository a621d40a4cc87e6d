#pragma once

#include "Drawing/Color.h"

#include <cstdint>
#include <optional>

namespace mimkins {

/// How the pets of a view look and move.
struct PetLook {
    std::optional<double> hue;     ///< 0 to 1; absent gives each pet its own from its seed
    double saturation = 1;         ///< a factor
    double brightness = 1;         ///< a factor
    std::optional<Color> outline;  ///< of the limbs, and round the torso
    double speed = 1;              ///< a factor on the time of the animation
    bool antics = true;            ///< allows the optional routines
    bool party = false;            ///< every pet dances
    std::uint64_t shuffle = 0;     ///< mixed into every seed: another value gives other pets
    std::optional<int> forceTrick; ///< pins the idle routine

    friend bool operator==(const PetLook&, const PetLook&) = default;
};

} // namespace mimkins
