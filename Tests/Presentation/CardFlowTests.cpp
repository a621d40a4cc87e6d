#include "Presentation/CardFlow.h"

#include <gtest/gtest.h>

namespace mimkins::test {

namespace {

using Manner = CardFlow::Manner;

CardFlow::Slot slot(const std::string& id, double height = 80) {
    return {id, height};
}

void settle(CardFlow& flow) {
    for (int frame = 0; frame < 1000 && flow.step(0.016); ++frame) {
    }
}

TEST(Spring, ComesToRestAtItsTarget) {
    Spring spring(0);
    spring.setTarget(100);
    int frames = 0;
    while (spring.step(0.016)) {
        ASSERT_LT(++frames, 200);
    }
    EXPECT_EQ(spring.value(), 100);
    EXPECT_TRUE(spring.atRest());
}

TEST(CardFlow, MovesWithTheFeelOfTheLastCall) {
    CardFlow flow;
    flow.arrange({slot("a", 80)}, Manner::jump);
    flow.arrange({slot("a", 180)}, Manner::glide, SpringFeel{0.35, 1});
    Spring alone(80);
    alone.setTarget(180);
    for (int frame = 0; frame < 10; ++frame) {
        flow.step(0.016);
        alone.step(0.016, {0.35, 1});
        EXPECT_DOUBLE_EQ(flow.find("a")->height(), alone.value());
    }
    flow.arrange({slot("a", 80)}, Manner::glide);
    alone.setTarget(80);
    flow.step(0.016);
    alone.step(0.016);
    EXPECT_DOUBLE_EQ(flow.find("a")->height(), alone.value());
}

TEST(Spring, SwingsALittleBeyondItsTarget) {
    Spring spring(0);
    spring.setTarget(100);
    double highest = 0;
    while (spring.step(0.004)) {
        highest = std::max(highest, spring.value());
    }
    // A damping fraction of 0.8 overshoots by exp(-pi * 0.8 / 0.6).
    EXPECT_NEAR(highest, 101.5, 0.1);
}

TEST(Spring, StepsOfAnyLengthLeadToTheSamePlace) {
    Spring fine(0);
    Spring coarse(0);
    fine.setTarget(100);
    coarse.setTarget(100);
    for (int step = 0; step < 10; ++step) {
        fine.step(0.01);
    }
    coarse.step(0.1);
    EXPECT_NEAR(fine.value(), coarse.value(), 1e-9);
    EXPECT_NEAR(fine.velocity(), coarse.velocity(), 1e-7);
}

TEST(Spring, NewTargetKeepsPlaceAndVelocity) {
    Spring spring(0);
    spring.setTarget(100);
    spring.step(0.1);
    const double value = spring.value();
    const double velocity = spring.velocity();
    spring.setTarget(0);
    EXPECT_EQ(spring.value(), value);
    EXPECT_EQ(spring.velocity(), velocity);
    spring.step(0.001);
    EXPECT_GT(spring.value(), value); // still on its way up
}

TEST(CardFlow, PutsCardsBelowOneAnother) {
    CardFlow flow;
    flow.arrange({slot("a"), slot("b", 100), slot("c")}, Manner::jump);
    EXPECT_EQ(flow.find("a")->y(), 12);
    EXPECT_EQ(flow.find("b")->y(), 12 + 80 + 10);
    EXPECT_EQ(flow.find("c")->y(), 12 + 80 + 10 + 100 + 10);
    EXPECT_EQ(flow.contentHeight(), 12 + 80 + 10 + 100 + 10 + 80 + 12);
    EXPECT_FALSE(flow.step(0.016));
}

TEST(CardFlow, CardsGlideWhenTheOrderChanges) {
    CardFlow flow;
    flow.arrange({slot("a"), slot("b")}, Manner::jump);
    flow.arrange({slot("b"), slot("a")}, Manner::glide);
    EXPECT_EQ(flow.find("a")->y(), 12);
    EXPECT_EQ(flow.find("a")->targetY(), 102);
    EXPECT_EQ(flow.find("b")->targetY(), 12);
    EXPECT_TRUE(flow.step(0.1));
    EXPECT_GT(flow.find("a")->y(), 12);
    EXPECT_LT(flow.find("a")->y(), 102);
    settle(flow);
    EXPECT_EQ(flow.find("a")->y(), 102);
    EXPECT_EQ(flow.find("b")->y(), 12);
}

TEST(CardFlow, InterruptedGlideGoesOnFromWhereItIs) {
    CardFlow flow;
    flow.arrange({slot("a"), slot("b")}, Manner::jump);
    flow.arrange({slot("b"), slot("a")}, Manner::glide);
    flow.step(0.1);
    const double before = flow.find("a")->y();
    flow.arrange({slot("a"), slot("b")}, Manner::glide);
    EXPECT_EQ(flow.find("a")->y(), before);
    settle(flow);
    EXPECT_EQ(flow.find("a")->y(), 12);
}

TEST(CardFlow, NewCardsFadeInFromTheSide) {
    CardFlow flow;
    flow.arrange({slot("a")}, Manner::jump);
    flow.arrange({slot("new"), slot("a")}, Manner::glide);
    EXPECT_EQ(flow.find("new")->y(), 12);
    EXPECT_EQ(flow.find("new")->opacity(), 0);
    EXPECT_EQ(flow.find("new")->offsetX(), CardFlow::sideways);
    settle(flow);
    EXPECT_EQ(flow.find("new")->opacity(), 1);
    EXPECT_EQ(flow.find("new")->offsetX(), 0);
}

TEST(CardFlow, LeavingCardsFadeOutAndAreGone) {
    CardFlow flow;
    flow.arrange({slot("a"), slot("b")}, Manner::jump);
    flow.arrange({slot("b")}, Manner::glide);
    ASSERT_NE(flow.find("a"), nullptr);
    EXPECT_TRUE(flow.find("a")->isLeaving());
    flow.step(0.1);
    EXPECT_LT(flow.find("a")->opacity(), 1);
    settle(flow);
    EXPECT_EQ(flow.find("a"), nullptr);
    EXPECT_EQ(flow.find("b")->y(), 12);
}

TEST(CardFlow, LeavingCardThatReturnsComesBackFromWhereItIs) {
    CardFlow flow;
    flow.arrange({slot("a")}, Manner::jump);
    flow.arrange({}, Manner::glide);
    flow.step(0.1);
    const double opacity = flow.find("a")->opacity();
    flow.arrange({slot("a")}, Manner::glide);
    EXPECT_EQ(flow.find("a")->opacity(), opacity);
    settle(flow);
    EXPECT_EQ(flow.find("a")->opacity(), 1);
    EXPECT_EQ(flow.places().size(), 1U);
}

TEST(CardFlow, JumpDropsWhatLeaves) {
    CardFlow flow;
    flow.arrange({slot("a"), slot("b")}, Manner::jump);
    flow.arrange({slot("b")}, Manner::jump);
    EXPECT_EQ(flow.find("a"), nullptr);
    EXPECT_EQ(flow.contentHeight(), 12 + 80 + 12);
    flow.arrange({}, Manner::jump);
    EXPECT_EQ(flow.contentHeight(), 0);
}

TEST(CardFlow, FinishBringsEverythingToItsPlace) {
    CardFlow flow;
    flow.arrange({slot("a"), slot("b")}, Manner::jump);
    flow.arrange({slot("b"), slot("c", 120)}, Manner::glide);
    flow.finish();
    EXPECT_EQ(flow.find("a"), nullptr);
    EXPECT_EQ(flow.find("c")->opacity(), 1);
    EXPECT_EQ(flow.find("c")->y(), 102);
    EXPECT_FALSE(flow.step(0.016));
}

TEST(CardFlow, HeightsChangeSmoothly) {
    CardFlow flow;
    flow.arrange({slot("a", 80), slot("b")}, Manner::jump);
    flow.arrange({slot("a", 120), slot("b")}, Manner::glide);
    EXPECT_EQ(flow.find("a")->height(), 80);
    settle(flow);
    EXPECT_EQ(flow.find("a")->height(), 120);
    EXPECT_EQ(flow.find("b")->y(), 12 + 120 + 10);
}

} // namespace

} // namespace mimkins::test
