#include "Session/Liveness.h"

#include <gtest/gtest.h>

using namespace mimkins;

namespace {

constexpr Date now{1'795'262'400};

StatusRecord recordAt(Date date) {
    StatusRecord record;
    record.id = "s";
    record.ts = date.milliseconds();
    return record;
}

Liveness judge(const StatusRecord* hook, bool registered, bool anyRegistered) {
    return livenessOf({hook, registered, anyRegistered, now}, [](std::int32_t pid) { return pid == 7; });
}

} // namespace

TEST(Liveness, AReportingAgentGoesByItsProcess) {
    auto hook = recordAt(now - 3600);
    hook.agent = "other";
    EXPECT_EQ(judge(&hook, false, true), Liveness::agentUnknown);
    hook.pid = 0;
    EXPECT_EQ(judge(&hook, false, true), Liveness::agentUnknown);
    hook.pid = 7;
    EXPECT_EQ(judge(&hook, false, true), Liveness::agentRuns);
    hook.pid = 8;
    EXPECT_EQ(judge(&hook, true, true), Liveness::agentEnded) << "the registry isn't consulted";
}

TEST(Liveness, ARecordWithoutAClientHasTenSeconds) {
    auto hook = recordAt(now - 10);
    EXPECT_EQ(judge(&hook, false, true), Liveness::justWritten);
    hook = recordAt(now - 10.5);
    EXPECT_EQ(judge(&hook, false, true), Liveness::leftBehind);
    EXPECT_EQ(judge(&hook, true, true), Liveness::clientRuns);
    EXPECT_EQ(judge(&hook, false, false), Liveness::noRegistry) << "an empty registry proves nothing";
}

TEST(Liveness, OnlyTheEndedLeave) {
    for (const auto alive :
         {Liveness::agentRuns, Liveness::agentUnknown, Liveness::clientRuns, Liveness::noRegistry,
          Liveness::justWritten}) {
        EXPECT_TRUE(isLive(alive));
    }
    EXPECT_FALSE(isLive(Liveness::agentEnded));
    EXPECT_FALSE(isLive(Liveness::leftBehind));
}
