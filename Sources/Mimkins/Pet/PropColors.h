#pragma once

#include "Drawing/Color.h"

/// Colours of things that pets of several families hold.
namespace mimkins::prop {

inline constexpr Color brown{0.55, 0.38, 0.22};
inline constexpr Color darkBrown{0.36, 0.23, 0.13};

} // namespace mimkins::prop
