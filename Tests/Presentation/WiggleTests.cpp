#include "Presentation/Wiggle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace mimkins::test {

namespace {

TEST(WiggleOffset, IsAShakeThatDiesAwayWithinHalfASecond) {
    for (const double start : {0.0, 2.2, 22.0}) {
        for (int step = 0; step < 220; ++step) {
            const double t = step * 0.01;
            const double expected = t < 0.5 ? 2 * (0.5 - t) * 3 * std::sin(40 * t) : 0;
            EXPECT_NEAR(wiggleOffset(start + t), expected, 1e-6) << start << " " << t;
        }
    }
}

TEST(WiggleOffset, BeginsAndEndsWithoutAJump) {
    EXPECT_EQ(wiggleOffset(0), 0);
    EXPECT_NEAR(wiggleOffset(0.4999), 0, 0.001);
    EXPECT_EQ(wiggleOffset(0.5), 0);
    EXPECT_EQ(wiggleOffset(2.1), 0);
}

TEST(NextWiggle, IsAFrameWhileItShakesAndElseTheNextShake) {
    EXPECT_DOUBLE_EQ(nextWiggle(0), 1.0 / 30);
    EXPECT_DOUBLE_EQ(nextWiggle(0.49), 1.0 / 30);
    EXPECT_DOUBLE_EQ(nextWiggle(0.5), 1.7);
    EXPECT_NEAR(nextWiggle(2.1), 0.1, 1e-9);
    EXPECT_NEAR(nextWiggle(8.8 + 2), 0.2, 1e-9);
    EXPECT_DOUBLE_EQ(nextWiggle(std::nextafter(2.2, 0)), 1.0 / 30);
}

TEST(WiggleOffset, GoesBothWaysAndNeverFar) {
    double least = 0;
    double most = 0;
    for (int step = 0; step < 500; ++step) {
        least = std::min(least, wiggleOffset(step * 0.001));
        most = std::max(most, wiggleOffset(step * 0.001));
    }
    EXPECT_LT(least, -2);
    EXPECT_GT(most, 2);
    EXPECT_GT(least, -3);
    EXPECT_LT(most, 3);
}

} // namespace

} // namespace mimkins::test
