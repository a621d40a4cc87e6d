#pragma once

#include "Drawing/Shading.h"
#include "Drawing/Transform.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace mimkins {

/// The colours of a shading, pixel by pixel: 0xAARRGGBB, premultiplied.
class ShadingSpans {
public:
    /// False if nothing of it can be seen. The map leads from the shading's coordinates to pixels.
    bool begin(const Shading& shading, ColorScheme scheme, const Transform& map, double opacity);

    /// The one colour of a row, if it has one.
    std::optional<std::uint32_t> plainRow(int y) const;

    /// The colours of so many pixels of a row from a column on. Valid until the next call.
    std::span<const std::uint32_t> row(int x, int y, std::size_t count);

private:
    enum class Kind { plain, linear, radial, angular };

    std::uint32_t colorAt(double place) const;
    void fillTable();
    void takeStops(const Gradient& gradient, ColorScheme scheme, double opacity);

    struct Stop {
        float red = 0;
        float green = 0;
        float blue = 0;
        float alpha = 0;
    };

    static Stop stopOf(const Color& color, ColorScheme scheme, double opacity);
    static std::uint32_t packed(const Stop& stop);

    Kind kind_ = Kind::plain;
    std::uint32_t plain_ = 0;
    Transform back_; ///< from pixels to where the gradient runs
    double start_ = 0;
    double span_ = 1;
    std::vector<Stop> stops_;
    std::array<std::uint32_t, 256> table_{}; ///< the colours from place 0 to place 1
    bool tableIsFilled_ = false;
    std::vector<std::uint32_t> pixels_;
};

} // namespace mimkins
