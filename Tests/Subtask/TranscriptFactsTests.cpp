#include "Subtask/TranscriptFacts.h"

#include "Base/DateText.h"
#include "Subtask/TranscriptLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr Date fallback{1'795'000'000};

std::optional<std::string> detailOf(const Json& input) {
    json::Parser parser;
    return detail(parser.parse(input.dump()));
}

TranscriptFacts factsOf(const TranscriptTail& tail) {
    json::Parser parser;
    const auto facts = transcriptFacts(tail, fallback, parser);
    EXPECT_EQ(transcriptFacts(tail, fallback, parser, LinesToParse::all), facts) << "no line is missed";
    return facts;
}

TranscriptFacts factsOf(const std::vector<Json>& lines) {
    return factsOf(tailOf(lines));
}

std::vector<std::string> pendingNames(const TranscriptFacts& facts) {
    std::vector<std::string> names;
    for (const auto& tool : facts.pending) {
        names.push_back(tool.name);
    }
    return names;
}

} // namespace

TEST(CallDetail, TakesTheFirstKeyThatTells) {
    EXPECT_EQ(detailOf({{"description", "Build"}, {"command", "make"}}), "Build");
    EXPECT_EQ(detailOf({{"description", ""}, {"command", "make"}}), "make");
    EXPECT_EQ(detailOf({{"description", 5}, {"command", "make"}}), "make");
    EXPECT_EQ(
        detailOf({{"query", "q"}, {"pattern", "p"}, {"url", "u"}, {"notebook_path", "/a/n.ipynb"}}), "n.ipynb"
    );
    EXPECT_EQ(detailOf({{"query", "q"}, {"pattern", "p"}, {"url", "u"}}), "u");
    EXPECT_EQ(detailOf({{"query", "q"}, {"pattern", "p"}}), "p");
    EXPECT_EQ(detailOf({{"query", "q"}, {"command", "c"}}), "q");
    EXPECT_EQ(detailOf({{"other", "x"}}), std::nullopt);
    EXPECT_EQ(detailOf(Json::object()), std::nullopt);
    EXPECT_EQ(detailOf("text"), std::nullopt);
}

TEST(CallDetail, OfAPathTakesTheLastComponent) {
    EXPECT_EQ(detailOf({{"file_path", "/home/kim/shop/a.txt"}}), "a.txt");
    EXPECT_EQ(detailOf({{"file_path", "/home/kim/shop/"}}), "shop");
    EXPECT_EQ(detailOf({{"file_path", std::string("/d/") + std::string(130, 'a')}}), std::string(130, 'a'));
}

TEST(CallDetail, OfOtherTextTakesTheFirstLineCut) {
    EXPECT_EQ(detailOf({{"command", "cd /tmp\nmake"}}), "cd /tmp");
    EXPECT_EQ(detailOf({{"command", "cd /tmp\r\nmake"}}), "cd /tmp");
    EXPECT_EQ(detailOf({{"command", "\nmake"}}), "");
    EXPECT_EQ(detailOf({{"command", std::string(121, 'x')}}), std::string(120, 'x'));
    std::string accents;
    for (int count = 0; count < 121; ++count) {
        accents += "é";
    }
    EXPECT_EQ(detailOf({{"command", accents}}), accents.substr(0, 240));
}

TEST(ModelNote, KeepsTheLastValuesSeen) {
    json::Parser parser;
    ModelTag tag;
    const auto take = [&](const Json& line) { note(parser.parse(line.dump()), tag); };
    take({{"message", {{"model", "claude-opus-4-8"}}}, {"effort", "high"}});
    EXPECT_EQ(tag, (ModelTag{"claude-opus-4-8", "high"}));
    take({{"message", {{"model", "<synthetic>"}}}, {"effort", ""}});
    EXPECT_EQ(tag, (ModelTag{"claude-opus-4-8", "high"}));
    take({{"message", {{"model", ""}}}, {"effort", 3}});
    EXPECT_EQ(tag, (ModelTag{"claude-opus-4-8", "high"}));
    take({{"message", {{"model", "claude-haiku-4-5"}}}, {"effort", "low"}});
    EXPECT_EQ(tag, (ModelTag{"claude-haiku-4-5", "low"}));
}

TEST(TranscriptFacts, ASyntheticModelDoesNotReplaceTheOneBefore) {
    Json synthetic = assistantLine({textBlock("Request interrupted")});
    synthetic["message"]["model"] = "<synthetic>";
    Json withEffort = assistantLine({textBlock("first")});
    withEffort["effort"] = "max";
    EXPECT_EQ(
        factsOf({withEffort, assistantLine({}), synthetic}).model, (ModelTag{"claude-opus-4-8", "max"})
    );
    EXPECT_EQ(factsOf(std::vector{synthetic}).model, ModelTag());
}

TEST(TranscriptFacts, OnlyAssistantLinesNameAModel) {
    Json user = userLine({textBlock("hello")});
    user["message"]["model"] = "claude-haiku-4-5";
    user["effort"] = "low";
    EXPECT_EQ(factsOf({assistantLine({}), user}).model, (ModelTag{"claude-opus-4-8", std::nullopt}));
}

TEST(TranscriptFacts, ACallWithoutResultIsPending) {
    const auto facts = factsOf(std::vector{
        assistantLine({toolUse("1", "Bash", {{"command", "make\ntest"}, {"description", "Build"}})})});
    const auto since = text::parseIso8601("2026-11-21T07:30:18.500Z");
    EXPECT_THAT(facts.pending, ElementsAre(PendingTool{"Bash", "Build", "make\ntest", *since}));
    EXPECT_EQ(facts.tool, "Bash");
    EXPECT_EQ(facts.detail, "Build");
}

TEST(TranscriptFacts, AnAnsweredCallIsNotPendingButMayStillBeTheLast) {
    const auto facts = factsOf(
        {assistantLine({toolUse("1", "Read", {{"file_path", "/a/b.txt"}})}), userLine({toolResult("1")})}
    );
    EXPECT_THAT(facts.pending, IsEmpty());
    EXPECT_EQ(facts.tool, "Read");
    EXPECT_EQ(facts.detail, "b.txt");
}

TEST(TranscriptFacts, ResultsRemoveAllCallsWithTheirIdsAndKeepTheOrder) {
    const auto facts = factsOf({
        assistantLine({toolUse("1", "Read"), toolUse("2", "Grep"), toolUse("3", "Glob")}),
        assistantLine({toolUse("2", "Edit"), toolUse("4", "Write"), toolUse("5", "Bash")}),
        userLine({textBlock("see"), toolResult("2"), toolResult("4")}),
    });
    EXPECT_THAT(pendingNames(facts), ElementsAre("Read", "Glob", "Bash"));
}

TEST(TranscriptFacts, AResultBeforeItsCallRemovesNothing) {
    EXPECT_THAT(
        pendingNames(factsOf({userLine({toolResult("1")}), assistantLine({toolUse("1", "Read")})})),
        ElementsAre("Read")
    );
}

TEST(TranscriptFacts, ATimeWithoutFractionCounts) {
    EXPECT_EQ(
        factsOf({assistantLine({toolUse("1", "Read")}, "2026-11-21T07:30:18Z")}).pending.at(0).since,
        Date{1'795'246'218}
    );
}

TEST(TranscriptFacts, AnUnreadableTimeIsTheFallback) {
    Json without = assistantLine({toolUse("1", "Read")});
    without.erase("timestamp");
    Json number = assistantLine({toolUse("2", "Read")});
    number["timestamp"] = 5;
    for (const auto& line : {without, number, assistantLine({toolUse("3", "Read")}, "yesterday")}) {
        EXPECT_EQ(factsOf(std::vector{line}).pending.at(0).since, fallback) << line;
    }
}

TEST(TranscriptFacts, CallsOfTheWrongShapeAreNotPending) {
    Json noId = toolUse("1", "Read");
    noId.erase("id");
    Json numberId = toolUse("1", "Read");
    numberId["id"] = 7;
    EXPECT_THAT(factsOf(std::vector{assistantLine({noId, numberId})}).pending, IsEmpty());
    EXPECT_EQ(factsOf(std::vector{assistantLine({noId})}).tool, "Read");

    Json noName = toolUse("2", "x", {{"command", "make"}});
    noName.erase("name");
    const auto facts = factsOf({assistantLine({toolUse("1", "Read")}), assistantLine({noName})});
    EXPECT_THAT(pendingNames(facts), ElementsAre("Read"));
    EXPECT_EQ(facts.tool, std::nullopt);
    EXPECT_EQ(facts.detail, "make");
}

TEST(TranscriptFacts, AnInputOfTheWrongTypeCountsAsEmpty) {
    const auto facts = factsOf(std::vector{assistantLine({toolUse("1", "Bash", "make")})});
    EXPECT_EQ(facts.pending.at(0).detail, std::nullopt);
    EXPECT_EQ(facts.pending.at(0).command, std::nullopt);
    const auto number = factsOf(std::vector{assistantLine({toolUse("1", "Bash", {{"command", 5}})})});
    EXPECT_EQ(number.pending.at(0).command, std::nullopt);
}

TEST(TranscriptFacts, ContentThatIsNotAnArrayOfObjectsIsPassedOver) {
    const auto call = toolUse("1", "Read");
    EXPECT_EQ(factsOf(std::vector{withContent(assistantLine({}), "text")}).tool, std::nullopt);
    EXPECT_EQ(factsOf(std::vector{withContent(assistantLine({}), call)}).tool, std::nullopt);
    EXPECT_EQ(factsOf(std::vector{assistantLine({call, "text"})}).tool, std::nullopt);
    EXPECT_THAT(
        pendingNames(factsOf({assistantLine({call}), userLine({toolResult("1"), 5})})), ElementsAre("Read")
    );
    Json final = withContent(assistantLine({}), "text");
    final["message"]["stop_reason"] = "end_turn";
    EXPECT_TRUE(factsOf(std::vector{final}).endedTurn);
    EXPECT_EQ(factsOf(std::vector{final}).model.model, "claude-opus-4-8");
}

TEST(TranscriptFacts, OtherTypesOfLineArePassedOver) {
    Json system = assistantLine({toolUse("1", "Read")});
    system["type"] = "system";
    Json untyped = system;
    untyped.erase("type");
    Json noMessage = {{"type", "assistant"}, {"message", Json::array({toolUse("1", "Read")})}};
    EXPECT_EQ(factsOf({system, untyped, noMessage, Json::array(), Json(5)}), TranscriptFacts());
}

TEST(TranscriptFacts, TextBetweenCallsLeavesTheLastCall) {
    const auto facts = factsOf({assistantLine({toolUse("1", "Read")}), assistantLine({textBlock("Hm.")})});
    EXPECT_EQ(facts.tool, "Read");
}

TEST(TranscriptFacts, AHandbackLeavesToolAndDetail) {
    const auto facts = factsOf({
        assistantLine(
            {toolUse("1", "Read", {{"file_path", "/a"}}), toolUse("2", "SubagentHandback", {{"query", "x"}})}
        ),
        userLine({toolResult("2")}),
    });
    EXPECT_TRUE(facts.handedBack);
    EXPECT_EQ(facts.tool, "Read");
    EXPECT_EQ(facts.detail, "a");
}

TEST(TranscriptFacts, OnlyTheLastLineEndsTheTurn) {
    EXPECT_TRUE(factsOf(std::vector{finalLine()}).endedTurn);
    EXPECT_FALSE(factsOf({finalLine(), withContent(userLine({}), "more")}).endedTurn);
    EXPECT_FALSE(factsOf({finalLine(), assistantLine({})}).endedTurn);
    Json other = finalLine();
    other["message"]["stop_reason"] = "max_tokens";
    EXPECT_FALSE(factsOf(std::vector{other}).endedTurn);
    EXPECT_FALSE(factsOf(TranscriptTail({finalLine().dump() + "\n{\"type\":\"assi", 0})).endedTurn);
}

TEST(TranscriptFacts, UnreadableLinesArePassedOver) {
    const std::string call = assistantLine({toolUse("1", "Read")}).dump();
    const std::string result = userLine({toolResult("1")}).dump();
    EXPECT_THAT(
        pendingNames(factsOf(TranscriptTail({call + "\n" + result + "}\n", 0}))), ElementsAre("Read")
    );
    EXPECT_THAT(
        pendingNames(factsOf(TranscriptTail({"{\n[1,\n" + call + "\nnull\n\x01", 0}))), ElementsAre("Read")
    );
}

TEST(TranscriptFacts, ALineWithBadBytesStillCounts) {
    const std::string call = assistantLine({toolUse("1", "Bash", {{"command", "touch BAD"}})}).dump();
    const auto place = call.find("BAD");
    const auto broken = call.substr(0, place) + "\xe4" + call.substr(place + 3);
    EXPECT_EQ(factsOf(TranscriptTail({broken + "\n", 0})).pending.at(0).command, "touch \uFFFD");
}

namespace {

/// The same rules told forward, in the plainest way.
TranscriptFacts forwardFacts(const std::vector<Json>& lines) {
    TranscriptFacts facts;
    std::vector<std::pair<std::string, PendingTool>> open;
    for (const auto& line : lines) {
        const bool isAssistant = line["type"] == "assistant";
        facts.endedTurn = isAssistant && &line == &lines.back() && line["message"].contains("stop_reason");
        for (const auto& object : line["message"]["content"]) {
            if (isAssistant && object["type"] == "tool_use") {
                const auto name = object["name"].get<std::string>();
                open.push_back({object["id"], {name, std::nullopt, std::nullopt, fallback}});
                if (name == "SubagentHandback") {
                    facts.handedBack = true;
                } else {
                    facts.tool = name;
                }
            }
            if (!isAssistant && object["type"] == "tool_result") {
                std::erase_if(open, [&](const auto& call) { return call.first == object["tool_use_id"]; });
            }
        }
        if (isAssistant && line["message"]["model"] != "<synthetic>") {
            facts.model.model = line["message"]["model"];
        }
        if (isAssistant && line.contains("effort")) {
            facts.model.effort = line["effort"];
        }
    }
    for (const auto& call : open) {
        facts.pending.push_back(call.second);
    }
    return facts;
}

/// A line that does nothing but name an effort.
Json withEffort(const std::string& effort) {
    Json line = assistantLine({textBlock("on it")});
    line["effort"] = effort;
    return line;
}

/// One random line; ids are few, so that they meet often.
Json randomLine() {
    const auto id = [] { return std::to_string(*rc::gen::inRange(0, 6)); };
    std::vector<Json> content;
    const int objects = *rc::gen::inRange(0, 4);
    if (*rc::gen::inRange(0, 2) == 0) {
        for (int count = 0; count < objects; ++count) {
            content.push_back(toolResult(id()));
        }
        return userLine(content);
    }
    for (int count = 0; count < objects; ++count) {
        content.push_back(
            toolUse(id(), *rc::gen::element<std::string>("Bash", "Read", "Edit", "SubagentHandback"))
        );
    }
    Json line = assistantLine(content, "none");
    if (*rc::gen::inRange(0, 2) == 0) {
        line["message"]["id"] = "msg_" + id();
    }
    if (*rc::gen::inRange(0, 3) == 0) {
        line["message"]["usage"] = {{"id", id()}};
    }
    line["message"]["model"] = *rc::gen::element<std::string>("claude-a", "claude-b", "<synthetic>");
    if (*rc::gen::inRange(0, 3) == 0) {
        line["effort"] = id();
    }
    if (*rc::gen::inRange(0, 3) == 0) {
        line["message"]["stop_reason"] = "end_turn";
    }
    return line;
}

} // namespace

TEST(TranscriptFacts, WordsSpelledByTheNumbersOfTheirCharactersCount) {
    Json model = assistantLine({textBlock("all done")});
    auto text = transcriptText({assistantLine({toolUse("1", "Read")}), withEffort("high"), model, model});
    for (const auto& [word, spelled] :
         {std::pair<std::string, std::string>{"tool_use", R"(\u0074ool\u005fuse)"},
          {"effort", R"(e\u0066\u0066ort)"}}) {
        text.replace(text.find(word), word.size(), spelled);
    }
    const auto facts = factsOf(TranscriptTail(FileSystem::Tail{text, 0}));
    EXPECT_EQ(facts.tool, "Read");
    EXPECT_EQ(facts.model.effort, "high");
    EXPECT_THAT(pendingNames(facts), ElementsAre("Read"));
}

RC_GTEST_PROP(TranscriptFacts, AreThoseOfReadingForward, ()) {
    const auto count = *rc::gen::inRange<std::size_t>(0, 12);
    std::vector<Json> lines;
    for (std::size_t index = 0; index < count; ++index) {
        lines.push_back(randomLine());
    }
    RC_ASSERT(factsOf(lines) == forwardFacts(lines));
}

namespace {

/// The line of a call's result, long and full of escapes, with an id of any spelling.
std::string longResult(const std::string& spelledId, const std::string& text) {
    std::string content;
    while (content.size() < 3'000) {
        content += R"(say \"so\"\n)";
    }
    return R"({"type":"user","message":{"content":[{"type":"tool_result","tool_use_id":")" + spelledId +
           R"(","content":")" + content + text + "\"}]}}\n";
}

TranscriptFacts factsBefore(const std::string& result, const std::string& id) {
    const std::string calls = transcriptText({assistantLine({toolUse(id, "Read")})});
    return factsOf(TranscriptTail({calls + result + transcriptText({finalLine()}), 0}));
}

} // namespace

TEST(TranscriptFacts, LongResultsAnswerLikeShortOnes) {
    EXPECT_THAT(pendingNames(factsBefore(longResult("1", ""), "1")), IsEmpty());
    EXPECT_THAT(pendingNames(factsBefore(longResult("2", ""), "1")), ElementsAre("Read"));
    EXPECT_THAT(pendingNames(factsBefore(longResult("1", "\\u0041"), "1")), IsEmpty());
    // What is no JSON answers nothing.
    EXPECT_THAT(pendingNames(factsBefore(longResult("1", "\\x"), "1")), ElementsAre("Read"));
    EXPECT_THAT(pendingNames(factsBefore(longResult("1", "\"\\n"), "1")), ElementsAre("Read"));
}

TEST(TranscriptFacts, AnIdWithEscapesIsReadAsItIs) {
    EXPECT_THAT(pendingNames(factsBefore(longResult(R"(a\nb)", ""), "a\nb")), IsEmpty());
    EXPECT_THAT(pendingNames(factsBefore(longResult(R"(a\nb)", ""), "a\tb")), ElementsAre("Read"));
    EXPECT_THAT(
        pendingNames(factsBefore(
            longResult(R"(a\nb)", ""), "a\x7f\x7f"
                                       "b"
        )),
        ElementsAre("Read")
    );
    EXPECT_THAT(
        pendingNames(factsBefore(
            longResult(
                "a\x7f\x7f"
                "b",
                ""
            ),
            "a\x7f\x7f"
            "b"
        )),
        IsEmpty()
    );
}
