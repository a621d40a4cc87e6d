#pragma once

#include "Theme/PetTheme.h"

/// The themes one by one.
namespace mimkins::catalogue {

constexpr Color rgb(double red, double green, double blue, double opacity = 1) {
    return {red, green, blue, opacity};
}

PetTheme classic();
PetTheme night();
PetTheme paper();
PetTheme pastel();
PetTheme midnight();
PetTheme forest();
PetTheme ocean();
PetTheme sunset();
PetTheme terminal();
PetTheme synthwave();

} // namespace mimkins::catalogue
