#include "Hook/HookRun.h"
#include "Hook/RandomPayload.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

/// Documents at random leave the record that a JSON library and the written rules give.
namespace mimkins::test {
namespace {

using nlohmann::json;

/// What went wrong with one document; empty if nothing did.
std::string differenceOf(const HookRun& hook, const std::string& text) {
    hook.removeRecords();
    const auto expected = expectedRecord(json::parse(text));
    const auto before = nowInMilliseconds();
    hook.feed(text);
    auto record = hook.onlyRecord();
    if (record.has_value() != expected.has_value()) {
        return record ? "a record that shouldn't be: " + record->dump() : "no record: " + expected->dump();
    }
    if (!record) {
        return "";
    }
    const auto ts = record->at("ts").get<double>();
    if (record->at("since") != record->at("ts") || ts < before || ts > nowInMilliseconds()) {
        return "wrong time: " + record->dump();
    }
    for (const auto* key : {"since", "ts", "beforeSince", "clock"}) {
        record->erase(key);
    }
    return *record == *expected ? "" : "got " + record->dump() + "\nwanted " + expected->dump();
}

/// Returns how many of the documents left a record.
int checkMany(const HookPair& pair, std::uint32_t seed, int count) {
    const HookRun hook(pair);
    RandomPayload payloads(seed);
    int records = 0;
    for (int index = 0; index < count; ++index) {
        const auto text = payloads.next();
        const auto difference = differenceOf(hook, text);
        records += hook.files().empty() ? 0 : 1;
        EXPECT_EQ(difference, "") << pairName(pair) << " document " << index << ":\n" << text;
        if (!difference.empty() || testing::Test::HasFailure()) {
            break;
        }
    }
    return records;
}

/// Checks two halves of a number of documents at the same time. Returns how many of them left a record.
int checkInHalves(const HookPair& pair, std::uint32_t seed, int count) {
    std::atomic<int> records = 0;
    std::vector<std::thread> threads;
    for (std::uint32_t half = 0; half < 2; ++half) {
        threads.emplace_back([&, half] { records += checkMany(pair, seed + half, count / 2); });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    return records;
}

TEST(HookRandom, TenThousandDocumentsAgreeWithAJsonLibrary) {
    EXPECT_GT(checkInHalves({"dash", "mawk"}, 100, 10'000), 5'000) << "too few of the documents count";
}

class HookRandomPairs : public testing::TestWithParam<HookPair> {};

TEST_P(HookRandomPairs, AgreeWithAJsonLibrary) {
    EXPECT_GT(checkInHalves(GetParam(), 7, 200), 100);
}

INSTANTIATE_TEST_SUITE_P(Pairs, HookRandomPairs, testing::ValuesIn(allHookPairs()), pairNameOf);

/// Documents with a byte changed, lost or added leave a readable record or none.
TEST(HookRandom, DamagedDocumentsGiveAReadableRecordOrNone) {
    for (const auto* awk : {"mawk", "gawk", "original-awk", "busybox"}) {
        const HookRun hook({"dash", awk});
        RandomPayload payloads(3);
        std::mt19937 random(5);
        for (int index = 0; index < 100; ++index) {
            auto text = payloads.next();
            const auto at = random() % text.size();
            const char byte = static_cast<char>(random() % 256);
            const auto kind = random() % 4;
            if (kind == 0) {
                text.resize(at);
            } else if (kind == 1) {
                text[at] = byte;
            } else if (kind == 2) {
                text.erase(at, 1);
            } else {
                text.insert(at, 1, byte);
            }
            hook.removeRecords();
            hook.feed(text);
            const auto record = hook.onlyRecord();
            if (record && !record->is_discarded()) {
                EXPECT_TRUE(record->at("state").is_string() && record->at("since").is_number()) << text;
            }
            ASSERT_FALSE(testing::Test::HasFailure()) << awk << "\n" << text;
        }
    }
}

} // namespace
} // namespace mimkins::test
