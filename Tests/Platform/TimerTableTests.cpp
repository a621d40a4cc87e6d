#include "Platform/Linux/TimerTable.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace mimkins;
using namespace std::chrono_literals;

namespace {

constexpr TimerTable::Moment start{1000s};
constexpr TimerTable::Span once = 0s;

} // namespace

TEST(TimerTable, SpanIsNeverNegativeAndNeverOverflows) {
    EXPECT_EQ(TimerTable::span(0.25), 250ms);
    EXPECT_EQ(TimerTable::span(-3), 0s);
    EXPECT_EQ(TimerTable::span(std::numeric_limits<double>::quiet_NaN()), 0s);
    EXPECT_EQ(TimerTable::span(std::numeric_limits<double>::infinity()), 30 * 365 * 24h);
    EXPECT_EQ(TimerTable::span(1e300), 30 * 365 * 24h);
}

TEST(TimerTable, RunsWhatIsDueInTheOrderOfTheMoments) {
    TimerTable timers;
    std::string order;
    timers.add(start, 3s, once, [&] { order += "c"; });
    timers.add(start, 1s, once, [&] { order += "a"; });
    timers.add(start, 1s, once, [&] { order += "b"; });
    timers.add(start, 4s, once, [&] { order += "d"; });
    EXPECT_EQ(timers.earliest(), start + 1s);
    timers.runDue(start + 999ms);
    EXPECT_EQ(order, "");
    timers.runDue(start + 3s);
    EXPECT_EQ(order, "abc");
    timers.runDue(start + 3s);
    EXPECT_EQ(order, "abc");
    EXPECT_EQ(timers.earliest(), start + 4s);
}

TEST(TimerTable, RepeatingTimerKeepsItsRhythmAndLeavesOutWhatWasMissed) {
    TimerTable timers;
    int runs = 0;
    timers.add(start, 2s, 2s, [&] { ++runs; });
    timers.runDue(start + 2500ms);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(timers.earliest(), start + 4s);
    timers.runDue(start + 11s);
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(timers.earliest(), start + 12s);
    timers.runDue(start + 12s);
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(timers.earliest(), start + 14s);
}

TEST(TimerTable, RemovedTimersDontRun) {
    TimerTable timers;
    int runs = 0;
    const auto single = timers.add(start, 1s, once, [&] { ++runs; });
    const auto repeating = timers.add(start, 1s, 1s, [&] { ++runs; });
    timers.remove(single);
    timers.remove(repeating);
    timers.remove(repeating);
    timers.runDue(start + 10s);
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(timers.earliest(), std::nullopt);
}

TEST(TimerTable, WorkMayRemoveItselfAndOthersThatAreDue) {
    TimerTable timers;
    int runs = 0;
    std::vector<std::uint64_t> numbers(2);
    numbers[0] = timers.add(start, 1s, 1s, [&] {
        ++runs;
        timers.remove(numbers[0]);
        timers.remove(numbers[1]);
        ++runs; // the closure must have survived its removal
    });
    numbers[1] = timers.add(start, 1s, once, [&] { runs += 100; });
    timers.runDue(start + 5s);
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(timers.earliest(), std::nullopt);
}

TEST(TimerTable, WorkThatIsAddedOnTheWayWaitsForTheNextRound) {
    TimerTable timers;
    int runs = 0;
    timers.add(start, 1s, once, [&] { timers.add(start, 0s, once, [&] { ++runs; }); });
    timers.runDue(start + 1s);
    EXPECT_EQ(runs, 0);
    timers.runDue(start + 1s);
    EXPECT_EQ(runs, 1);
}
