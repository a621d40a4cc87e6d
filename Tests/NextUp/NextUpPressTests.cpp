#include "NextUp/NextUpPress.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace mimkins;

namespace {

using NextUp::Memory;
using Kind = NextUp::Press::Kind;

constexpr Date start{1'795'246'096.0};

Session waiting(const std::string& id, Mood mood = Mood::question, double waitedFor = 60) {
    Session session;
    session.id = id;
    session.mood = mood;
    session.since = start + -waitedFor;
    session.openLink = "https://example.org/" + id;
    return session;
}

/// Presses again and again with the memory of the press before.
class Presses {
public:
    NextUp::Press at(double seconds, const std::vector<Session>& sessions) {
        auto press = NextUp::press(memory, sessions, start + seconds);
        memory = press.memory;
        return press;
    }

    Memory memory;
};

std::string shown(const NextUp::Press& press) {
    return press.session ? press.session->id : std::string();
}

} // namespace

TEST(NextUpPress, WithoutWaitersClearsBothMemories) {
    Presses presses;
    const std::vector<Session> three{waiting("a", Mood::question, 30), waiting("b", Mood::question, 20)};
    presses.at(0, three);
    presses.at(5, three);
    EXPECT_EQ(presses.memory.lastNextUp, "b");
    const auto nothing = presses.at(6, {});
    EXPECT_EQ(nothing.kind, Kind::nothingWaits);
    EXPECT_EQ(nothing.session, std::nullopt);
    EXPECT_EQ(nothing.memory, Memory{});
    EXPECT_EQ(shown(presses.at(7, three)), "a");
}

TEST(NextUpPress, SecondPressWithinTheWindowOpens) {
    Presses presses;
    const std::vector<Session> one{waiting("a")};
    const auto first = presses.at(0, one);
    EXPECT_EQ(first.kind, Kind::show);
    EXPECT_EQ(first.others, 0U);
    EXPECT_EQ(first.memory.pendingOpen, (NextUp::PendingOpen{"a", start + 4}));
    const auto second = presses.at(3.999, one);
    EXPECT_EQ(second.kind, Kind::open);
    EXPECT_EQ(shown(second), "a");
    EXPECT_EQ(second.memory, (Memory{"a", std::nullopt}));
    EXPECT_EQ(presses.at(4, one).kind, Kind::show); // a third press begins anew
}

TEST(NextUpPress, WindowIsOverAfterFourSeconds) {
    Presses presses;
    const std::vector<Session> one{waiting("a")};
    presses.at(0, one);
    const auto late = presses.at(4, one);
    EXPECT_EQ(late.kind, Kind::show);
    EXPECT_EQ(shown(late), "a");
    EXPECT_EQ(late.memory.pendingOpen, (NextUp::PendingOpen{"a", start + 8}));
}

TEST(NextUpPress, LatePressesWalkRound) {
    Presses presses;
    const std::vector<Session> three{
        waiting("a", Mood::question, 30), waiting("b", Mood::question, 20), waiting("c", Mood::question, 10)};
    EXPECT_EQ(shown(presses.at(0, three)), "a");
    const auto second = presses.at(5, three);
    EXPECT_EQ(shown(second), "b");
    EXPECT_EQ(second.others, 2U);
    EXPECT_EQ(shown(presses.at(10, three)), "c");
    EXPECT_EQ(shown(presses.at(15, three)), "a");
}

TEST(NextUpPress, AfterOpeningTheWalkGoesOn) {
    Presses presses;
    const std::vector<Session> two{waiting("a", Mood::question, 30), waiting("b", Mood::question, 20)};
    presses.at(0, two);
    EXPECT_EQ(presses.at(1, two).kind, Kind::open);
    const auto third = presses.at(2, two);
    EXPECT_EQ(third.kind, Kind::show);
    EXPECT_EQ(shown(third), "b");
}

TEST(NextUpPress, PendingSessionThatLeftTheQueueIsAFirstPress) {
    Presses presses;
    presses.at(0, {waiting("a", Mood::question, 30), waiting("b", Mood::question, 20)});
    const auto second = presses.at(1, {waiting("b", Mood::question, 20), waiting("c", Mood::question, 10)});
    EXPECT_EQ(second.kind, Kind::show);
    EXPECT_EQ(shown(second), "b");
    EXPECT_EQ(second.memory, (Memory{"b", NextUp::PendingOpen{"b", start + 5}}));
}

TEST(NextUpPress, WhoCannotGoOnComesFirst) {
    Presses presses;
    const auto first = presses.at(0, {waiting("reply", Mood::yourTurn, 900), waiting("plan", Mood::plan, 1)});
    EXPECT_EQ(shown(first), "plan");
    EXPECT_EQ(first.others, 1U);
}

TEST(NextUpPress, SessionsWithoutALinkAreNotOffered) {
    auto outside = waiting("outside", Mood::needsPermission, 900);
    outside.openLink.reset();
    auto editor = waiting("editor", Mood::needsPermission, 900);
    editor.openLink = "vscode://file/x";
    Presses presses;
    EXPECT_EQ(presses.at(0, {outside, editor}).kind, Kind::nothingWaits);
    const auto press = presses.at(1, {outside, waiting("a")});
    EXPECT_EQ(shown(press), "a");
    EXPECT_EQ(press.others, 0U);
}
