#include "Hook/HookRun.h"

#include <gtest/gtest.h>

#include <cctype>
#include <tuple>

/// Large documents of every kind leave a readable record.
namespace mimkins::test {
namespace {

using nlohmann::json;

constexpr auto head = R"({"session_id":"s1","cwd":"/a/b","hook_event_name":"PreToolUse","tool_name":"Bash",)";

std::string repeated(std::string_view unit, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
        text += unit;
    }
    return text;
}

struct LargeCase {
    std::string name;
    std::string text;
    std::string detail;
};

std::vector<LargeCase> largeCases(std::size_t bytes) {
    const auto inString = [&](std::string_view unit) {
        return head + (R"("tool_input":{"command":")" + repeated(unit, bytes)) + "\"}}";
    };
    const auto other = [&](std::string_view begin, std::string_view unit, std::string_view end) {
        return head + std::string(begin) + repeated(unit, bytes) + std::string(end) +
               R"(,"tool_input":{"url":"u"}})";
    };
    return {
        {"letters", inString("x"), std::string(120, 'x')},
        {"quotes", inString(R"(\")"), std::string(120, '"')},
        {"backslashes", inString(R"(\\)"), std::string(120, '\\')},
        {"runs of backslashes", inString(R"(\\\\\\\")"), repeated("\\\\\\\"", 120)},
        {"line ends", inString(R"(\n)"), ""},
        {"escapes", inString(R"(\u0041)"), std::string(120, 'A')},
        {"characters", inString("é"), repeated("é", 240)},
        {"empty strings", other("\"x\":[", "\"\",", "1]"), "u"},
        {"nested keys", other("\"x\":{", R"("session_id":"no",)", R"("y":1})"), "u"},
        {"keys", other("\"y\":1", R"(,"tool_input":"B")", ""), "u"},
        {"numbers", other("\"x\":[", "12345,", "1]"), "u"},
        {"small arrays", other("\"x\":[", "[1 ,\n [ ] ], ", "1]"), "u"},
        {"blanks", other("\"x\":", " ", "1"), "u"},
        {"open brackets", head + (R"("x":)" + repeated("[", bytes / 2) + repeated("]", bytes / 2)) + "}", ""},
        {"pretty", other("\"x\":[", "\n  {\n    \"session_id\": \"n\",\n    \"b\": [\n 1\n]\n},", "1]"), "u"},
    };
}

class HookLarge : public testing::TestWithParam<HookPair> {};

TEST_P(HookLarge, EveryKindLeavesItsRecord) {
    const HookRun hook(GetParam());
    const bool quickest = GetParam().awk == "mawk" && GetParam().shell == "dash";
    for (const auto& [name, text, detail] : largeCases(quickest ? 5'000'000 : 300'000)) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(json::accept(text));
        hook.removeRecords();
        hook.feed(text);
        const auto record = hook.onlyRecord();
        ASSERT_TRUE(record);
        EXPECT_EQ(record->at("id"), "s1");
        EXPECT_EQ(record->value("detail", ""), detail);
    }
}

TEST_P(HookLarge, NulAndBadBytesLeaveAReadableRecordOrNone) {
    const HookRun hook(GetParam());
    for (const auto& unit :
         {std::string(1, '\0'), std::string("\xff\xfe"), std::string("\xc3\""), std::string("\"\0", 2)}) {
        for (const auto* place : {R"("x":")", R"("cwd":")", R"("transcript_path":)"}) {
            hook.removeRecords();
            hook.feed(head + (place + repeated(unit, 100'000)) + "\"}");
            hook.onlyRecord();
            hook.removeRecords();
            hook.feed(head + (place + unit) + "\"}");
            hook.onlyRecord();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, HookLarge,
    testing::Values(
        HookPair{"dash", "mawk"}, HookPair{"dash", "gawk"}, HookPair{"bash", "original-awk"},
        HookPair{"busybox", "busybox"}
    ),
    pairNameOf
);

} // namespace
} // namespace mimkins::test
