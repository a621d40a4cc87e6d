#include "Mimkin.h"

#include "SessionStore/StatusReader.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace mimkins;
using namespace mimkins::test;

namespace {

std::vector<std::string> filesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        names.push_back(entry.path().filename());
    }
    return names;
}

/// The only record in the sessions folder.
std::optional<StatusRecord> onlyRecord(const Mimkin& mimkin) {
    const auto names = filesIn(mimkin.paths().sessions());
    return names.size() == 1 ? parseStatusRecord(readWhole(mimkin.paths().sessions() + "/" + names.front()))
                             : std::nullopt;
}

std::vector<std::string> reporting(std::vector<std::string> more) {
    std::vector<std::string> words{"report", "--agent", "codex", "--id", "42"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

} // namespace

TEST(Report, WritesEveryField) {
    const Mimkin mimkin;
    const auto result = mimkin.run(reporting({"--state",        "waiting",
                                              "--event",        "Ask",
                                              "--tool",         "Bash",
                                              "--detail",       "d",
                                              "--message",      "m \"q\" é",
                                              "--notification", "n",
                                              "--cwd",          "/home/kim/shop",
                                              "--project",      "p",
                                              "--transcript",   "/t.jsonl",
                                              "--effort",       "high",
                                              "--model",        "x",
                                              "--title",        "T",
                                              "--pid",          "12",
                                              "--open",         "https://example.org/42",
                                              "--since",        "1000",
                                              "--ts",           "2000"}));
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, "");
    const auto record = onlyRecord(mimkin);
    ASSERT_TRUE(record);
    StatusRecord expected;
    expected.state = "waiting";
    expected.since = 1000;
    expected.id = "42";
    expected.event = "Ask";
    expected.tool = "Bash";
    expected.detail = "d";
    expected.message = "m \"q\" é";
    expected.notification = "n";
    expected.cwd = "/home/kim/shop";
    expected.project = "p";
    expected.transcript = "/t.jsonl";
    expected.effort = "high";
    expected.model = "x";
    expected.ts = 2000;
    expected.agent = "codex";
    expected.title = "T";
    expected.pid = 12;
    expected.open = "https://example.org/42";
    EXPECT_EQ(*record, expected);
}

TEST(Report, KeepsSinceWhileTheStateStays) {
    const Mimkin mimkin;
    mimkin.run(reporting({"--state", "working", "--ts", "1000"}));
    mimkin.run(reporting({"--state", "working", "--tool", "Bash", "--ts", "2000"}));
    EXPECT_EQ(onlyRecord(mimkin)->since, 1000);
    EXPECT_EQ(onlyRecord(mimkin)->ts, 2000);
    mimkin.run(reporting({"--state", "waiting", "--ts", "3000"}));
    EXPECT_EQ(onlyRecord(mimkin)->since, 3000);
    mimkin.run(reporting({"--state", "waiting", "--ts", "4000", "--since", "3500"}));
    EXPECT_EQ(onlyRecord(mimkin)->since, 3500);
}

TEST(Report, ReplacesABrokenRecord) {
    const Mimkin mimkin;
    mimkin.run(reporting({"--state", "working", "--ts", "1000"}));
    const auto file = mimkin.paths().sessions() + "/" + filesIn(mimkin.paths().sessions()).front();
    writeFile(file, "{\"state\":");
    EXPECT_EQ(mimkin.run(reporting({"--state", "working", "--ts", "2000"})).status, 0);
    EXPECT_EQ(onlyRecord(mimkin)->since, 2000);
}

TEST(Report, NamesTheProjectAfterTheFolder) {
    const Mimkin mimkin;
    mimkin.run(reporting({"--state", "done", "--cwd", "/home/kim/my shop/"}));
    EXPECT_EQ(onlyRecord(mimkin)->project, "my shop");
}

TEST(Report, ClearRemovesTheRecordAndMayBeRepeated) {
    const Mimkin mimkin;
    mimkin.run(reporting({"--state", "done"}));
    EXPECT_EQ(mimkin.run(reporting({"--clear"})).status, 0);
    EXPECT_TRUE(filesIn(mimkin.paths().sessions()).empty());
    EXPECT_EQ(mimkin.run(reporting({"--clear"})).status, 0);
}

TEST(Report, HostileIdsStayInTheFolder) {
    const Mimkin mimkin;
    for (const std::string id : {"../../evil", "a/b", ".hidden", "-rf", "..", "x y\"z", "日本"}) {
        EXPECT_EQ(mimkin.run({"report", "--agent", "a", "--id=" + id, "--state", "done"}).status, 0) << id;
    }
    EXPECT_EQ(filesIn(mimkin.paths().sessions()).size(), 7U);
    EXPECT_EQ(mimkin.json({"sessions", "--json"})["sessions"].size(), 7U) << "none is hidden, none is lost";
}

TEST(Report, RefusesWhatNobodyCouldRead) {
    const Mimkin mimkin;
    const std::vector<std::vector<std::string>> wrong{
        {"report", "--agent", "a", "--state", "done"},
        {"report", "--id", "1", "--state", "done"},
        {"report", "--agent", "a", "--id", "1"},
        {"report", "--agent", "a", "--id", "", "--state", "done"},
        {"report", "--agent", "", "--id", "1", "--state", "done"},
        {"report", "--agent", "a", "--id", std::string(300, 'x'), "--state", "done"},
        {"report", "--agent", "a", "--id", "tab\t", "--state", "done"},
        reporting({"--state", "busy"}),
        reporting({"--state", "done", "--pid", "0"}),
        reporting({"--state", "done", "--pid", "12x"}),
        reporting({"--state", "done", "--pid", "4294967297"}),
        reporting({"--state", "done", "--ts", "soon"}),
        reporting({"--state", "done", "--ts", "-1"}),
        reporting({"--state", "done", "--since", "inf"}),
        reporting({"--state", "done", "--open", "javascript:alert(1)"}),
        reporting({"--state", "done", "--open", "file:///a b"}),
        reporting({"--state", "done", "--title", "\xff"}),
        reporting({"--state", "done", "--title", std::string(20'000, 'x')}),
        reporting({"--state", "done", "--unknown", "x"}),
        {"--home", "relative", "sessions"},
        {},
        {"nonsense"},
    };
    for (const auto& words : wrong) {
        const auto result = mimkin.run(words);
        EXPECT_EQ(result.status, 2) << result.output << result.errors;
        EXPECT_FALSE(result.errors.empty());
    }
    EXPECT_TRUE(filesIn(mimkin.paths().sessions()).empty());
}

TEST(Report, SaysWhatFailed) {
    const Mimkin mimkin;
    writeFile(mimkin.home() / "Library", "in the way");
    const auto result = mimkin.run(reporting({"--state", "done"}));
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("couldn't make the folder"), std::string::npos) << result.errors;
}

TEST(Help, StandsForEveryCommand) {
    const Mimkin mimkin;
    EXPECT_EQ(mimkin.run({"--help"}).status, 0);
    EXPECT_EQ(mimkin.run({"--version"}).status, 0);
    for (const char* command : {"report", "sessions", "hooks"}) {
        const auto result = mimkin.run({command, "--help"});
        EXPECT_EQ(result.status, 0);
        EXPECT_NE(result.output.find("Exit codes:"), std::string::npos) << command;
        EXPECT_NE(result.output.find("mimkin " + std::string(command)), std::string::npos) << command;
    }
}
