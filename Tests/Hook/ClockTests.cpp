#include "Hook/HookRun.h"

#include <gtest/gtest.h>

/// Where the time of a record comes from: a state that begins has the exact time, one that goes on may have
/// the time since the start of the machine, which needs no program.
namespace mimkins::test {
namespace {

using nlohmann::json;

class HookClock : public testing::TestWithParam<HookPair> {
protected:
    HookClock() {
        hook.replaceProgram("date", "echo >>" + calls() + "\nexec /usr/bin/date \"$@\"");
        writeFile(calls(), "");
    }

    std::string calls() const { return home / "calls"; }

    /// How many times date has run since the last question.
    std::size_t callsOfDate() const {
        const auto count = readWhole(calls()).size();
        writeFile(calls(), "");
        return count;
    }

    json tell(const std::string& event) const {
        hook.tell({{"session_id", "s1"}, {"hook_event_name", event}, {"tool_name", "Bash"}});
        return hook.record("s1").value_or(json::object());
    }

    /// Works until there is a record with a clock. The first reading may come at the wrong moment, which is
    /// when the hundredth of a second changes.
    json withClock() const {
        json record;
        for (int round = 0; round < 400 && !record.contains("clock"); ++round) {
            hook.removeRecords();
            record = tell("PreToolUse");
        }
        callsOfDate();
        return record;
    }

    void expectPresentTime(const json& record, double before) const {
        EXPECT_GE(record.at("ts").get<double>(), before - clockError);
        EXPECT_LE(record.at("ts").get<double>(), nowInMilliseconds());
    }

    TemporaryFolder home;
    HookRun hook{GetParam()};
};

TEST_P(HookClock, StateThatGoesOnNeedsNoDate) {
    ASSERT_TRUE(withClock().contains("clock"));
    std::size_t read = 0;
    for (int round = 0; round < 20; ++round) {
        const auto before = nowInMilliseconds();
        expectPresentTime(tell(round % 2 == 0 ? "PostToolUse" : "PreToolUse"), before);
        read += callsOfDate();
    }
    // The two readings may stand on two sides of the change of a second, or be torn apart by a busy machine.
    EXPECT_LT(read, 10U);
}

TEST_P(HookClock, StateThatBeginsHasTheExactTime) {
    ASSERT_TRUE(withClock().contains("clock"));
    for (const auto* event :
         {"Stop", "UserPromptSubmit", "PermissionRequest", "PostToolUse", "SessionStart"}) {
        const auto before = nowInMilliseconds();
        const auto record = tell(event);
        EXPECT_EQ(callsOfDate(), 1U) << event;
        EXPECT_GE(record.at("ts").get<double>(), before) << event;
        EXPECT_EQ(record.at("since"), record.at("ts")) << event;
    }
}

TEST_P(HookClock, ClockThatIsWrongOldOrNoneIsRead) {
    auto record = withClock();
    const auto clock = record.at("clock").get<std::string>();
    const auto started = std::stoll(clock);
    const auto read = std::stoll(clock.substr(clock.find(' ')));
    const auto words = [](long long first, long long second) {
        return std::to_string(first) + " " + std::to_string(second);
    };
    for (const auto& text :
         {words(started + 3'000, read), words(started - 3'000, read), words(started, read - 400),
          words(started, read + 400), std::string("x"), std::string("1 2"), clock + " 1",
          std::string("08 $(x)"), std::string(4000, '9') + " 1", "1 " + std::string(4000, '9'),
          std::string("* *")}) {
        record["clock"] = text;
        writeFile(hook.recordPath("s1"), record.dump());
        const auto before = nowInMilliseconds();
        const auto written = tell("PreToolUse");
        EXPECT_GE(callsOfDate(), 1U) << text;
        EXPECT_GE(written.at("ts").get<double>(), before) << text;
        EXPECT_EQ(written.at("since"), record.at("since")) << text;
    }
}

TEST_P(HookClock, ExactTimeOfAnAwkIsUsed) {
    for (const auto* format : {"%s%N", "%s%6N"}) {
        hook.replaceProgram(
            "awk",
            "fraction=$(/usr/bin/date +" + std::string(format) + ")\n" +
                R"(program=$(printf %s "$1" | /bin/sed "s/sprintf(\"%.0f\", srand())/\"$fraction\"/"))" +
                "\nexec /usr/bin/mawk \"$program\""
        );
        for (const auto* event : {"Stop", "PreToolUse", "PostToolUse"}) {
            const auto before = nowInMilliseconds();
            const auto record = tell(event);
            EXPECT_EQ(callsOfDate(), 0U);
            EXPECT_FALSE(record.contains("clock"));
            EXPECT_GE(record.at("ts").get<double>(), before);
            EXPECT_LE(record.at("ts").get<double>(), nowInMilliseconds());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, HookClock,
    testing::Values(
        HookPair{"dash", "mawk"}, HookPair{"dash", "gawk"}, HookPair{"dash", "original-awk"},
        HookPair{"dash", "busybox"}
    ),
    pairNameOf
);

} // namespace
} // namespace mimkins::test
