#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "Support/FakeGit.h"
#include "Support/TemporaryFolder.h"
#include "Sweep/RepositoryWatch.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;

namespace {

constexpr Date now{1'795'246'096};

Session session(const std::string& id, Mood mood = Mood::done) {
    Session result;
    result.id = id;
    result.mood = mood;
    return result;
}

/// Roots by session id.
RootOf roots(const std::map<std::string, std::string>& byId) {
    return [byId](const std::string& id) -> std::optional<std::string> {
        const auto root = byId.find(id);
        return root != byId.end() ? std::optional(root->second) : std::nullopt;
    };
}

using Texts = std::vector<std::string>;

const RepoChanges someChanges{3, 1, "main", {"a.txt", "b.txt"}};

} // namespace

TEST(RepositoryRoot, IsTheFirstThatIsKnown) {
    StatusRecord record;
    AppSessionInfo info;
    RegistryEntry entry;
    EXPECT_EQ(repoRoot(nullptr, nullptr, nullptr), std::nullopt);
    EXPECT_EQ(repoRoot(&record, &info, &entry), std::nullopt);
    record.cwd = "/record";
    EXPECT_EQ(repoRoot(&record, &info, &entry), "/record");
    entry.cwd = "/registry";
    EXPECT_EQ(repoRoot(&record, &info, &entry), "/registry");
    info.gitRoot = "/app";
    EXPECT_EQ(repoRoot(&record, &info, &entry), "/app");
    EXPECT_EQ(repoRoot(nullptr, &info, nullptr), "/app");
    EXPECT_EQ(repoRoot(nullptr, nullptr, &entry), "/registry");
}

TEST(RepositoryRoot, AnotherAgentHasNone) {
    StatusRecord record;
    record.agent = "Other";
    record.cwd = "/record";
    AppSessionInfo info;
    info.gitRoot = "/app";
    EXPECT_EQ(repoRoot(&record, &info, nullptr), std::nullopt);
}

TEST(SessionsSharing, AreThoseOfTheRootInTheirOrder) {
    auto foreign = session("x");
    foreign.agent = "Other";
    const std::vector<Session> sessions{session("b"), foreign, session("c"), session("a", Mood::working)};
    EXPECT_EQ(
        sessionsSharing("/r", sessions, roots({{"a", "/r"}, {"b", "/r"}, {"c", "/s"}, {"x", "/r"}})),
        (Texts{"b", "a"})
    );
}

TEST(Transcripts, AreTheOwnOneAndThoseOfSubagents) {
    EXPECT_EQ(
        transcripts("/t/s.jsonl", "/t/s/subagents", {"agent-1.jsonl", "agent-1.meta.json", "agent-2.jsonl"}),
        (Texts{"/t/s.jsonl", "/t/s/subagents/agent-1.jsonl", "/t/s/subagents/agent-2.jsonl"})
    );
    EXPECT_EQ(transcripts("/t/s.jsonl", "/t/s/subagents", {}), Texts{"/t/s.jsonl"});
    EXPECT_EQ(transcripts(std::nullopt, std::nullopt, {"a.jsonl"}), Texts{});
}

TEST(RepositoryWatch, ChecksEachRootOfSessionsAtRestOnce) {
    std::vector<Session> sessions;
    std::map<std::string, std::string> byId;
    for (const auto mood : allMoods) {
        const std::string id(caseName(mood));
        sessions.push_back(session(id, mood));
        byId[id] = "/" + id;
    }
    sessions.push_back(session("again", Mood::done));
    byId["again"] = "/done";
    sessions.push_back(session("rootless", Mood::done));
    EXPECT_EQ(
        RepositoryWatch{}.due(sessions, roots(byId), now), (Texts{"/commitWaiting", "/done", "/yourTurn"})
    );
}

TEST(RepositoryWatch, WaitsFifteenSecondsFromTheEndOfACheck) {
    const std::vector<Session> sessions{session("a")};
    const auto rootOf = roots({{"a", "/r"}});
    RepositoryWatch watch;
    watch.begin("/r");
    EXPECT_EQ(watch.due(sessions, rootOf, now + 1000), Texts{}) << "a check is under way";
    watch.finish("/r", {}, now);
    EXPECT_EQ(watch.due(sessions, rootOf, now + 14.9), Texts{});
    EXPECT_EQ(watch.due(sessions, rootOf, now + 15), Texts{});
    EXPECT_EQ(watch.due(sessions, rootOf, now + 15.1), Texts{"/r"});
}

TEST(RepositoryWatch, TellsWhetherAResultIsNews) {
    RepositoryWatch watch;
    EXPECT_FALSE(watch.finish("/r", {}, now));
    EXPECT_TRUE(watch.finish("/r", {someChanges, std::nullopt}, now));
    EXPECT_FALSE(watch.finish("/r", {someChanges, std::nullopt}, now));
    EXPECT_TRUE(watch.finish("/r", {someChanges, RepositoryOwners{}}, now));
    EXPECT_TRUE(watch.finish("/r", {someChanges, RepositoryOwners{{"a.txt", {"one"}}}}, now));
    EXPECT_EQ(watch.known("/r").changes, someChanges);
    EXPECT_TRUE(watch.finish("/r", {}, now + 1)) << "a failing git clears what was known";
    EXPECT_TRUE(watch.repoChanges.empty());
    EXPECT_TRUE(watch.repoOwners.empty());
    EXPECT_EQ(watch.repoCheckedAt.at("/r"), now + 1);
}

TEST(OwnedChanges, GoToTheOwnersOrToAll) {
    const auto shown = [](RepositoryOwners owners, std::size_t sharing = 2) {
        return ownedChanges({someChanges, std::move(owners)}, "one", sharing).has_value();
    };
    EXPECT_TRUE(shown({{"a.txt", {"one"}}, {"b.txt", {"two"}}}));
    EXPECT_TRUE(shown({{"a.txt", {"two"}}, {"b.txt", {"one", "two"}}}));
    EXPECT_FALSE(shown({{"a.txt", {"two"}}, {"b.txt", {"two"}}}));
    EXPECT_TRUE(shown({{"a.txt", {"two"}}, {"b.txt", {"two"}}}, 1));
    EXPECT_TRUE(shown({{"a.txt", {"two"}}})) << "nobody is known for the other file";
    EXPECT_TRUE(shown({}));
    EXPECT_EQ(ownedChanges({someChanges, RepositoryOwners{}}, "one", 2), someChanges);
    EXPECT_EQ(ownedChanges({someChanges, std::nullopt}, "one", 2), someChanges);
    EXPECT_EQ(ownedChanges({}, "one", 2), std::nullopt);
    const RepoChanges clean{0, 0, "main", {}};
    EXPECT_EQ(ownedChanges({clean, RepositoryOwners{}}, "one", 2), std::nullopt);
    EXPECT_EQ(ownedChanges({clean, std::nullopt}, "one", 1), clean);
}

TEST(OwnedChanges, FollowTheSessionsThatShareTheRoot) {
    RepositoryWatch watch;
    watch.finish("/r", {someChanges, RepositoryOwners{{"a.txt", {"two"}}, {"b.txt", {"two"}}}}, now);
    const auto rootOf = roots({{"one", "/r"}, {"two", "/r"}});
    const std::vector<Session> both{session("one"), session("two")};
    EXPECT_EQ(watch.ownedChanges("one", both, rootOf), std::nullopt);
    EXPECT_EQ(watch.ownedChanges("two", both, rootOf), someChanges);
    EXPECT_EQ(watch.ownedChanges("one", {session("one")}, rootOf), someChanges);
    EXPECT_EQ(watch.ownedChanges("rootless", both, rootOf), std::nullopt);
}

namespace {

/// Two sessions in one repository whose only change is in "a.txt".
class Check : public testing::Test {
protected:
    Check() { git.setChanges(" 1 file changed, 1 insertion(+)", "src/a.txt\0", "main"); }

    RepositoryResult run(const std::string& callOfOne) {
        writeFile(folder / "one.jsonl", callOfOne);
        writeFile(folder / "two.jsonl", "");
        return checkRepository(
            {"/r", {{"one", {folder / "one.jsonl"}}, {"two", {folder / "two.jsonl"}}}}, git, opener
        );
    }

    static std::string call(const std::string& tool) {
        return R"({"type":"assistant","timestamp":"2026-11-21T07:30:00.000Z","message":{"content":[)"
               R"({"type":"tool_use","name":")" +
               tool + R"(","input":{"file_path":"/r/src/a.txt"}}]}})";
    }

    FakeGit git;
    TemporaryFolder folder;
    LinuxRandomAccessFiles opener;
};

const RepoChanges oneChange{1, 0, "main", {"src/a.txt"}};

} // namespace

TEST_F(Check, OnlyTheSessionThatMadeTheChangeIsTold) {
    const auto result = run(call("Edit"));
    EXPECT_EQ(ownedChanges(result, "one", 2), oneChange);
    EXPECT_EQ(ownedChanges(result, "two", 2), std::nullopt);
}

TEST_F(Check, AChangeThatNobodyMadeIsToldToAll) {
    const auto result = run(call("Read"));
    EXPECT_EQ(result.owners, RepositoryOwners{});
    EXPECT_EQ(ownedChanges(result, "one", 2), oneChange);
    EXPECT_EQ(ownedChanges(result, "two", 2), oneChange);
}

TEST_F(Check, ChangesFromBeforeTheLastCommitDoNotCount) {
    git.answers["log -1 --format=%ct"] = "1795246199\n"; // a second before the call
    EXPECT_EQ(run(call("Edit")).owners, (RepositoryOwners{{"src/a.txt", {"one"}}}));
    git.answers["log -1 --format=%ct"] = "1795246201\n"; // a second after it
    EXPECT_EQ(run(call("Edit")).owners, RepositoryOwners{});
}

TEST_F(Check, AloneNobodyIsAskedForOwners) {
    writeFile(folder / "one.jsonl", call("Edit"));
    const auto result = checkRepository({"/r", {{"one", {folder / "one.jsonl"}}}}, git, opener);
    EXPECT_EQ(result, (RepositoryResult{oneChange, std::nullopt}));
}

TEST_F(Check, AFailingGitGivesNothing) {
    git.answers.clear();
    EXPECT_EQ(run(call("Edit")), RepositoryResult{});
}
