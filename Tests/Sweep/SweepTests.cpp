#include "Support/FakeGit.h"
#include "Sweep/RunSweep.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;

namespace {

constexpr Date now{1'795'246'096};
constexpr double hour = 3'600;

AppSessionInfo desktop(const std::string& localId, double hoursAgo, const std::string& root = "/r") {
    AppSessionInfo info;
    info.localId = localId;
    info.title = "Title of " + localId;
    info.gitRoot = root;
    info.lastActivity = now - hoursAgo * hour;
    return info;
}

RegistryEntry entry(const std::string& id, std::int32_t pid = 7) {
    RegistryEntry result;
    result.sessionId = id;
    result.pid = pid;
    result.started = now - hour;
    return result;
}

/// What the store knows, and what the transcripts say.
class Sweep : public testing::Test {
protected:
    SweepRequest gather() const {
        return gatherSweep(
            {sessions, appInfo, registry,
             [this](const std::string& id) -> std::optional<std::string> {
                 return id == pathless ? std::nullopt : std::optional("/t/" + id);
             }},
            now
        );
    }

    SweepReport run() {
        return runSweep(
            gather(), {git,
                       [this](const SweptTranscript& transcript, Date date) {
                           EXPECT_EQ(date, now);
                           return work[transcript.path];
                       },
                       [this](std::int32_t pid) { return shells[pid]; }}
        );
    }

    std::vector<std::string> roots() const {
        std::vector<std::string> result;
        for (const auto& repository : gather().repositories) {
            result.push_back(repository.root);
        }
        return result;
    }

    std::vector<Session> sessions;
    std::map<std::string, AppSessionInfo> appInfo;
    std::map<std::string, RegistryEntry> registry;
    std::string pathless;
    std::map<std::string, BackgroundWork> work; ///< by path
    std::map<std::int32_t, std::int64_t> shells{{7, 9}};
    FakeGit git;
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(Sweep, LooksAtRepositoriesOfTheLastTwoDays) {
    appInfo["a"] = desktop("a", 47, "/a");
    appInfo["b"] = desktop("b", 48, "/b");
    appInfo["c"] = desktop("c", 47.999, "/c");
    appInfo["future"] = desktop("future", -1, "/future");
    appInfo["unknown"] = desktop("unknown", 0, "/unknown");
    appInfo["unknown"].lastActivity.reset();
    appInfo["archived"] = desktop("archived", 0, "/archived");
    appInfo["archived"].archived = true;
    EXPECT_EQ(roots(), (Texts{"/a", "/c", "/future"}));
}

TEST_F(Sweep, TheRootMayComeFromTheRegistry) {
    appInfo["a"] = desktop("a", 1);
    appInfo["a"].gitRoot.reset();
    EXPECT_EQ(roots(), Texts{});
    registry["a"] = entry("a");
    EXPECT_EQ(roots(), Texts{});
    registry["a"].cwd = "/cwd";
    EXPECT_EQ(roots(), Texts{"/cwd"});
    appInfo["a"].gitRoot = "/top";
    EXPECT_EQ(roots(), Texts{"/top"});
}

TEST_F(Sweep, ARepositoryIsNamedAfterItsLatestSession) {
    appInfo["a"] = desktop("early", 3);
    appInfo["b"] = desktop("late", 1);
    appInfo["c"] = desktop("middle", 2);
    EXPECT_EQ(
        gather().repositories, (std::vector<SweptRepository>{{"/r", "Title of late", "late", now - hour}})
    );
    appInfo["b"].title.reset();
    EXPECT_EQ(gather().repositories.front().title, "Untitled");
}

TEST_F(Sweep, LooksAtEveryRegisteredTranscript) {
    registry["a"] = entry("a", 11);
    registry["a"].localId = "local";
    registry["a"].name = "Name";
    registry["b"] = entry("b");
    registry["c"] = entry("c");
    registry["d"] = entry("d");
    appInfo["a"] = desktop("a", 1);
    appInfo["b"] = desktop("b", 100);
    pathless = "d";
    EXPECT_EQ(
        gather().transcripts, (std::vector<SweptTranscript>{
                                  {"a", "Name", "local", "/t/a", now - hour, 11},
                                  {"b", "Title of b", std::nullopt, "/t/b", now - hour, 7},
                                  {"c", "Untitled", std::nullopt, "/t/c", now - hour, 7},
                              })
    );
}

TEST_F(Sweep, ReportsWhoWaits) {
    Session waiting;
    waiting.id = "w";
    waiting.mood = Mood::question;
    Session working;
    working.id = "x";
    working.mood = Mood::working;
    sessions = {working, waiting};
    const auto report = run();
    EXPECT_EQ(report.generated, now);
    EXPECT_EQ(report.waiting, std::vector<Session>{waiting});
}

TEST_F(Sweep, ReportsRepositoriesWithLinesWhateverTheMoods) {
    appInfo["a"] = desktop("a", 1, "/a");
    git.setChanges(" 2 files changed, 3 insertions(+), 1 deletion(-)", "f", "main");
    EXPECT_EQ(
        run().repos, (std::vector<SweepReport::RepoLine>{{"/a", {3, 1, "main", {"f"}}, "Title of a", "a"}})
    );
    git.setChanges(" 1 file changed, 1 deletion(-)", "f");
    EXPECT_EQ(run().repos.size(), 1U);
    git.setChanges(" 1 file changed, 0 insertions(+), 0 deletions(-)", "f");
    EXPECT_TRUE(run().repos.empty()) << "empty files and changed modes have no lines";
    git.answers.clear();
    EXPECT_TRUE(run().repos.empty()) << "a repository whose git fails counts as clean";
}

TEST_F(Sweep, AsksGitAnewEachTimeAndOncePerRoot) {
    appInfo["a"] = desktop("a", 1);
    appInfo["b"] = desktop("b", 2);
    git.setChanges("", "");
    run();
    EXPECT_EQ(git.runs.size(), 4U);
    run();
    EXPECT_EQ(git.runs.size(), 8U);
}

TEST_F(Sweep, SortsRepositoriesAsPeopleDo) {
    for (const char* root : {"/part 10", "/part 2", "/Alpha", "/beta", "/Part 2"}) {
        appInfo[root] = desktop(root, 1, root);
    }
    git.setChanges(" 1 insertion(+)", "f");
    Texts order;
    for (const auto& line : run().repos) {
        order.push_back(line.root);
    }
    EXPECT_EQ(order, (Texts{"/Alpha", "/beta", "/part 2", "/Part 2", "/part 10"}));
}

TEST_F(Sweep, ReportsScheduledWorkByDateRecurringLast) {
    const ScheduledItem recurring{"r", std::nullopt, true, "each day"};
    const ScheduledItem late{"l", now + 100, false, "late"};
    const ScheduledItem early{"e", now + 10, false, "early"};
    const ScheduledItem alsoEarly{"f", now + 10, false, "early too"};
    registry["a"] = entry("a");
    registry["a"].localId = "local";
    registry["b"] = entry("b");
    work["/t/a"].items = {recurring, late, early};
    work["/t/b"].items = {alsoEarly};
    EXPECT_EQ(
        run().scheduled, (std::vector<SweepReport::ScheduledLine>{
                             {early, "Untitled", "local"},
                             {alsoEarly, "Untitled", std::nullopt},
                             {late, "Untitled", "local"},
                             {recurring, "Untitled", "local"},
                         })
    );
}

TEST_F(Sweep, NoMoreCommandsRunThanShellsLive) {
    registry["a"] = entry("a", 1);
    registry["b"] = entry("b", 2);
    registry["c"] = entry("c", 3);
    shells = {{1, 5}, {2, 1}, {3, 0}};
    work["/t/a"].commands = 2;
    work["/t/b"].commands = 2;
    work["/t/c"].commands = 2;
    EXPECT_EQ(
        run().running,
        (std::vector<SweepReport::RunningLine>{{"Untitled", std::nullopt, 2}, {"Untitled", std::nullopt, 1}})
    );
}
