#pragma once

#include "Drawing/GraphicsContext.h"
#include "Pet/PetLook.h"

#include <cstdint>

namespace mimkins {

/// A tiny head, 13 points wide and 12 high, for a crowd.
struct MiniHead {
    std::uint64_t seed = 0;
    int boost = 0; ///< 1 wears a band, 2 a halo above the head

    static constexpr double width = 13;
    static constexpr double height = 12;

    /// 0 to 1; a little more where the look fixes a hue near 1.
    double hue(const PetLook& look) const;

    /// Draws it with its top left corner at the origin.
    void draw(GraphicsContext& context, const PetLook& look) const;

    friend bool operator==(const MiniHead&, const MiniHead&) = default;
};

} // namespace mimkins
