#include "Mimkin.h"
#include "OnTerminal.h"

#include "Platform/Linux/ProgressNote.h"
#include "Presentation/Table.h"
#include "Support/ChildProcess.h"
#include "Support/GitRepository.h"

#include <gtest/gtest.h>

#include <poll.h>

#include <chrono>
#include <set>
#include <sstream>

using namespace mimkins;
using namespace mimkins::test;

namespace {

constexpr std::int64_t now = 1'795'246'200'000; // 21 November 2026, 07:30 UTC
constexpr std::int64_t minute = 60'000;
constexpr std::int64_t hour = 60 * minute;
const std::string nowWord = std::to_string(now);

std::set<std::string> keys(const nlohmann::json& object) {
    std::set<std::string> result;
    for (const auto& [key, value] : object.items()) {
        result.insert(key);
    }
    return result;
}

/// A desktop session as the desktop client notes it.
nlohmann::json desktop(const std::string& id, const std::string& root, std::int64_t lastActivity) {
    return {
        {"cliSessionId", id},
        {"sessionId", "local_" + id},
        {"title", "Title of " + id},
        {"lastActivityAt", lastActivity},
        {"gitAnchors", {{{"gitRoot", root}}}}};
}

/// A home with what a sweep looks at.
class Wrapup : public testing::Test {
protected:
    void addDesktop(const nlohmann::json& session) const {
        writeFile(
            mimkin.paths().desktopSessions() + "/a/b/" + session["sessionId"].get<std::string>() + ".json",
            session.dump()
        );
    }

    void addStatus(nlohmann::json record) const {
        record["event"] = "E";
        writeFile(mimkin.paths().sessions() + "/" + record["id"].get<std::string>() + ".json", record.dump());
    }

    /// A session of a running client, whose transcript holds these lines.
    void addRegistered(const std::string& id, pid_t pid, const std::string& transcript) const {
        const nlohmann::json entry{{"sessionId", id}, {"status", "busy"},     {"cwd", "/w"},
                                   {"pid", pid},      {"updatedAt", now - 1}, {"startedAt", now - hour},
                                   {"name", "Name"}};
        writeFile(mimkin.paths().clientRegistry() + "/" + id + ".json", entry.dump());
        writeFile(mimkin.paths().clientProjects() + "/-w/" + id + ".jsonl", transcript);
    }

    void changeRepository() {
        writeFile(repository / "a.txt", "one\ntwo\n");
        repository.commitAll();
        writeFile(repository / "a.txt", "one\n2\n3\n4\n");
    }

    ProgramResult run() const { return mimkin.run({"wrapup", "--at", nowWord}); }

    nlohmann::json json() const { return mimkin.json({"wrapup", "--json", "--at", nowWord}); }

    Mimkin mimkin;
    GitRepository repository;
};

const std::string cronLines =
    R"x({"type":"tool_use","id":"toolu_1","name":"CronCreate","input":{"cron":"0 9 * * 1","prompt":""}}
[{"tool_use_id":"toolu_1","type":"tool_result","content":"Scheduled recurring task ab (0 9 * * 1)"}],"timestamp":"2026-11-21T07:20:00Z"}
)x";

std::string backgroundLine(const std::string& id) {
    return R"({"content":"Command running in background with ID: )" + id +
           R"(. Output is","timestamp":"2026-11-21T07:10:00Z"})"
           "\n";
}

} // namespace

TEST_F(Wrapup, NothingLeftIsAllClear) {
    const auto result = run();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(
        result.output, "All clear. Good night! 🌙\nNothing waiting on you, nothing left to commit.\n\n"
                       "Checked 07:30\n"
    );
    EXPECT_EQ(result.errors, "") << "no progress is told but on a terminal";
    const auto document = json();
    EXPECT_EQ(
        document,
        nlohmann::json::parse(
            R"({"generated":1795246200000,"waiting":[],"repositories":[],"scheduled":[],"running":[],
                      "allClear":true})"
        )
    );
    EXPECT_TRUE(document["generated"].is_number_integer());
}

TEST_F(Wrapup, TellsOfUncommittedLines) {
    changeRepository();
    addDesktop(desktop("s", repository.root(), now - hour));
    const auto result = run();
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(
        result.output, "Uncommitted changes 1\n  repository  +3 −1 on main · Title of s\n\nChecked 07:30\n"
    );
    const auto document = json();
    EXPECT_EQ(document["allClear"], false);
    EXPECT_EQ(
        document["repositories"], nlohmann::json::array(
                                      {{{"root", repository.root()},
                                        {"added", 3},
                                        {"removed", 1},
                                        {"branch", "main"},
                                        {"files", {"a.txt"}},
                                        {"sessionTitle", "Title of s"},
                                        {"localId", "local_s"}}}
                                  )
    );
    EXPECT_EQ(mimkin.run({"wrapup", "--json", "--at", nowWord}).status, 3);
}

TEST_F(Wrapup, ADetachedHeadHasNoBranch) {
    changeRepository();
    repository.git({"checkout", "--quiet", "--detach"});
    addDesktop(desktop("s", repository.root(), now - hour));
    EXPECT_EQ(json()["repositories"][0]["branch"], nullptr);
    EXPECT_NE(run().output.find("repository  +3 −1 · Title of s\n"), std::string::npos) << run().output;
}

TEST_F(Wrapup, LooksBackTwoDaysAndNeverAtArchivedSessions) {
    changeRepository();
    addDesktop(desktop("s", repository.root(), now - 48 * hour));
    EXPECT_EQ(run().status, 0);
    addDesktop(desktop("s", repository.root(), now - 47 * hour));
    EXPECT_EQ(run().status, 3);
    auto archived = desktop("s", repository.root(), now - hour);
    archived["isArchived"] = true;
    addDesktop(archived);
    EXPECT_EQ(run().status, 0);
}

TEST_F(Wrapup, OneLineForARepositoryUnderTheLaterSession) {
    changeRepository();
    addDesktop(desktop("early", repository.root(), now - 3 * hour));
    addDesktop(desktop("late", repository.root(), now - hour));
    addDesktop(desktop("earliest", repository.root(), now - 5 * hour));
    const auto repositories = json()["repositories"];
    ASSERT_EQ(repositories.size(), 1U);
    EXPECT_EQ(repositories[0]["sessionTitle"], "Title of late");
}

TEST_F(Wrapup, ACleanRepositoryIsNoLine) {
    changeRepository();
    repository.commitAll();
    addDesktop(desktop("s", repository.root(), now - hour));
    addDesktop(desktop("gone", repository.outside("nowhere"), now - hour));
    EXPECT_EQ(run().status, 0);
}

TEST_F(Wrapup, TellsWhoWaits) {
    addStatus(
        {{"id", "s"},
         {"state", "waiting"},
         {"since", now - 2 * minute},
         {"ts", now - minute},
         {"project", "shop"}}
    );
    const auto result = run();
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.output, "Waiting on you 1\n  shop  Needs your OK · 2m\n\nChecked 07:30\n");
    EXPECT_EQ(json()["waiting"], nlohmann::json::array({"s"}));
}

TEST_F(Wrapup, ScheduledWorkIsForTheNightShift) {
    addRegistered("s", ::getpid(), cronLines);
    const auto result = run();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(
        result.output, "All clear. The night shift has it from here 🌙\n"
                       "Nothing waiting on you, nothing left to commit.\n\n"
                       "Scheduled 1\n  Recurring  Follow-up · Name\n\nChecked 07:30\n"
    );
    const auto document = json();
    EXPECT_EQ(document["allClear"], true);
    EXPECT_EQ(
        document["scheduled"],
        nlohmann::json::parse(
            R"([{"item":{"id":"ab","fire":null,"recurring":true,"prompt":""},"sessionTitle":"Name",
            "localId":null}])"
        )
    );
    EXPECT_EQ(
        keys(document["scheduled"][0]["item"]), (std::set<std::string>{"id", "fire", "recurring", "prompt"})
    );
}

TEST_F(Wrapup, CommandsThatStillRunKeepTheUser) {
    // The test stands for the client, and shells that have stopped themselves for its commands.
    const std::vector<std::string> stopped{"sh", "-c", "kill -STOP $$"};
    const ChildProcess first("/bin/sh", stopped);
    const ChildProcess second("/bin/sh", stopped);
    addRegistered("s", ::getpid(), backgroundLine("a1"));
    const auto document = json();
    EXPECT_EQ(
        document["running"], nlohmann::json::parse(R"([{"sessionTitle":"Name","localId":null,"commands":1}])")
    );
    EXPECT_EQ(document["allClear"], false);
    const auto result = run();
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.output, "Still running 1\n  Name  1 background command\n\nChecked 07:30\n");
}

TEST_F(Wrapup, FitsTheTerminalAndKeepsOutsideTextFromSteeringIt) {
    changeRepository();
    auto session = desktop("s", repository.root(), now - hour);
    session["title"] = "A \033[31mlong\ntitle that goes on, on and on, and then goes on";
    addDesktop(session);
    const auto line = mimkin.commandLine({"wrapup", "--at", nowWord});
    const auto colored = runOnTerminal(line, 40);
    EXPECT_EQ(colored.status, 3);
    EXPECT_NE(colored.output.find("\033[1mUncommitted changes\033[0m\033[2m 1\033[0m\n"), std::string::npos)
        << colored.output;
    EXPECT_EQ(colored.output.find("\033[31m"), std::string::npos);

    const auto plain = runOnTerminal(line, 40, {"NO_COLOR=1"});
    EXPECT_EQ(plain.output.find('\033'), std::string::npos) << plain.output;
    std::istringstream lines(plain.output);
    std::size_t count = 0;
    for (std::string text; std::getline(lines, text); ++count) {
        EXPECT_LE(displayWidth(text), 40U) << text;
    }
    EXPECT_EQ(count, 4U) << plain.output;
    EXPECT_NE(plain.output.find("…"), std::string::npos);
}

TEST_F(Wrapup, WrongWordsAreAUsageError) {
    EXPECT_EQ(mimkin.run({"wrapup", "--at", "tonight"}).status, 2);
    EXPECT_EQ(mimkin.run({"wrapup", "more"}).status, 2);
    const auto help = mimkin.run({"wrapup", "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("3 something is left"), std::string::npos);
}

namespace {

/// Both ends of a terminal.
struct Terminal {
    Terminal() { EXPECT_EQ(::openpty(&outer, &inner, nullptr, nullptr, nullptr), 0); }

    ~Terminal() {
        ::close(inner);
        ::close(outer);
    }

    std::string read() const {
        std::string text(256, '\0');
        const auto count = ::read(outer, text.data(), text.size());
        text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return text;
    }

    bool hasOutput() const {
        pollfd wait{outer, POLLIN, 0};
        return ::poll(&wait, 1, 0) == 1;
    }

    int outer = -1;
    int inner = -1;
};

} // namespace

TEST(ProgressNote, ShowsItsWordsAndLeavesNothing) {
    const Terminal terminal;
    {
        const ProgressNote note(terminal.inner, "Checking…", std::chrono::milliseconds(0));
        EXPECT_EQ(terminal.read(), "Checking…");
    }
    EXPECT_EQ(terminal.read(), "\r\033[K");
}

TEST(ProgressNote, SaysNothingOfQuickWork) {
    const Terminal terminal;
    { const ProgressNote note(terminal.inner, "Checking…", std::chrono::hours(1)); }
    EXPECT_FALSE(terminal.hasOutput());
}

TEST(ProgressNote, LeavesAPipeAlone) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    { const ProgressNote note(ends[1], "Checking…", std::chrono::milliseconds(0)); }
    ::close(ends[1]);
    char byte = 0;
    EXPECT_EQ(::read(ends[0], &byte, 1), 0);
    ::close(ends[0]);
}
