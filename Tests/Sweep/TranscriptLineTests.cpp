#include "Sweep/TranscriptLine.h"

#include <gtest/gtest.h>

#include <string>

using namespace mimkins;

namespace {

std::string assistant(const std::string& content, const std::string& more = "") {
    return R"({"type":"assistant")" + more + R"(,"message":{"content":[)" + content + "]}}";
}

std::string call(const std::string& tool, const std::string& input) {
    return R"({"type":"tool_use","name":")" + tool + R"(","input":)" + input + "}";
}

LineVerdict verdict(const std::string& line, const std::string& name = "a.txt", Date since = {1000}) {
    json::Parser parser;
    return TranscriptLine(line, parser).verdict(name, since);
}

bool changes(const std::string& content, const std::string& name = "a.txt") {
    return verdict(assistant(content), name) == LineVerdict::changes;
}

} // namespace

TEST(TranscriptLine, AnEditOfTheFileChangesIt) {
    EXPECT_TRUE(changes(call("Edit", R"({"file_path":"/home/kim/a.txt"})")));
    EXPECT_TRUE(changes(call("Write", R"({"file_path":"a.txt"})")));
    EXPECT_TRUE(changes(call("NotebookEdit", R"({"notebook_path":"x/a.txt"})")));
    EXPECT_TRUE(changes(call("Edit", R"({"file_path":7,"notebook_path":"x/a.txt"})")));
    EXPECT_TRUE(changes(R"({"type":"tool_use","input":{"file_path":"a.txt"}})"));
    EXPECT_TRUE(changes(R"({"type":"text"},)" + call("Edit", R"({"file_path":"/a.txt"})")));
}

TEST(TranscriptLine, OtherFilesAndReadsDoNot) {
    EXPECT_FALSE(changes(call("Read", R"({"file_path":"/home/kim/a.txt"})")));
    EXPECT_FALSE(changes(call("Read", R"({"file_path":"/a.txt","command":"rm a.txt"})")));
    EXPECT_FALSE(changes(call("Edit", R"({"file_path":"/home/kim/aa.txt"})")));
    EXPECT_FALSE(changes(call("Edit", R"({"file_path":"/a.txt/b"})")));
    EXPECT_FALSE(changes(call("Edit", R"({"file_path":"a.txt","x":1})"), "b.txt"));
    EXPECT_FALSE(changes(call("Edit", R"("/a.txt")")));
    EXPECT_FALSE(changes(R"({"type":"tool_use","name":"Edit"})"));
    EXPECT_FALSE(changes(R"({"type":"text","name":"Edit","input":{"file_path":"a.txt"}})"));
    EXPECT_FALSE(changes(R"(7,"a.txt",null)"));
}

TEST(TranscriptLine, ACommandCountsIfAnotherFileIsThePath) {
    EXPECT_TRUE(changes(call("Tool", R"({"file_path":"/b.txt","command":"rm a.txt"})")));
}

TEST(TranscriptLine, OnlyAssistantsCallTools) {
    const std::string content = call("Edit", R"({"file_path":"a.txt"})");
    EXPECT_EQ(verdict(R"({"type":"user","message":{"content":[)" + content + "]}}"), LineVerdict::silent);
    EXPECT_EQ(verdict(R"({"message":{"content":[)" + content + "]}}"), LineVerdict::silent);
    EXPECT_EQ(verdict(R"({"type":"assistant","content":[)" + content + "]}"), LineVerdict::silent);
    EXPECT_EQ(verdict(R"({"type":"assistant","message":{"content":"a.txt"}})"), LineVerdict::silent);
    EXPECT_EQ(verdict("[" + assistant(content) + "]"), LineVerdict::silent);
    EXPECT_EQ(verdict(assistant(content) + "}"), LineVerdict::silent);
    EXPECT_EQ(verdict(""), LineVerdict::silent);
    EXPECT_EQ(verdict(assistant(content)), LineVerdict::changes);
}

TEST(TranscriptLine, OlderLinesEndTheSearch) {
    const std::string content = call("Edit", R"({"file_path":"a.txt"})");
    const auto at = [&](const std::string& time) {
        return verdict(assistant(content, R"(,"timestamp":")" + time + "\""));
    };
    EXPECT_EQ(at("1970-01-01T00:16:39.999Z"), LineVerdict::tooOld);
    EXPECT_EQ(at("1970-01-01T00:16:40.000Z"), LineVerdict::changes);
    EXPECT_EQ(at("1970-01-01T00:16:39Z"), LineVerdict::changes) << "a time without a fraction isn't one";
    EXPECT_EQ(at("yesterday"), LineVerdict::changes);
    EXPECT_EQ(verdict(R"({"type":"user","timestamp":"1970-01-01T00:00:00.0Z"})"), LineVerdict::tooOld);
}

TEST(TranscriptLine, CommandsThatMerelyReadDoNotCount) {
    EXPECT_TRUE(commandChanges("echo hi > a.txt", "a.txt"));
    EXPECT_FALSE(commandChanges("cat a.txt", "a.txt"));
    EXPECT_TRUE(commandChanges("sed -i s/a/b/ a.txt", "a.txt"));
    EXPECT_TRUE(commandChanges("git add a.txt && rm a.txt", "a.txt"));
    EXPECT_FALSE(commandChanges("git add a.txt && rm b.txt", "a.txt"));
    EXPECT_TRUE(commandChanges("cat a.txt > b.txt", "a.txt"));
    EXPECT_FALSE(commandChanges("cat a.txt; grep x a.txt | wc a.txt\n \tls a.txt", "a.txt"));
    EXPECT_TRUE(commandChanges("cats a.txt", "a.txt"));
    EXPECT_TRUE(commandChanges("cat\ta.txt", "a.txt"));
    EXPECT_FALSE(commandChanges("", "a.txt"));
    EXPECT_FALSE(commandChanges(";|&\n", "a.txt"));
    for (const char* word :
         {"git", "cat", "grep", "rg", "head", "tail", "wc", "ls", "stat", "diff", "file", "open", "less"}) {
        EXPECT_FALSE(commandChanges(std::string(word) + " a.txt", "a.txt")) << word;
    }
}

TEST(TranscriptLine, ACallMayCarryACommand) {
    EXPECT_TRUE(changes(call("Bash", R"({"command":"touch a.txt"})")));
    EXPECT_FALSE(changes(call("Bash", R"({"command":"ls a.txt"})")));
    EXPECT_FALSE(changes(call("Bash", R"({"command":["touch a.txt"]})")));
}
