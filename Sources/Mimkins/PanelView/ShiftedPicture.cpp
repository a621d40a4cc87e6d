#include "PanelView/ShiftedPicture.h"

#include <cmath>
#include <cstdint>

namespace mimkins {

namespace {

/// Two pixels in parts of 256, channel by channel.
std::uint32_t mixed(std::uint32_t left, std::uint32_t right, std::uint32_t ofLeft) {
    const std::uint32_t ofRight = 256 - ofLeft;
    const auto channels = [=](std::uint32_t first, std::uint32_t second) {
        return ((first & 0xFF00FFU) * ofLeft + (second & 0xFF00FFU) * ofRight) >> 8 & 0xFF00FFU;
    };
    return channels(left, right) | channels(left >> 8, right >> 8) << 8;
}

} // namespace

void shift(const QImage& picture, double points, QImage& result) {
    const double pixels = points * picture.devicePixelRatio();
    const int whole = static_cast<int>(std::floor(pixels));
    const auto ofLeft = static_cast<std::uint32_t>(std::lround((pixels - whole) * 256));
    if (result.size() != picture.size() || result.format() != picture.format()) {
        result = QImage(picture.size(), picture.format());
    }
    result.setDevicePixelRatio(picture.devicePixelRatio());
    const int width = picture.width();
    for (int y = 0; y < picture.height(); ++y) {
        const auto* from = reinterpret_cast<const std::uint32_t*>(picture.constScanLine(y));
        auto* to = reinterpret_cast<std::uint32_t*>(result.scanLine(y));
        const auto at = [from, width](int x) { return x >= 0 && x < width ? from[x] : 0U; };
        for (int x = 0; x < width; ++x) {
            to[x] = mixed(at(x - whole - 1), at(x - whole), ofLeft);
        }
    }
}

} // namespace mimkins
