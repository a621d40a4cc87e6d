#include "Presentation/CardScale.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace mimkins::test {

namespace {

TEST(CardScale, PressDipsAndComesBack) {
    CardScale scale;
    scale.press();
    EXPECT_TRUE(scale.isMoving());
    scale.step(0.04);
    EXPECT_LT(scale.value(), 0.985); // more than half the way in half the time
    EXPECT_GT(scale.value(), 0.97);
    scale.step(0.04);
    EXPECT_DOUBLE_EQ(scale.value(), 0.97);
    double most = 0;
    while (scale.step(0.01)) {
        most = std::max(most, scale.value());
    }
    EXPECT_LE(most, 1);
    EXPECT_EQ(scale.value(), 1);
    EXPECT_FALSE(scale.isMoving());
}

TEST(CardScale, HighlightOvershootsAndStays) {
    CardScale scale;
    scale.setHighlighted(true);
    double most = 0;
    while (scale.step(0.01)) {
        most = std::max(most, scale.value());
    }
    EXPECT_GT(most, 1.033);
    EXPECT_EQ(scale.value(), 1.03);
    scale.press();
    scale.step(0.08);
    EXPECT_DOUBLE_EQ(scale.value(), 0.97);
    scale.finish();
    EXPECT_EQ(scale.value(), 1.03);
    EXPECT_FALSE(scale.isMoving());
}

TEST(CardScale, HighlightDuringAPressHoldsAfterIt) {
    CardScale scale;
    scale.press();
    scale.step(0.02);
    scale.setHighlighted(true);
    while (scale.step(0.01)) {
    }
    EXPECT_EQ(scale.value(), 1.03);
}

TEST(Spring, WithFullDampingNeverGoesPastItsTarget) {
    for (const double step : {0.001, 0.016, 0.3}) {
        Spring spring(0);
        spring.setGrain(1e-6);
        spring.setTarget(10);
        double before = 0;
        while (spring.step(step, {0.35, 1})) {
            EXPECT_GE(spring.value(), before);
            EXPECT_LE(spring.value(), 10);
            before = spring.value();
        }
        EXPECT_EQ(spring.value(), 10);
    }
}

TEST(Spring, StepsOfAnyLengthLeadToTheSamePlaceWithFullDamping) {
    Spring fine(0);
    Spring coarse(0);
    fine.setTarget(1);
    coarse.setTarget(1);
    fine.setGrain(1e-9);
    coarse.setGrain(1e-9);
    for (int count = 0; count < 100; ++count) {
        fine.step(0.001, {0.3, 1});
    }
    coarse.step(0.1, {0.3, 1});
    EXPECT_NEAR(fine.value(), coarse.value(), 1e-9);
    EXPECT_NEAR(fine.velocity(), coarse.velocity(), 1e-8);
}

} // namespace

} // namespace mimkins::test
