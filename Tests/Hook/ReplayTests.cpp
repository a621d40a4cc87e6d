#include "Hook/HookRun.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

/// A recorded run of the client, replayed event by event, leaves the records of the table after each. They
/// are checked in as the documented expectation: `expected.jsonl` has the record after each event, in which a
/// time is the number of the event that set it.
namespace mimkins::test {
namespace {

using nlohmann::json;

std::vector<json> linesOf(const std::string& name) {
    std::ifstream file(MIMKINS_SOURCE_DIR "/Tests/Data/hook/" + name);
    std::vector<json> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(json::parse(line));
    }
    return lines;
}

class Replay : public testing::TestWithParam<HookPair> {};

TEST_P(Replay, GivesTheRecordsOfTheTable) {
    const HookRun hook(GetParam());
    const auto recorded = linesOf("hook-payloads.jsonl");
    const auto expected = linesOf("expected.jsonl");
    ASSERT_EQ(recorded.size(), expected.size());
    ASSERT_GT(recorded.size(), 60U);
    std::map<double, double> startedAt; // the line of an event to the ts that it wrote
    for (std::size_t index = 0; index < recorded.size(); ++index) {
        const auto& payload = recorded[index].at("stdin");
        SCOPED_TRACE(expected[index].dump());
        const auto before = nowInMilliseconds();
        hook.tell(payload);
        const auto after = nowInMilliseconds();
        auto record = hook.record(payload.at("session_id").get<std::string>());
        auto wanted = expected[index].at("record");
        ASSERT_EQ(record.has_value(), !wanted.is_null());
        if (!record) {
            continue;
        }
        const auto line = expected[index].at("line").get<double>();
        const auto ts = record->at("ts").get<double>();
        const bool begins = wanted.at("since") == line;
        if (ts >= before - (begins ? 0 : clockError) && ts <= after) {
            startedAt[line] = ts;
        } else {
            EXPECT_EQ(ts, std::prev(startedAt.end())->second) << "neither the present time nor the former";
            EXPECT_TRUE(payload.contains("agent_id") || payload.contains("notification_type"));
        }
        for (const auto* key : {"since", "beforeSince"}) {
            if (wanted.contains(key)) {
                wanted[key] = startedAt.at(wanted.at(key).get<double>());
                wanted[key] = static_cast<std::int64_t>(wanted.at(key).get<double>());
            }
        }
        record->erase("ts");
        record->erase("clock");
        EXPECT_EQ(*record, wanted);
    }
}

INSTANTIATE_TEST_SUITE_P(Pairs, Replay, testing::ValuesIn(allHookPairs()), pairNameOf);

} // namespace
} // namespace mimkins::test
