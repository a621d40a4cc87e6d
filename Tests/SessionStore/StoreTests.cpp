#include "SessionStore/SessionStore.h"
#include "Support/FakeProcesses.h"
#include "Support/ManualFolderWatcher.h"
#include "Support/ManualRunLoop.h"
#include "Support/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;

namespace {

/// Answers as git does in a clean repository, or in one with changed lines.
class StoreGit final : public GitRunner {
public:
    std::optional<std::string>
    run(const std::vector<std::string>& arguments, const std::string& folder, GitFailure) const override {
        folders.insert(folder);
        const bool statistic =
            std::find(arguments.begin(), arguments.end(), "--shortstat") != arguments.end();
        const bool branch = std::find(arguments.begin(), arguments.end(), "symbolic-ref") != arguments.end();
        if (statistic) {
            return changes;
        }
        return branch ? "main\n" : "";
    }

    std::string changes;
    mutable std::set<std::string> folders;
};

/// Every path leads to a file of line ends, or none does.
class BlankFiles final : public RandomAccessFiles {
public:
    std::optional<FileIdentity> look(const std::string&) const override {
        return size == 0 ? std::nullopt : std::optional(FileIdentity{1, 1, size, {}});
    }

    std::unique_ptr<RandomAccessFile> open(const std::string&) const override {
        return size == 0 ? nullptr : std::make_unique<File>(size);
    }

    std::uint64_t size = 0;

private:
    class File final : public RandomAccessFile {
    public:
        explicit File(std::uint64_t size) : size_(size) {}

        FileIdentity identity() const override { return {1, 1, size_, {}}; }

        std::optional<std::size_t> read(std::uint64_t, std::span<char> buffer) const override {
            std::fill(buffer.begin(), buffer.end(), '\n');
            return buffer.size();
        }

    private:
        std::uint64_t size_;
    };
};

} // namespace

class Store : public testing::Test {
protected:
    Store() { processes.processes[7] = {}; }

    void start() {
        store = std::make_unique<SessionStore>(
            paths,
            SessionStoreServices{
                loop, files, watcher, processes, git, opener, repositoryQueue, scanQueue, &scanHelper}
        );
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
    StoreGit git;
    BlankFiles opener;
    ManualWorkQueue repositoryQueue;
    ManualWorkQueue scanQueue;
    ManualWorkQueue scanHelper;
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

TEST_F(Store, ChecksTheRepositoryOfASessionThatHasJustFinished) {
    status("s", "working", 0, R"(,"cwd":"/work/shop")");
    start();
    loop.advance(10);
    EXPECT_EQ(repositoryQueue.waiting(), 0U) << "a session at work isn't worth a check";
    status("s", "done", 0, R"(,"cwd":"/work/shop")");
    deliver();
    ASSERT_EQ(repositoryQueue.waiting(), 1U) << "at once, not at the next due time";
    git.changes = " 1 file changed, 3 insertions(+), 1 deletion(-)\n";
    repositoryQueue.run();
    EXPECT_EQ(store->sessions().front().mood, Mood::yourTurn) << "results come back through the main loop";
    loop.drain();
    EXPECT_EQ(store->sessions().front().mood, Mood::commitWaiting);
    EXPECT_EQ(store->sessions().front().message, "+3 −1 on main");
    EXPECT_EQ(git.folders, std::set<std::string>{"/work/shop"});
}

TEST_F(Store, ChecksARepositoryAgainAfterAPauseOnly) {
    status("s", "done", 0, R"(,"cwd":"/work/shop")");
    start();
    repositoryQueue.run();
    loop.advance(15);
    EXPECT_EQ(repositoryQueue.waiting(), 0U);
    loop.advance(3);
    EXPECT_EQ(repositoryQueue.waiting(), 1U);
    loop.advance(30);
    EXPECT_EQ(repositoryQueue.waiting(), 1U) << "a check under way isn't joined by another";
}

TEST_F(Store, ResultThatComesAfterTheEndIsDropped) {
    status("s", "done", 0, R"(,"cwd":"/work/shop")");
    start();
    repositoryQueue.run();
    store.reset();
    loop.drain();
}

TEST_F(Store, ReadsTheModelOfATranscriptWhenItsDateChanges) {
    const std::string line =
        R"({"type":"assistant","timestamp":"2026-11-21T07:00:00Z","message":{"model":"MODEL","content":[]}})";
    const auto transcript = [&line](const std::string& model) {
        std::string text = line + "\n";
        return text.replace(text.find("MODEL"), 5, model);
    };
    files.write("/t/s.jsonl", transcript("claude-opus-4-5"), fileTime(1));
    status("s", "working", 0, R"(,"transcript":"/t/s.jsonl","model":"from-hook")");
    start();
    EXPECT_EQ(store->sessions().front().model, "from-hook");
    loop.advance(1);
    EXPECT_EQ(store->sessions().front().model, "claude-opus-4-5");
    const int reads = files.reads("/t/s.jsonl");
    files.write("/t/s.jsonl", transcript("claude-haiku-4-5"), fileTime(1));
    loop.advance(1);
    EXPECT_EQ(store->transcriptModel("s")->model, "claude-opus-4-5") << "the date hasn't changed";
    files.setTime("/t/s.jsonl", fileTime(2));
    loop.advance(1);
    EXPECT_EQ(store->sessions().front().model, "claude-haiku-4-5");
    EXPECT_GT(files.reads("/t/s.jsonl"), reads);
    files.remove("/t/s.jsonl");
    loop.advance(1);
    EXPECT_EQ(store->transcriptModel("s"), nullptr);
    EXPECT_EQ(store->sessions().front().model, "from-hook");
}

TEST_F(Store, TranscriptIsNotReadForItsModelWhenTheDesktopClientKnowsIt) {
    files.write("/t/s.jsonl", "", fileTime(1));
    files.write(
        paths.desktopSessions() + "/a/b/local_1.json", R"({"cliSessionId":"s","sessionId":"l","model":"m"})"
    );
    status("s", "working", 0, R"(,"transcript":"/t/s.jsonl")");
    status("o", "working", 0, R"(,"transcript":"/t/s.jsonl","agent":"other")");
    start();
    loop.advance(1);
    EXPECT_EQ(store->transcriptModel("s"), nullptr);
    EXPECT_EQ(store->transcriptModel("o"), nullptr);
}

TEST_F(Store, SubtasksKeepAFinishedTurnInTheBackground) {
    files.write("/t/s/subagents/agent-a1.jsonl", "", fileTime(1'795'246'096));
    status("s", "done", 0, R"(,"transcript":"/t/s.jsonl")");
    start();
    int changes = 0;
    store->subtasksChanged().connect([&changes] { ++changes; });
    loop.advance(1);
    EXPECT_TRUE(store->subtasks().empty());
    loop.advance(1);
    ASSERT_EQ(store->subtasks().count("s"), 1U) << "subtasks come at each second tick";
    EXPECT_EQ(store->sessions().front().mood, Mood::background);
    EXPECT_EQ(changes, 1);
    loop.advance(2);
    EXPECT_EQ(changes, 1);
}

TEST_F(Store, OpenedSubtaskListIsReadAtOnce) {
    status("s", "working", 0, R"(,"transcript":"/t/s.jsonl")");
    start();
    files.write("/t/s/subagents/agent-a1.jsonl", "", fileTime(1'795'246'096));
    store->toggleSubtasks("s");
    EXPECT_EQ(store->subtasks().count("s"), 1U);
}

TEST_F(Store, OpenCallBecomesAnApprovalAfterTenSeconds) {
    const std::string call =
        R"({"type":"assistant","timestamp":"2026-11-21T07:28:16Z","message":{"content":[{"type":"tool_use","id":"t","name":"Bash","input":{"command":"touch x","description":"Make x"}}]}})";
    files.write("/t/s.jsonl", call + "\n", fileTime(1)); // the call is made as the loop begins
    registered("s", "busy", 7, R"(,"startedAt":1795246000000)");
    status("s", "working", 0, R"(,"transcript":"/t/s.jsonl")");
    start();
    loop.advance(9);
    EXPECT_EQ(store->sessions().front().mood, Mood::working);
    loop.advance(1);
    EXPECT_EQ(store->sessions().front().mood, Mood::needsPermission);
    EXPECT_EQ(store->sessions().front().activity(), "Bash: Make x");
    EXPECT_EQ(files.reads("/t/s.jsonl"), 1) << "one reading serves the model and the calls";
    EXPECT_EQ(keepers, Ids{"s"});
    files.write("/t/s.jsonl", "", fileTime(2));
    loop.advance(2);
    EXPECT_EQ(store->sessions().front().mood, Mood::working);
}

TEST_F(Store, ScansOnlySessionsAtRestOneScanAtATime) {
    registered("s", "busy", 7, R"(,"cwd":"/home/kim/shop")");
    start();
    loop.advance(6);
    EXPECT_EQ(scanQueue.waiting(), 0U);
    status("s", "done");
    deliver();
    loop.advance(3);
    EXPECT_EQ(scanQueue.waiting(), 1U);
    loop.advance(30);
    EXPECT_EQ(scanQueue.waiting(), 1U);
    scanQueue.run();
    loop.advance(3);
    EXPECT_EQ(scanQueue.waiting(), 1U);
}

TEST_F(Store, OnlyALongScanIsSharedWithTheHelper) {
    registered("s", "busy", 7, R"(,"cwd":"/home/kim/shop")");
    status("s", "done");
    start();
    const auto scanAt = [this](std::uint64_t size) {
        opener.size = size;
        loop.advance(3);
        EXPECT_EQ(scanQueue.waiting(), 1U);
        scanQueue.run();
        loop.drain();
        return scanHelper.waiting();
    };
    EXPECT_EQ(scanAt(1'000), 0U);
    EXPECT_EQ(scanAt(20'000'000), 0U);
    EXPECT_EQ(scanAt(80'000'000), 1U);
}

TEST_F(Store, SweepSaysWhenItIsUnderWay) {
    registered("s", "waiting");
    start();
    int changes = 0;
    store->sweepChanged().connect([&changes] { ++changes; });
    store->runSweep();
    store->runSweep();
    EXPECT_TRUE(store->sweeping());
    EXPECT_EQ(scanQueue.waiting(), 1U);
    scanQueue.run();
    loop.drain();
    EXPECT_FALSE(store->sweeping());
    EXPECT_EQ(changes, 2);
    ASSERT_TRUE(store->sweep());
    EXPECT_EQ(store->sweep()->generated, loop.now());
    ASSERT_EQ(store->sweep()->waiting.size(), 1U);
    EXPECT_EQ(store->sweep()->waiting.front().id, "s");
}

TEST_F(Store, EndsCleanly) {
    start();
    watcher.change(paths.sessions());
    store.reset();
    EXPECT_EQ(loop.timers(), 0U);
    EXPECT_EQ(watcher.count(), 0U);
    loop.advance(5);
}
