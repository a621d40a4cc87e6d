#include "Mimkin.h"
#include "OnTerminal.h"

#include "Presentation/Table.h"
#include "Support/ChildProcess.h"
#include "Support/GitRepository.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

using namespace mimkins;
using namespace mimkins::test;

namespace {

constexpr std::int64_t now = 1'795'246'200'000; // 21 November 2026, 07:30 UTC
constexpr std::int64_t minute = 60'000;
const std::string nowWord = std::to_string(now);

class Why : public testing::Test {
protected:
    void addStatus(nlohmann::json record) const {
        record.emplace("event", "E");
        record.emplace("since", record["ts"]);
        writeFile(mimkin.paths().sessions() + "/" + record["id"].get<std::string>() + ".json", record.dump());
    }

    void addRegistered(const std::string& id, const std::string& status, std::int64_t updated) const {
        const nlohmann::json entry{
            {"sessionId", id}, {"status", status}, {"pid", ::getpid()}, {"updatedAt", updated}};
        writeFile(mimkin.paths().clientRegistry() + "/" + id + ".json", entry.dump());
    }

    void addDesktop(const std::string& id, nlohmann::json facts) const {
        facts["cliSessionId"] = id;
        facts["sessionId"] = "local_" + id;
        writeFile(mimkin.paths().desktopSessions() + "/a/b/local_" + id + ".json", facts.dump());
    }

    nlohmann::json json(const std::string& id) const {
        return mimkin.json({"why", id, "--json", "--at", nowWord});
    }

    std::string text(const std::string& id) const { return mimkin.run({"why", id, "--at", nowWord}).output; }

    /// What the list shows of a session: its mood, or nothing.
    nlohmann::json listedMood(const std::string& id) const {
        const auto document = mimkin.json({"sessions", "--json", "--at", nowWord});
        for (const auto& session : document["sessions"]) {
            if (session["id"] == id) {
                return session["mood"];
            }
        }
        return nullptr;
    }

    /// The session is off the list for this reason, and the list agrees.
    void expectAbsent(const std::string& id, const std::string& absence) const {
        const auto document = json(id);
        EXPECT_EQ(document["absence"], absence);
        EXPECT_EQ(document["listed"], false);
        EXPECT_EQ(listedMood(id), nullptr);
    }

    Mimkin mimkin;
};

bool has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

} // namespace

TEST_F(Why, TellsWhatEachSourceSays) {
    addStatus(
        {{"id", "abc"},
         {"state", "waiting"},
         {"event", "PermissionRequest"},
         {"tool", "Bash"},
         {"detail", "make"},
         {"project", "shop"},
         {"title", "Till"},
         {"ts", now - 5 * minute}}
    );
    addRegistered("abc", "busy", now - 2 * minute);
    const auto document = json("abc");
    std::set<std::string> keys;
    for (const auto& [key, value] : document.items()) {
        keys.insert(key);
    }
    EXPECT_EQ(
        keys, (std::set<std::string>{
                  "id", "listed", "absence", "mood", "speaker", "speakerReason", "rule", "sources"})
    );
    EXPECT_EQ(document["id"], "abc");
    EXPECT_EQ(document["listed"], true);
    EXPECT_EQ(document["absence"], nullptr);
    EXPECT_EQ(document["mood"], "working");
    EXPECT_EQ(document["mood"], listedMood("abc"));
    EXPECT_EQ(document["speaker"], "registry");
    EXPECT_EQ(document["speakerReason"], "registryIsNewer");
    EXPECT_EQ(document["rule"], "registryStatus");
    ASSERT_EQ(document["sources"].size(), 8U);
    EXPECT_EQ(
        document["sources"][0], (nlohmann::json{
                                    {"name", "statusRecord"},
                                    {"says", "\"waiting\" · PermissionRequest · Bash: make"},
                                    {"time", now - 5 * minute},
                                    {"ageSeconds", 300},
                                    {"speaks", false}})
    );
    EXPECT_EQ(document["sources"][1]["speaks"], true);
    EXPECT_EQ(document["sources"][1]["ageSeconds"], 120);
    EXPECT_EQ(
        document["sources"][2], (nlohmann::json{
                                    {"name", "desktopClient"},
                                    {"says", nullptr},
                                    {"time", nullptr},
                                    {"ageSeconds", nullptr},
                                    {"speaks", false}})
    );
    const auto words = text("abc");
    EXPECT_TRUE(has(words, "Status record    5m   \"waiting\" · PermissionRequest · Bash: make\n")) << words;
    EXPECT_TRUE(
        has(words, "The client registry speaks: it disagrees with the status record, and is newer.\n"
                   "Working: the client registry says \"busy\".\nIt is listed.\n")
    ) << words;
}

TEST_F(Why, TellsOfTheRepositoryThatSettledTheMood) {
    GitRepository repository;
    writeFile(repository / "a.txt", "one\n");
    repository.commitAll();
    writeFile(repository / "a.txt", "one\ntwo\n");
    addStatus({{"id", "abc"}, {"state", "done"}, {"ts", now - minute}, {"cwd", repository.root()}});
    const auto document = json("abc");
    EXPECT_EQ(document["mood"], "commitWaiting");
    EXPECT_EQ(document["mood"], listedMood("abc"));
    EXPECT_EQ(document["rule"], "linesUncommitted");
    EXPECT_EQ(document["sources"][4]["says"], "+1 −0 on main");
    EXPECT_EQ(document["sources"][4]["time"], now);
}

TEST_F(Why, ExplainsThoseThatAreNotListed) {
    addStatus({{"id", "old"}, {"state", "done"}, {"ts", now - 45 * minute}});
    expectAbsent("old", "outOfPlay");
    EXPECT_EQ(json("old")["mood"], "yourTurn");
    EXPECT_TRUE(
        has(text("old"), "Not listed: there was no sign of life for 45m, and sessions leave after 30m.")
    );

    addStatus({{"id", "filed"}, {"state", "waiting"}, {"ts", now}});
    addDesktop("filed", {{"isArchived", true}});
    expectAbsent("filed", "archived");
    EXPECT_EQ(json("filed")["mood"], nullptr) << "the derivation doesn't get so far";

    addDesktop("past", {{"title", "Past"}});
    expectAbsent("past", "noSource");

    const std::string preferences = mimkin.paths().preferencesFolder() + "/app.mimkins.json";
    addStatus({{"id", "seen"}, {"state", "done"}, {"ts", now - minute}});
    addDesktop("seen", {{"lastFocusedAt", now}});
    EXPECT_EQ(json("seen")["rule"], "focusedSince");
    writeFile(preferences, R"({"showDone":false})");
    expectAbsent("seen", "doneHidden");
    EXPECT_EQ(json("seen")["mood"], "done");
}

TEST_F(Why, ExplainsThoseThatHaveEnded) {
    addStatus({{"id", "left"}, {"state", "working"}, {"ts", now - minute}});
    EXPECT_EQ(json("left")["listed"], true) << "an empty registry proves nothing";
    addRegistered("other", "busy", now);
    expectAbsent("left", "leftBehind");
    EXPECT_EQ(json("left")["speaker"], nullptr);
    EXPECT_TRUE(has(text("left"), "Not listed: its client has ended, and left the status record behind.\n"));

    ChildProcess agent("/bin/true", {"true"});
    const auto pid = agent.pid();
    agent.end();
    addStatus({{"id", "gone"}, {"state", "working"}, {"ts", now}, {"agent", "x"}, {"pid", pid}});
    expectAbsent("gone", "agentEnded");
}

TEST_F(Why, TakesTheBeginningOfAnIdIfOnlyOneBeginsSo) {
    addStatus({{"id", "abc"}, {"state", "done"}, {"ts", now}});
    addStatus({{"id", "abd"}, {"state", "done"}, {"ts", now}});
    addStatus({{"id", "abdomen"}, {"state", "done"}, {"ts", now}});
    EXPECT_EQ(json("abc")["id"], "abc");
    EXPECT_EQ(json("abdo")["id"], "abdomen");
    EXPECT_EQ(json("abd")["id"], "abd") << "a whole id is never ambiguous";

    const auto several = mimkin.run({"why", "ab"});
    EXPECT_EQ(several.status, 1);
    EXPECT_EQ(several.output, "");
    EXPECT_EQ(several.errors, "mimkin: several sessions begin with \"ab\":\n  abc\n  abd\n  abdomen\n");
    const auto none = mimkin.run({"why", "x\033[2J"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.errors, "mimkin: no session begins with \"x [2J\"; there are:\n  abc\n  abd\n  abdomen\n");
}

TEST_F(Why, WrongWordsAreAUsageError) {
    addStatus({{"id", "abc"}, {"state", "done"}, {"ts", now}});
    EXPECT_EQ(mimkin.run({"why"}).status, 2);
    EXPECT_EQ(mimkin.run({"why", ""}).status, 2) << "an empty variable must not name the only session";
    EXPECT_EQ(mimkin.run({"why", "abc", "--at", "noon"}).status, 2);
    EXPECT_TRUE(has(mimkin.run({"why", "--help"}).output, "Exit codes: 0 told"));
}

TEST_F(Why, FitsTheTerminalAndKeepsOutsideTextFromSteeringIt) {
    addStatus(
        {{"id", "abc"},
         {"state", "working"},
         {"tool", "Bash"},
         {"detail", "echo \033[31m\n" + std::string(100, 'x')},
         {"title", "A title\r\n" + std::string(100, 'y')},
         {"ts", now}}
    );
    const auto line = mimkin.commandLine({"why", "abc", "--at", nowWord});
    const auto plain = runOnTerminal(line, 40, {"NO_COLOR=1"});
    EXPECT_EQ(plain.status, 0);
    EXPECT_FALSE(has(plain.output, "\033"));
    std::istringstream lines(plain.output);
    for (std::string row; std::getline(lines, row);) {
        EXPECT_LE(displayWidth(row), 40U) << row;
    }
    const auto colored = runOnTerminal(line, 40);
    EXPECT_TRUE(has(colored.output, "\033[32mStatus record\033[0m")) << colored.output;
    EXPECT_FALSE(has(colored.output, "\033[31m"));
}
