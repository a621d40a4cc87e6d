#include "Demo/Schedule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace mimkins::demo {

namespace {

std::size_t stepsOfADay() {
    std::size_t count = 0;
    for (const Act* act : dayOf(0)) {
        count += act->steps.size();
    }
    return count;
}

/// Real seconds until the last member's first day is over.
double firstDays(const Schedule& schedule) {
    const double arrivals = static_cast<double>(schedule.sessions - 1) * schedule.betweenStarts;
    return (script().length() + arrivals) / schedule.speed;
}

} // namespace

TEST(DemoScript, ActsAreInTheOrderOfTimeAndFitTheirLength) {
    for (const Act* act : dayOf(0)) {
        double last = 0;
        for (const auto& step : act->steps) {
            EXPECT_GE(step.at, last) << act->name;
            last = step.at;
        }
        EXPECT_LT(last, act->length) << act->name;
    }
}

TEST(DemoScript, WhatEndsHasBegunBefore) {
    using enum Deed;
    const std::set<Deed> followers{returns,         fails,        asks,         reminds,       grants,
                                   subagentReturns, subagentAsks, subagentEnds, backgroundEnds};
    for (const Act* act : dayOf(0)) {
        for (const auto& step : act->steps) {
            if (followers.contains(step.deed)) {
                const Step* begun = opening(*act, step.key);
                ASSERT_NE(begun, nullptr) << act->name << " " << step.key;
                EXPECT_LT(begun->at, step.at) << act->name << " " << step.key;
            }
        }
    }
}

TEST(DemoScript, EveryCallHasAResult) {
    for (const Act* act : dayOf(0)) {
        for (const auto& step : act->steps) {
            if (step.deed != Deed::calls && step.deed != Deed::subagentCalls) {
                continue;
            }
            EXPECT_TRUE(std::any_of(
                act->steps.begin(), act->steps.end(),
                [&step](const Step& other) {
                    return other.key == step.key &&
                           (other.deed == Deed::returns || other.deed == Deed::fails ||
                            other.deed == Deed::subagentReturns);
                }
            )) << act->name
               << " " << step.key;
        }
    }
}

TEST(DemoSchedule, NeighboursBeginWithDifferentActs) {
    std::set<std::string> first;
    for (std::size_t member = 0; member < script().acts.size(); ++member) {
        first.insert(dayOf(member).at(1)->name);
    }
    EXPECT_EQ(first.size(), script().acts.size());
}

TEST(DemoSchedule, WindowsPutTogetherAreTheWhole) {
    const Schedule schedule{3, 600, 15};
    const double end = firstDays(schedule) * 2.5;
    const auto whole = happenings(schedule, 0, end);
    std::vector<Happening> pieces;
    constexpr double window = 0.37;
    for (double from = 0; from < end; from += window) {
        const auto piece = happenings(schedule, from, std::min(from + window, end));
        pieces.insert(pieces.end(), piece.begin(), piece.end());
    }
    const auto byMemberAndTime = [](const Happening& left, const Happening& right) {
        return std::tie(left.appearance.member, left.at) < std::tie(right.appearance.member, right.at);
    };
    ASSERT_EQ(pieces.size(), whole.size());
    auto sorted = whole;
    std::stable_sort(sorted.begin(), sorted.end(), byMemberAndTime);
    std::stable_sort(pieces.begin(), pieces.end(), byMemberAndTime);
    EXPECT_EQ(pieces, sorted);
}

TEST(DemoSchedule, IsInTheOrderOfTime) {
    const auto all = happenings({20, 60, 15}, 10, 90);
    ASSERT_FALSE(all.empty());
    EXPECT_GE(all.front().at, 10);
    EXPECT_LT(all.back().at, 90);
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end(), [](const auto& left, const auto& right) {
        return left.at < right.at;
    }));
}

TEST(DemoSchedule, DoubleSpeedHalvesTheTimes) {
    const auto slow = happenings({4, 60, 15}, 0, 100);
    const auto fast = happenings({4, 120, 15}, 0, 50);
    ASSERT_EQ(slow.size(), fast.size());
    for (std::size_t index = 0; index < slow.size(); ++index) {
        EXPECT_DOUBLE_EQ(slow[index].at, 2 * fast[index].at);
        EXPECT_EQ(slow[index].step, fast[index].step);
    }
}

TEST(DemoSchedule, GrowsWithTheCrewAndNoMore) {
    for (const std::size_t sessions : {1U, 10U, 100U, 1'000U}) {
        const Schedule schedule{sessions, 60, 0};
        EXPECT_EQ(happenings(schedule, 0, firstDays(schedule)).size(), sessions * stepsOfADay());
    }
}

TEST(DemoSchedule, EachDayIsASessionOfItsOwn) {
    const Schedule schedule{1, 600, 15};
    const auto all = happenings(schedule, 0, 3 * firstDays(schedule));
    std::set<std::size_t> days;
    for (const auto& happening : all) {
        days.insert(happening.appearance.day);
    }
    EXPECT_EQ(days, (std::set<std::size_t>{0, 1, 2}));
    const Paths paths("/home/demo");
    EXPECT_NE(roleOf({0, 0}, paths).id, roleOf({0, 1}, paths).id);
}

TEST(DemoRole, EveryFourthSharesTheProjectOfTheOneBefore) {
    const Paths paths("/home/demo");
    std::set<std::string> ids;
    for (std::size_t member = 0; member < 1'000; ++member) {
        ids.insert(roleOf({member, 0}, paths).id);
    }
    EXPECT_EQ(ids.size(), 1'000U);
    EXPECT_EQ(roleOf({3, 0}, paths).folder, roleOf({2, 0}, paths).folder);
    EXPECT_NE(roleOf({4, 0}, paths).folder, roleOf({3, 0}, paths).folder);
    EXPECT_NE(roleOf({14, 0}, paths).folder, roleOf({2, 0}, paths).folder);
    EXPECT_EQ(
        roleOf({0, 0}, paths).transcript, "/home/demo/.claude/projects/-home-demo-Projects-weather-station/" +
                                              roleOf({0, 0}, paths).id + ".jsonl"
    );
}

} // namespace mimkins::demo
