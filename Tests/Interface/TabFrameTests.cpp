#include "PanelView/EdgeTab.h"
#include "PanelView/TabFrame.h"

#include "Support/ManualRunLoop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace mimkins::test {

namespace {

QImage rowOf(const std::vector<std::uint32_t>& pixels, double ratio = 1) {
    QImage picture(static_cast<int>(pixels.size()), 1, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    std::copy(pixels.begin(), pixels.end(), reinterpret_cast<std::uint32_t*>(picture.scanLine(0)));
    return picture;
}

std::vector<std::uint32_t> pixelsOf(const QImage& picture) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(picture.constScanLine(0));
    return {row, row + picture.width()};
}

std::vector<std::uint32_t> frameOf(const TabFrame& frame) {
    TabFrameMemory memory;
    return pixelsOf(composed(frame, memory));
}

using Pixels = std::vector<std::uint32_t>;

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t blue = 0xFF0000FF;
constexpr std::uint32_t halfBlue = 0x80000080;

TEST(TabFrame, WithoutGlowItIsTheStillPicture) {
    EXPECT_EQ(
        frameOf({rowOf({red, halfBlue, 0}), rowOf({blue, blue, blue}), 0, 0}), (Pixels{red, halfBlue, 0})
    );
}

TEST(TabFrame, GlowLiesOverTheRest) {
    const QImage still = rowOf({red, red, 0, 0});
    const QImage outline = rowOf({blue, 0, blue, halfBlue});
    EXPECT_EQ(frameOf({still, outline, 1, 0}), (Pixels{blue, red, blue, halfBlue}));
    EXPECT_EQ(frameOf({still, outline, 0.2, 0}), (Pixels{0xFFCC0033, red, 0x33000033, 0x1A00001A}));
    EXPECT_EQ(frameOf({rowOf({red}), rowOf({halfBlue}), 1, 0}), (Pixels{0xFF7F0080}));
}

TEST(TabFrame, OpacityOutsideItsRangeCountsAsItsEnd) {
    EXPECT_EQ(frameOf({rowOf({red}), rowOf({blue}), 3, 0}), (Pixels{blue}));
    EXPECT_EQ(frameOf({rowOf({red}), rowOf({blue}), -3, 0}), (Pixels{red}));
}

TEST(TabFrame, AllOfItShakes) {
    EXPECT_EQ(frameOf({rowOf({red, 0, 0}), rowOf({0, blue, 0}), 1, 1}), (Pixels{0, red, blue}));
    EXPECT_EQ(frameOf({rowOf({red, 0, 0}, 2), rowOf({0, blue, 0}, 2), 1, 0.5}), (Pixels{0, red, blue}));
    EXPECT_EQ(frameOf({rowOf({red, 0}), rowOf({0, 0}), 1, 0.5}), (Pixels{0x7F7F0000, 0x7F7F0000}));
}

TEST(TabFrame, EveryMixtureKeepsPremultiplied) {
    for (std::uint32_t below = 0; below < 256; below += 5) {
        for (std::uint32_t above = 0; above < 256; above += 5) {
            const QImage still = rowOf({below * 0x01010101U});
            const QImage outline = rowOf({above * 0x01010101U});
            for (const double opacity : {0.3, 0.5, 0.77, 1.0}) {
                const auto pixel = frameOf({still, outline, opacity, 0}).front();
                const auto alpha = pixel >> 24;
                EXPECT_LE(pixel & 255, alpha);
                EXPECT_GE(alpha, below);
            }
        }
    }
}

TEST(TabFrame, MemoryIsUsedAgain) {
    TabFrameMemory memory;
    composed({rowOf({red, red}), rowOf({0, 0}), 1, 1}, memory);
    const auto* glowing = std::as_const(memory.glowing).constBits();
    const auto* shifted = std::as_const(memory.shifted).constBits();
    EXPECT_EQ(pixelsOf(composed({rowOf({blue, 0}), rowOf({0, 0}), 1, 1}, memory)), (Pixels{0, blue}));
    EXPECT_EQ(std::as_const(memory.glowing).constBits(), glowing);
    EXPECT_EQ(std::as_const(memory.shifted).constBits(), shifted);
    const auto& finer = composed({rowOf({blue, 0, 0}, 1.5), rowOf({0, 0, 0}, 1.5), 1, 0}, memory);
    EXPECT_EQ(pixelsOf(finer), (Pixels{blue, 0, 0}));
    EXPECT_EQ(finer.devicePixelRatio(), 1.5);
}

class PaintCounter final : public QObject {
public:
    int paints = 0;

    bool eventFilter(QObject* watched, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

class TabFrames : public testing::Test {
protected:
    TabFrames() {
        tab.onFrame = [this](const QImage& frame) {
            frames.push_back(frame.copy());
            return canShow;
        };
        tab.installEventFilter(&counter);
    }

    void show(const EdgeTab::Content& content) {
        tab.setContent(content);
        tab.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&tab));
        settle();
        frames.clear();
        counter.paints = 0;
    }

    void settle() { QCoreApplication::processEvents(); }

    /// Moves on until the tab is drawn beside its place.
    void untilItShakes() {
        for (int step = 0; step < 100 && tab.offset() == 0; ++step) {
            loop.advance(1.0 / 30);
        }
        ASSERT_NE(tab.offset(), 0);
    }

    ManualRunLoop loop;
    EdgeTab tab{loop};
    PaintCounter counter;
    std::vector<QImage> frames;
    bool canShow = true;
};

constexpr EdgeTabBadge blocked{true, 2};
constexpr EdgeTabBadge replies{false, 3};

TEST_F(TabFrames, MotionGoesPastTheToolkit) {
    show({blocked, false, true});
    for (int step = 0; step < 60; ++step) {
        loop.advance(1.0 / 30);
        settle();
    }
    EXPECT_GE(frames.size(), 20U);
    EXPECT_EQ(counter.paints, 0);
}

TEST_F(TabFrames, ToolkitPaintsWhatCannotBeShownAtOnce) {
    canShow = false;
    show({blocked, false, false});
    for (int step = 1; step <= 3; ++step) {
        loop.advance(0.1);
        settle();
        EXPECT_EQ(counter.paints, step);
    }
}

TEST_F(TabFrames, EachIsWhatTheToolkitPaintsAtItsMoment) {
    show({blocked, false, true});
    loop.advance(0.4);
    ASSERT_FALSE(frames.empty());
    EXPECT_EQ(frames.back(), tab.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied));
    untilItShakes();
    EXPECT_EQ(frames.back(), tab.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied));
    EXPECT_NE(frames.back(), frames.front());
}

TEST_F(TabFrames, ToolkitPaintsTheEnd) {
    show({blocked, false, true});
    untilItShakes();
    tab.setContent({replies, false, true});
    settle();
    EXPECT_EQ(counter.paints, 1);
    frames.clear();
    loop.advance(3);
    EXPECT_TRUE(frames.empty());
}

TEST_F(TabFrames, ToolkitPaintsTheRestWhileTheGlowGoesOn) {
    show({blocked, false, true});
    untilItShakes();
    tab.setContent({blocked, false, false});
    settle();
    EXPECT_EQ(counter.paints, 1);
    EXPECT_EQ(tab.offset(), 0);
}

TEST_F(TabFrames, ToolkitPaintsOnceWhenItIsCovered) {
    show({blocked, false, true});
    untilItShakes();
    tab.setCovered(true);
    settle();
    EXPECT_EQ(counter.paints, 1);
    frames.clear();
    loop.advance(3);
    EXPECT_TRUE(frames.empty());
}

TEST_F(TabFrames, HiddenOneShowsNone) {
    show({blocked, false, true});
    tab.hide();
    frames.clear();
    loop.advance(3);
    EXPECT_TRUE(frames.empty());
}

} // namespace

} // namespace mimkins::test
