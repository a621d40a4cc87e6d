#include "SessionStore/SessionOrder.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace mimkins;

namespace {

Session session(const std::string& id, Mood mood, double since) {
    Session result;
    result.id = id;
    result.mood = mood;
    result.since = Date{since};
    return result;
}

std::string order(const std::vector<Session>& list) {
    std::string ids;
    for (const auto& entry : list) {
        ids += entry.id;
    }
    return ids;
}

RegistryEntry startedAt(double seconds) {
    RegistryEntry entry;
    entry.started = Date{seconds};
    return entry;
}

const std::vector<Session> mixed{
    session("a", Mood::working, 5),       session("b", Mood::commitWaiting, 9),
    session("c", Mood::question, 3),      session("d", Mood::needsPermission, 4),
    session("e", Mood::commitWaiting, 8), session("f", Mood::yourTurn, 9),
};

FirstSeen arrivals() {
    FirstSeen seen;
    double at = 0;
    for (const char* id : {"f", "e", "d", "c", "b", "a"}) {
        seen[id] = Date{++at};
    }
    return seen;
}

} // namespace

TEST(SessionOrder, NeverKeepsTheOrderOfArrival) {
    EXPECT_EQ(order(inDisplayOrder(mixed, ReorderMode::never, arrivals(), {})), "fedcba");
}

TEST(SessionOrder, AlwaysPutsTheLatestChangeFirst) {
    EXPECT_EQ(order(inDisplayOrder(mixed, ReorderMode::always, arrivals(), {})), "fbeadc");
}

TEST(SessionOrder, WhenNeededRaisesThoseWhoWait) {
    EXPECT_EQ(order(inDisplayOrder(mixed, ReorderMode::whenNeeded, arrivals(), {})), "dcbefa");
}

TEST(SessionOrder, RegistryStartOutranksFirstSeen) {
    const std::map<std::string, RegistryEntry> registry{
        {"a", startedAt(0)}, {"c", startedAt(1e18)}, {"d", {startedAt(-1e12)}}};
    EXPECT_EQ(order(inDisplayOrder(mixed, ReorderMode::never, arrivals(), registry)), "afedbc")
        << "no start means 1970, a start before all time means none";
}

TEST(SessionOrder, EqualDatesFallBackOnTheId) {
    const std::vector<Session> equal{session("b", Mood::working, 1), session("a", Mood::working, 1)};
    FirstSeen seen;
    noteArrivals(seen, equal, Date{5});
    EXPECT_EQ(order(inDisplayOrder(equal, ReorderMode::always, seen, {})), "ba");
    EXPECT_EQ(order(inDisplayOrder(equal, ReorderMode::never, seen, {})), "ab");
}

TEST(SessionOrder, ForgetsThoseWhoLeft) {
    FirstSeen seen;
    noteArrivals(seen, {session("a", Mood::working, 0)}, Date{1});
    noteArrivals(seen, {session("a", Mood::working, 0), session("b", Mood::working, 0)}, Date{2});
    EXPECT_EQ(seen.at("a"), Date{1});
    noteArrivals(seen, {session("b", Mood::working, 0)}, Date{3});
    EXPECT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen.at("b"), Date{2});
}

TEST(SessionOrder, IsTotalAndStable) {
    EXPECT_TRUE(rc::check([] {
        const auto count = *rc::gen::inRange<std::size_t>(0, 12);
        std::vector<Session> list;
        FirstSeen seen;
        for (std::size_t index = 0; index < count; ++index) {
            const auto id = std::string(1, static_cast<char>('a' + index));
            list.push_back(session(
                id, *rc::gen::elementOf(std::vector<Mood>(allMoods.begin(), allMoods.end())),
                *rc::gen::inRange(0, 3)
            ));
            seen[id] = Date{static_cast<double>(*rc::gen::inRange(0, 3))};
        }
        const auto mode = *rc::gen::element(ReorderMode::always, ReorderMode::whenNeeded, ReorderMode::never);
        const auto first = inDisplayOrder(list, mode, seen, {});
        RC_ASSERT(std::is_permutation(first.begin(), first.end(), list.begin(), list.end()));
        RC_ASSERT(inDisplayOrder(first, mode, seen, {}) == first);
        std::vector<Session> shuffled = list;
        std::reverse(shuffled.begin(), shuffled.end());
        RC_ASSERT(inDisplayOrder(shuffled, mode, seen, {}) == first);
    }));
}
