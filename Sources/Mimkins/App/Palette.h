#pragma once

#include <QImage>
#include <QRgb>

#include <array>
#include <cstdint>
#include <vector>

namespace mimkins {

/// The colours of pictures, gathered in small boxes of the colour cube.
class ColorCount {
public:
    /// Adds all pixels of a picture; their opacity counts for nothing.
    void add(const QImage& image);

    /// At most so many colours that stand for all that were added. None were: black alone.
    std::vector<QRgb> palette(std::size_t most) const;

    static constexpr int bits = 5; ///< of a box's place, per channel

    /// The box of a colour.
    static std::size_t box(QRgb color);

private:
    struct Box {
        std::array<std::uint64_t, 3> sum{}; ///< red, green and blue of its pixels
        std::uint64_t count = 0;
    };

    std::vector<Box> boxes_ = std::vector<Box>(std::size_t{1} << (3 * bits));
};

/// Finds the entry of a palette that is nearest to a colour.
class PaletteSearch {
public:
    explicit PaletteSearch(std::vector<QRgb> palette);

    std::uint8_t nearest(QRgb color);

    const std::vector<QRgb>& palette() const { return palette_; }

private:
    std::vector<QRgb> palette_;
    std::vector<std::int16_t> known_; ///< by the colour's upper six bits per channel; -1 where not looked for
};

} // namespace mimkins
