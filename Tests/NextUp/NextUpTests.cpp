#include "NextUp/NextUp.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace mimkins;

namespace {

Session session(const std::string& id, Mood mood, double since = 0) {
    Session result;
    result.id = id;
    result.mood = mood;
    result.since = {since};
    return result;
}

std::vector<std::string> queue(const std::vector<Session>& sessions) {
    std::vector<std::string> ids;
    for (const auto& waiting : NextUp::queue(sessions)) {
        ids.push_back(waiting.id);
    }
    return ids;
}

using Ids = std::vector<std::string>;

} // namespace

TEST(NextUp, OnlySixMoodsWait) {
    std::vector<Session> sessions;
    for (const auto mood : allMoods) {
        sessions.push_back(session(std::string(caseName(mood)), mood));
    }
    EXPECT_EQ(
        queue(sessions),
        (Ids{"needsPermission", "needsInput", "question", "plan", "commitWaiting", "yourTurn"})
    );
    EXPECT_EQ(queue({}), Ids{});
    EXPECT_EQ(queue({session("a", Mood::done), session("b", Mood::background)}), Ids{});
}

TEST(NextUp, WhoCannotGoOnComesFirstHoweverLongOthersWait) {
    EXPECT_EQ(
        queue({session("reply", Mood::yourTurn, 1), session("plan", Mood::plan, 1000)}),
        (Ids{"plan", "reply"})
    );
    EXPECT_EQ(
        queue({session("reply", Mood::yourTurn, 1), session("commit", Mood::commitWaiting, 1000)}),
        (Ids{"commit", "reply"})
    );
}

TEST(NextUp, WithinARankTheLongestWaitComesFirst) {
    EXPECT_EQ(
        queue(
            {session("c", Mood::plan, 30), session("a", Mood::needsPermission, 10),
             session("b", Mood::question, 20)}
        ),
        (Ids{"a", "b", "c"})
    );
}

TEST(NextUp, EqualSessionsKeepTheirOrder) {
    EXPECT_EQ(
        queue({session("b", Mood::plan, 5), session("a", Mood::question, 5), session("c", Mood::plan, 5)}),
        (Ids{"b", "a", "c"})
    );
}

TEST(NextUp, KeepsSessionsWholeAndThoseWithoutALink) {
    auto waiting = session("a", Mood::question, 5);
    waiting.title = "Title";
    EXPECT_EQ(NextUp::queue({waiting}), std::vector<Session>{waiting});
}
