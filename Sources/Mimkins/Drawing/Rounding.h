#pragma once

#include <cstdint>

namespace mimkins {

/// The nearest whole number to one that isn't negative. The rasteriser does this for every pixel, where a
/// call of the library's own rounding shows in the profile; below zero, cutting off would round the wrong
/// way.
inline std::uint32_t nearestWhole(float value) {
    return static_cast<std::uint32_t>(value + 0.5F); // NOLINT(bugprone-incorrect-roundings)
}

} // namespace mimkins
