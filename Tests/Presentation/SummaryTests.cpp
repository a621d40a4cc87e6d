#include "Presentation/Summary.h"

#include <gtest/gtest.h>

using namespace mimkins;

namespace {

Summary summaryOf(std::initializer_list<Mood> moods) {
    std::vector<Session> sessions;
    for (const Mood mood : moods) {
        Session session;
        session.mood = mood;
        sessions.push_back(session);
    }
    return summary(sessions);
}

} // namespace

TEST(Summary, CountsThoseWhoWaitFirst) {
    EXPECT_EQ(
        summaryOf({Mood::needsPermission, Mood::yourTurn, Mood::yourTurn, Mood::working, Mood::done}),
        (Summary{SummaryKind::waiting, "1 waiting on you"})
    );
    EXPECT_EQ(
        summaryOf({Mood::needsInput, Mood::question, Mood::plan, Mood::commitWaiting}),
        (Summary{SummaryKind::waiting, "4 waiting on you"})
    );
}

TEST(Summary, ThenRepliesThenPets) {
    EXPECT_EQ(summaryOf({Mood::yourTurn}), (Summary{SummaryKind::replies, "1 new reply"}));
    EXPECT_EQ(summaryOf({Mood::yourTurn, Mood::yourTurn}), (Summary{SummaryKind::replies, "2 new replies"}));
    EXPECT_EQ(summaryOf({Mood::done, Mood::done}), (Summary{SummaryKind::pets, "2 pets out"}));
    EXPECT_EQ(summaryOf({Mood::background}), (Summary{SummaryKind::pets, "1 pet out"}));
    EXPECT_EQ(summaryOf({}), (Summary{SummaryKind::pets, "0 pets out"}));
}
