#include "PanelView/TabFrame.h"

#include "PanelView/ShiftedPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace mimkins {

namespace {

constexpr std::uint32_t full = 255;

/// Two channels, each in the lower half of 16 bits, at so many 255ths of their strength, rounded.
std::uint32_t fadedPair(std::uint32_t channels, std::uint32_t part) {
    constexpr std::uint32_t lower = 0xFF00FF;
    const std::uint32_t product = channels * part + 0x800080;
    return (product + (product >> 8 & lower)) >> 8 & lower; // a division by 255, exact up to its square
}

/// A pixel at so many 255ths of its strength.
std::uint32_t faded(std::uint32_t pixel, std::uint32_t part) {
    constexpr std::uint32_t lower = 0xFF00FF;
    return fadedPair(pixel & lower, part) | fadedPair(pixel >> 8 & lower, part) << 8;
}

std::uint32_t* row(QImage& picture, int y) {
    return reinterpret_cast<std::uint32_t*>(picture.scanLine(y));
}

const std::uint32_t* row(const QImage& picture, int y) {
    return reinterpret_cast<const std::uint32_t*>(picture.constScanLine(y));
}

void layOver(const QImage& above, std::uint32_t part, QImage& below) {
    const int width = below.width();
    const int height = below.height();
    for (int y = 0; y < height; ++y) {
        const auto* from = row(above, y);
        auto* to = row(below, y);
        for (int x = 0; x < width; ++x) {
            if (from[x] != 0) { // nearly all of the outline is clear
                const std::uint32_t light = faded(from[x], part);
                to[x] = light + faded(to[x], full - (light >> 24));
            }
        }
    }
}

} // namespace

const QImage& composed(const TabFrame& frame, TabFrameMemory& memory) {
    auto& glowing = memory.glowing;
    if (glowing.size() != frame.still.size()) {
        glowing = QImage(frame.still.size(), QImage::Format_ARGB32_Premultiplied);
    }
    glowing.setDevicePixelRatio(frame.still.devicePixelRatio());
    std::memcpy(glowing.bits(), frame.still.constBits(), static_cast<std::size_t>(glowing.sizeInBytes()));
    const auto part = std::lround(std::clamp(frame.opacity, 0.0, 1.0) * full);
    if (part > 0) {
        layOver(frame.outline, static_cast<std::uint32_t>(part), glowing);
    }
    if (frame.offset == 0) {
        return glowing;
    }
    shift(glowing, frame.offset, memory.shifted);
    return memory.shifted;
}

} // namespace mimkins
