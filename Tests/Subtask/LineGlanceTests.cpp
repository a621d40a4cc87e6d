#include "Subtask/LineGlance.h"

#include "Subtask/TranscriptLines.h"

#include <gtest/gtest.h>

#include <string>

using namespace mimkins;
using namespace mimkins::test;

namespace {

/// With the id "1" answered and no other.
bool onlyCalls(const std::string& line, bool isEffortKnown = true) {
    const auto isOne = [](std::string_view id) { return id == "1"; };
    const bool result = holdsOnlyCalls(line, isEffortKnown, isOne);
    EXPECT_EQ(holdsOnlyCallsPortably(line, isEffortKnown, isOne), result) << line;
    return result;
}

Glance glance(const std::string& line) {
    const Glance result = glanceAt(line);
    const Glance portable = glanceAtPortably(line);
    EXPECT_EQ(portable.call, result.call) << line;
    EXPECT_EQ(portable.effort, result.effort) << line;
    return result;
}

std::string callLine(const Json& call) {
    Json line = assistantLine({call});
    line["message"]["stop_reason"] = "tool_use";
    return line.dump();
}

std::string withMessageId(const std::string& spelled) {
    return R"({"type":"assistant","message":)" + spelled + R"("id":"msg_1","content":[)" +
           toolUse("1", "Read").dump() + "]}}";
}

} // namespace

TEST(LineGlance, AnAnsweredCallTellsNothing) {
    EXPECT_TRUE(onlyCalls(callLine(toolUse("1", "Bash", {{"command", "echo \"id\":\"2\""}}))));
    EXPECT_FALSE(onlyCalls(callLine(toolUse("2", "Bash"))));
    EXPECT_FALSE(onlyCalls(assistantLine({toolUse("1", "Read"), toolUse("2", "Read")}).dump()));
    EXPECT_TRUE(onlyCalls(assistantLine({toolUse("1", "Read"), toolUse("1", "Read")}).dump()));
}

TEST(LineGlance, TheIdOfAMessageIsNoCalls) {
    EXPECT_TRUE(onlyCalls(withMessageId("{")));
    EXPECT_FALSE(onlyCalls(withMessageId("{ ")));
    EXPECT_FALSE(onlyCalls(withMessageId(" {")));
}

TEST(LineGlance, AnIdThatIsNoPlainStringIsLookedAt) {
    Json number = toolUse("1", "Read");
    number["id"] = 1;
    EXPECT_FALSE(onlyCalls(callLine(number)));
    EXPECT_FALSE(onlyCalls(callLine(toolUse("1\n", "Read"))));
    EXPECT_FALSE(onlyCalls(callLine(toolUse("1", "Read", Json::array({"id"})))));
    const auto line = callLine(toolUse("1", "Read"));
    EXPECT_FALSE(onlyCalls(line.substr(0, line.find(R"("id":"1)") + 7)));
    EXPECT_FALSE(onlyCalls(R"({"type":"tool_use", "id": "1"})"));
}

TEST(LineGlance, OtherTidingsAreLookedAt) {
    EXPECT_FALSE(onlyCalls(callLine(toolUse("1", "SubagentHandback"))));
    EXPECT_FALSE(onlyCalls(userLine({toolResult("1")}).dump()));
    EXPECT_FALSE(onlyCalls(callLine(toolUse("1", "Read", {{"pattern", "\x1b"}}))));
    Json line = assistantLine({toolUse("1", "Read")});
    line["effort"] = "high";
    EXPECT_TRUE(onlyCalls(line.dump()));
    EXPECT_FALSE(onlyCalls(line.dump(), false));
    EXPECT_FALSE(onlyCalls("{}"));
}

// Some bytes are looked at together, 32 at most, so an id is moved over every place among them.
TEST(LineGlance, TheyAreFoundAtEveryPlace) {
    for (std::size_t shift = 0; shift < 80; ++shift) {
        const std::string blanks(shift, ' ');
        EXPECT_FALSE(onlyCalls(blanks + R"({"type":"tool_use","id":"2"})")) << shift;
        EXPECT_TRUE(onlyCalls(blanks + R"({"type":"tool_use","id":"1"})")) << shift;
        EXPECT_FALSE(onlyCalls(blanks + R"({"type":"tool_use","id":"1","x":"\u0041"})")) << shift;
        EXPECT_TRUE(glance(blanks + R"({"type":"tool_use","id":"1"})").call) << shift;
        EXPECT_FALSE(glance(blanks + R"({"type":"assistant","id":"1"})").call) << shift;
        EXPECT_TRUE(glance(blanks + R"({"type":"assistant","effort":"1"})").effort) << shift;
    }
}
