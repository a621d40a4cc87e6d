#include "SessionStore/SessionStore.h"
#include "Support/FakeProcesses.h"
#include "Support/ManualFolderWatcher.h"
#include "Support/ManualRunLoop.h"
#include "Support/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;

class Store : public testing::Test {
protected:
    Store() { processes.processes[7] = {}; }

    void start() {
        store = std::make_unique<SessionStore>(paths, SessionStoreServices{loop, files, watcher, processes});
        store->onNeedsKeeper = [this](const Session& session) { keepers.push_back(session.id); };
        store->sessionsChanged().connect([this] { ++publications; });
    }

    /// Writes a status file `age` seconds old.
    void
    status(const std::string& id, const std::string& state, double age = 0, const std::string& more = "") {
        const double ts = (loop.now() - age).milliseconds();
        files.write(
            paths.sessions() + "/" + id + ".json",
            R"({"state":")" + state + R"(","since":)" + std::to_string(ts) + R"(,"id":")" + id +
                R"(","event":"E","ts":)" + std::to_string(ts) + more + "}"
        );
    }

    void
    registered(const std::string& id, const std::string& word, int pid = 7, const std::string& more = "") {
        files.write(
            paths.clientRegistry() + "/" + id + ".json",
            R"({"sessionId":")" + id + R"(","status":")" + word + R"(","pid":)" + std::to_string(pid) +
                R"(,"statusUpdatedAt":)" + std::to_string((loop.now() - 3600).milliseconds()) + more + "}"
        );
    }

    /// A change in the status folder, and the debounced reading.
    void deliver() {
        watcher.change(paths.sessions());
        loop.advance(0.1);
    }

    std::vector<std::string> ids() const {
        std::vector<std::string> result;
        for (const auto& session : store->sessions()) {
            result.push_back(session.id);
        }
        return result;
    }

    using Ids = std::vector<std::string>;

    Paths paths{"/home/kim"};
    ManualRunLoop loop;
    MemoryFileSystem files;
    ManualFolderWatcher watcher;
    FakeProcesses processes;
    std::unique_ptr<SessionStore> store;
    Ids keepers;
    int publications = 0;
};

TEST_F(Store, MakesItsFolderAndWatchesIt) {
    start();
    EXPECT_TRUE(files.isFolder(paths.sessions()));
    EXPECT_EQ(watcher.count(), 1U);
    EXPECT_TRUE(store->sessions().empty());
}

TEST_F(Store, KeepsTheLegacyFolderOnlyIfItExistsAtTheStart) {
    files.write(
        paths.legacySessions() + "/a.json",
        R"({"state":"done","since":1,"id":"old","event":"E","ts":1795246095000})"
    );
    start();
    EXPECT_EQ(ids(), Ids{"old"});
    EXPECT_EQ(watcher.count(), 2U);
}

TEST_F(Store, FolderEventIsReadAfterATenthOfASecond) {
    start();
    status("s", "working");
    watcher.change(paths.sessions());
    loop.advance(0.05);
    watcher.change(paths.sessions());
    EXPECT_TRUE(store->sessions().empty());
    loop.advance(0.05);
    EXPECT_EQ(ids(), Ids{"s"});
    EXPECT_EQ(files.reads(paths.sessions() + "/s.json"), 1) << "a burst costs one reading";
    loop.advance(0.5);
    EXPECT_EQ(files.reads(paths.sessions() + "/s.json"), 1) << "status files aren't polled";
}

TEST_F(Store, TickRefreshesThePolledSourcesAtTheirPace) {
    start();
    registered("s", "busy");
    loop.advance(0.9);
    EXPECT_TRUE(store->sessions().empty());
    loop.advance(0.1);
    EXPECT_EQ(ids(), Ids{"s"});
    files.write(
        paths.desktopSessions() + "/a/b/local_1.json",
        R"({"cliSessionId":"s","sessionId":"local_1","title":"T"})"
    );
    loop.advance(3.9);
    EXPECT_EQ(store->sessions().front().title, std::nullopt);
    loop.advance(0.1);
    EXPECT_EQ(store->sessions().front().title, "T") << "metadata comes at each fifth tick";
}

TEST_F(Store, AgeChangesMoodsWithoutAnyEvent) {
    status("s", "working", 595);
    start();
    EXPECT_EQ(store->sessions().front().mood, Mood::working);
    loop.advance(6);
    EXPECT_EQ(store->sessions().front().mood, Mood::stuck);
    loop.advance(1200);
    EXPECT_TRUE(store->sessions().empty());
}

TEST_F(Store, UnchangedListWakesNobody) {
    status("s", "working");
    start();
    loop.advance(10);
    EXPECT_EQ(publications, 0);
    store->rebuild(true);
    EXPECT_EQ(publications, 1);
    EXPECT_TRUE(keepers.empty());
}

TEST_F(Store, EmptyRegistryLetsStatusFilesStand) {
    status("s", "working", 500);
    start();
    EXPECT_EQ(ids(), Ids{"s"});
}

TEST_F(Store, FileLeftByACrashedClientCountsForTenSeconds) {
    registered("other", "busy");
    status("s", "working", 0);
    start();
    EXPECT_EQ(store->sessions().size(), 2U);
    loop.advance(10);
    EXPECT_EQ(store->sessions().size(), 2U);
    loop.advance(1);
    EXPECT_EQ(ids(), Ids{"other"});
}

TEST_F(Store, EndedProcessTakesItsSessionAlong) {
    registered("s", "busy");
    processes.processes[8] = {};
    registered("t", "busy", 8);
    start();
    EXPECT_EQ(store->sessions().size(), 2U);
    processes.processes.erase(8);
    loop.advance(1);
    EXPECT_EQ(ids(), Ids{"s"});
}

TEST_F(Store, ReportingAgentsLiveByTheirOwnProcess) {
    registered("client", "busy");
    status("a", "working", 60, R"(,"agent":"other","pid":7)");
    status("b", "working", 60, R"(,"agent":"other","pid":99)");
    status("c", "working", 60, R"(,"agent":"other")");
    status("d", "working", 60, R"(,"agent":"other","pid":0)");
    start();
    EXPECT_EQ(store->sessions().size(), 4U);
    EXPECT_FALSE(store->isLive("b", loop.now()));
}

TEST_F(Store, MetadataAloneMakesNoSession) {
    files.write(
        paths.desktopSessions() + "/a/b/local_1.json", R"({"cliSessionId":"s","sessionId":"local_1"})"
    );
    start();
    EXPECT_TRUE(store->sessions().empty());
}

TEST_F(Store, TellsOfNewWaitersInListOrder) {
    status("w", "working");
    start();
    status("a", "waiting", 3);
    status("b", "waiting", 2);
    deliver();
    EXPECT_EQ(ids(), (Ids{"b", "a", "w"}));
    EXPECT_EQ(keepers, (Ids{"b", "a"}));
    keepers.clear();
    status("a", "waiting", 1, R"(,"tool":"AskUserQuestion")");
    deliver();
    EXPECT_EQ(store->sessions().front().mood, Mood::question);
    EXPECT_TRUE(keepers.empty()) << "a change between two waiting moods is no news";
    status("w", "waiting");
    deliver();
    EXPECT_EQ(keepers, Ids{"w"});
}

TEST_F(Store, FirstPublicationIsSilent) {
    start();
    status("a", "waiting");
    deliver();
    EXPECT_EQ(ids(), Ids{"a"});
    EXPECT_TRUE(keepers.empty()) << "the store had never published before";

    keepers.clear();
    status("b", "waiting");
    deliver();
    EXPECT_EQ(keepers, Ids{"b"});
}

TEST_F(Store, WaitingAtTheStartIsSilent) {
    status("a", "waiting");
    start();
    loop.advance(5);
    EXPECT_TRUE(keepers.empty());
}

TEST_F(Store, RulesRebuildOnlyWhenTheyDiffer) {
    status("s", "working", 100);
    start();
    store->setRules(SessionRules{});
    EXPECT_EQ(publications, 0);
    SessionRules rules;
    rules.stuckAfter = 50;
    store->setRules(rules);
    EXPECT_EQ(publications, 1);
    EXPECT_EQ(store->sessions().front().mood, Mood::stuck);
}

TEST_F(Store, ExpandedSessionFoldsWhenItLeaves) {
    status("s", "working");
    start();
    store->toggleSubtasks("s");
    EXPECT_EQ(store->expandedId(), "s");
    store->toggleSubtasks("s");
    EXPECT_EQ(store->expandedId(), std::nullopt);
    store->toggleSubtasks("s");
    files.remove(paths.sessions() + "/s.json");
    deliver();
    EXPECT_EQ(store->expandedId(), std::nullopt);
}

TEST_F(Store, ReturningSessionCountsAsNewUnlessTheRegistryKnowsItsStart) {
    status("a", "working");
    start();
    loop.advance(1);
    status("b", "working");
    deliver();
    EXPECT_EQ(ids(), (Ids{"a", "b"}));
    const auto file = paths.sessions() + "/a.json";
    files.remove(file);
    deliver();
    loop.advance(1);
    status("a", "working");
    deliver();
    EXPECT_EQ(ids(), (Ids{"b", "a"}));
    registered("a", "busy", 7, R"(,"startedAt":1795000000000)");
    registered("b", "busy", 7, R"(,"startedAt":1795000001000)");
    loop.advance(1);
    EXPECT_EQ(ids(), (Ids{"a", "b"}));
}

TEST_F(Store, EndsCleanly) {
    start();
    watcher.change(paths.sessions());
    store.reset();
    EXPECT_EQ(loop.timers(), 0U);
    EXPECT_EQ(watcher.count(), 0U);
    loop.advance(5);
}
