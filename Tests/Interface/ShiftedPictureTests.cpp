#include "PanelView/ShiftedPicture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace mimkins::test {

namespace {

QImage rowOf(const std::vector<std::uint32_t>& pixels, double ratio = 1) {
    QImage picture(static_cast<int>(pixels.size()), 1, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        reinterpret_cast<std::uint32_t*>(picture.scanLine(0))[x] = pixels[x];
    }
    return picture;
}

std::vector<std::uint32_t> pixelsOf(const QImage& picture) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(picture.constScanLine(0));
    return {row, row + picture.width()};
}

QImage shifted(const QImage& picture, double points) {
    QImage result;
    shift(picture, points, result);
    return result;
}

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t blue = 0xFF0000FF;

TEST(ShiftedPicture, WholePixelsAreMoved) {
    const QImage picture = rowOf({red, blue, 0, 0});
    EXPECT_EQ(pixelsOf(shifted(picture, 1)), (std::vector<std::uint32_t>{0, red, blue, 0}));
    EXPECT_EQ(pixelsOf(shifted(picture, -1)), (std::vector<std::uint32_t>{blue, 0, 0, 0}));
    EXPECT_EQ(pixelsOf(shifted(picture, 9)), (std::vector<std::uint32_t>{0, 0, 0, 0}));
}

TEST(ShiftedPicture, BetweenTwoPixelsBothHaveTheirShare) {
    const QImage picture = rowOf({0, red, blue, 0});
    EXPECT_EQ(
        pixelsOf(shifted(picture, 0.5)), (std::vector<std::uint32_t>{0, 0x7F7F0000, 0xFF7F007F, 0x7F00007F})
    );
    EXPECT_EQ(
        pixelsOf(shifted(picture, -0.25)), (std::vector<std::uint32_t>{0x3F3F0000, 0xFFBF003F, 0xBF0000BF, 0})
    );
}

TEST(ShiftedPicture, PointsAreMoreThanPixelsOnAFineScreen) {
    const QImage moved = shifted(rowOf({red, blue, 0, 0}, 2), 0.5);
    EXPECT_EQ(pixelsOf(moved), (std::vector<std::uint32_t>{0, red, blue, 0}));
    EXPECT_EQ(moved.devicePixelRatio(), 2);
}

TEST(ShiftedPicture, MemoryIsUsedAgainIfItFits) {
    QImage result;
    shift(rowOf({red, red, red, red}), 0.5, result);
    const auto* memory = std::as_const(result).constBits();
    shift(rowOf({blue, 0, 0, 0}), 1, result);
    EXPECT_EQ(std::as_const(result).constBits(), memory);
    EXPECT_EQ(pixelsOf(result), (std::vector<std::uint32_t>{0, blue, 0, 0}));
    shift(rowOf({blue, 0}), 1, result);
    EXPECT_EQ(pixelsOf(result), (std::vector<std::uint32_t>{0, blue}));
}

} // namespace

} // namespace mimkins::test
