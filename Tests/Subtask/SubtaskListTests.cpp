#include "Subtask/SubtaskList.h"

#include "Subtask/TranscriptLines.h"
#include "Support/MemoryFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::int64_t seconds = 1'795'246'000;
constexpr Date now{static_cast<double>(seconds)};

std::vector<std::string> idsOf(const std::vector<Subtask>& subtasks) {
    std::vector<std::string> ids;
    for (const auto& subtask : subtasks) {
        ids.push_back(subtask.id);
    }
    return ids;
}

/// A session "s" whose subagents write to "/sub".
class SubtaskListTest : public testing::Test {
protected:
    /// A transcript last written `age` seconds before `now`.
    std::string add(const std::string& id, std::int64_t age, const std::vector<Json>& lines) {
        const std::string path = "/sub/agent-" + id + ".jsonl";
        files.write(path, transcriptText(lines), fileTime(seconds - age));
        return path;
    }

    std::vector<Subtask> reload(Date date = now, const SubtaskMap& current = {}) {
        auto map = list.reload(folders, current, date);
        return map.contains("s") ? map["s"] : std::vector<Subtask>();
    }

    std::vector<SubtaskFolder> folders{{"s", "/sub"}};
    MemoryFileSystem files;
    SubtaskList list{files};
    const std::vector<Json> busy{assistantLine({toolUse("1", "Bash")})};
    const std::vector<Json> done{finalLine()};
};

} // namespace

TEST_F(SubtaskListTest, RunningOnesComeFirstAndThenTheLatestActive) {
    add("done-late", 6, done);
    add("done-early", 60, done);
    add("busy-early", 70, busy);
    add("busy-late", 7, busy);
    EXPECT_THAT(idsOf(reload()), ElementsAre("busy-late", "busy-early", "done-late", "done-early"));
}

TEST_F(SubtaskListTest, EqualOnesKeepTheOrderOfTheFolder) {
    for (const auto* id : {"c", "a", "b"}) {
        add(id, 10, busy);
    }
    EXPECT_THAT(idsOf(reload()), ElementsAre("a", "b", "c"));
}

TEST_F(SubtaskListTest, OnlyTranscriptsCount) {
    add("a", 1, busy);
    files.write("/sub/agent-a.meta.json", "{}", fileTime(seconds));
    files.write("/sub/agent-b.JSONL", "", fileTime(seconds));
    files.write("/sub/.jsonl", "", fileTime(seconds));
    files.write("/sub/jsonl", "", fileTime(seconds));
    files.write("/sub/deeper/agent-c.jsonl", "", fileTime(seconds));
    EXPECT_THAT(idsOf(reload()), ElementsAre("a"));
}

TEST_F(SubtaskListTest, HalfAnHourOfSilenceRemovesOneFromListAndCache) {
    const auto path = add("a", 1'799, done);
    EXPECT_THAT(idsOf(reload()), ElementsAre("a"));
    EXPECT_EQ(files.reads(path), 1);
    EXPECT_THAT(reload(now + 1), IsEmpty());
    EXPECT_THAT(idsOf(reload()), ElementsAre("a"));
    EXPECT_EQ(files.reads(path), 2);
}

TEST_F(SubtaskListTest, OneWithoutATimeIsLongSilent) {
    files.setTime(add("a", 1, busy), std::nullopt);
    EXPECT_THAT(reload(), IsEmpty());
}

TEST_F(SubtaskListTest, OneFromTheFutureIsListed) {
    add("a", -5'000, busy);
    EXPECT_THAT(idsOf(reload()), ElementsAre("a"));
}

TEST_F(SubtaskListTest, AFinishedOneIsReadOnce) {
    const auto path = add("a", 10, done);
    const auto first = reload();
    EXPECT_EQ(reload(now + 2), first);
    EXPECT_EQ(files.reads(path), 1);
}

TEST_F(SubtaskListTest, ARunningOneIsReadOnceButJudgedEachTime) {
    const auto path = add("a", 4, done);
    EXPECT_TRUE(reload().at(0).running);
    EXPECT_FALSE(reload(now + 2).at(0).running);
    EXPECT_EQ(files.reads(path), 1);
}

TEST_F(SubtaskListTest, SilenceEndsARunningOneThatIsNotReadAgain) {
    const auto path = add("a", 0, busy);
    EXPECT_EQ(reload(now + 1'799).at(0).tool, "Bash");
    EXPECT_THAT(reload(now + 1'800), IsEmpty());
    EXPECT_EQ(files.reads(path), 1);
}

TEST_F(SubtaskListTest, AChangeThatAFileTimeMayNotShowIsRead) {
    const auto path = add("a", 0, busy);
    reload(now + 1);
    reload(now + 2);
    reload(now + 2.5);
    reload(now + 5);
    EXPECT_EQ(files.reads(path), 3) << "the file's time has whole seconds, and so stands for two of them";
    files.write(path, transcriptText(busy), fileTime(seconds, 500'000'000));
    reload(now + 0.55);
    reload(now + 0.65);
    reload(now + 0.7);
    EXPECT_EQ(files.reads(path), 5);
}

TEST_F(SubtaskListTest, ARunningOneIsReadWhenItsFileIsReplaced) {
    const auto path = add("a", 60, {assistantLine({toolUse("1", "Bash")})});
    EXPECT_EQ(reload().at(0).tool, "Bash");
    add("a", 60, {assistantLine({toolUse("1", "Read")})});
    EXPECT_EQ(reload().at(0).tool, "Read") << "another file of the same size and time";
    files.write(path, "", fileTime(seconds - 60));
    EXPECT_EQ(reload().at(0).tool, std::nullopt) << "cut short";
    files.remove(path);
    EXPECT_THAT(reload(), IsEmpty());
    add("a", 60, {assistantLine({toolUse("1", "Edit")})});
    EXPECT_EQ(reload().at(0).tool, "Edit");
}

TEST_F(SubtaskListTest, AFileThatCouldNotBeReadIsTriedAgain) {
    const auto path = add("a", 60, busy);
    files.write("/sub/agent-a.meta.json", R"({"description":"Look around"})", fileTime(seconds - 60));
    files.setReadable(path, false);
    files.setReadable("/sub/agent-a.meta.json", false);
    EXPECT_EQ(reload().at(0).tool, std::nullopt);
    EXPECT_EQ(reload().at(0).description, "Subagent");
    files.setReadable(path, true);
    files.setReadable("/sub/agent-a.meta.json", true);
    EXPECT_EQ(reload().at(0).tool, "Bash");
    EXPECT_EQ(reload().at(0).description, "Look around");
}

TEST_F(SubtaskListTest, TheMetadataOfARunningOneIsReadWhenItChanges) {
    const std::string metadata = "/sub/agent-a.meta.json";
    add("a", 60, busy);
    EXPECT_EQ(reload().at(0).started, now - 60);
    files.write(metadata, R"({"description":"One"})", fileTime(seconds - 70));
    EXPECT_EQ(reload().at(0).description, "One");
    EXPECT_EQ(reload().at(0).started, now - 70);
    EXPECT_EQ(files.reads(metadata), 2) << "once in vain";
    files.write(metadata, R"({"description":"Two"})", fileTime(seconds - 70));
    EXPECT_EQ(reload().at(0).description, "Two");
    files.remove(metadata);
    EXPECT_EQ(reload().at(0).description, "Subagent");
    EXPECT_EQ(reload().at(0).started, now - 60);
}

TEST_F(SubtaskListTest, AFolderIsListedOnlyWhenItChanges) {
    add("a", 60, busy);
    EXPECT_EQ(reload().size(), 1U);
    EXPECT_EQ(reload().size(), 1U);
    EXPECT_EQ(files.listings(), 1);
    add("b", 60, busy);
    EXPECT_EQ(reload().size(), 2U);
    files.remove("/sub/agent-a.jsonl");
    EXPECT_THAT(idsOf(reload()), ElementsAre("b"));
    files.remove("/sub");
    EXPECT_THAT(reload(), IsEmpty());
    add("c", 60, busy);
    EXPECT_THAT(idsOf(reload()), ElementsAre("c"));
}

TEST_F(SubtaskListTest, AnEmptyFolderIsListedEachTime) {
    files.createFolders("/sub");
    reload();
    reload();
    EXPECT_EQ(files.listings(), 2) << "it may be one that can't be listed for a moment";
}

TEST_F(SubtaskListTest, SessionsThatShareAFolderShowTheSame) {
    add("busy", 10, busy);
    add("done", 20, done);
    folders.push_back({"t", "/sub"});
    for (int round = 0; round < 3; ++round) {
        const auto map = list.reload(folders, {}, now);
        EXPECT_THAT(idsOf(map.at("s")), ElementsAre("busy", "done"));
        EXPECT_EQ(map.at("s"), map.at("t"));
    }
    EXPECT_EQ(files.reads("/sub/agent-done.jsonl"), 1);
}

TEST_F(SubtaskListTest, AFinishedOneWhoseFileChangesCanRunAgain) {
    const auto path = add("a", 10, done);
    EXPECT_FALSE(reload().at(0).running);
    files.append(path, transcriptText(busy), fileTime(seconds - 10, 1));
    EXPECT_TRUE(reload().at(0).running);
}

TEST_F(SubtaskListTest, ARunningOneTakesOverWhetherItWaits) {
    add("busy", 10, busy);
    add("done", 10, done);
    auto current = list.reload(folders, {}, now);
    for (auto& subtask : current["s"]) {
        EXPECT_FALSE(subtask.waitingForOK);
        subtask.waitingForOK = true;
    }
    const auto after = reload(now, current);
    EXPECT_TRUE(after.at(0).waitingForOK);
    EXPECT_FALSE(after.at(1).waitingForOK);
    EXPECT_FALSE(reload(now).at(0).waitingForOK);
}

TEST_F(SubtaskListTest, WaitingIsNotTakenOverFromAnotherSession) {
    add("busy", 10, busy);
    auto current = list.reload({{"other", "/sub"}}, {}, now);
    current["other"].at(0).waitingForOK = true;
    EXPECT_FALSE(reload(now, current).at(0).waitingForOK);
}

TEST_F(SubtaskListTest, SessionsWithoutSubtasksHaveNoEntry) {
    files.createFolders("/empty");
    folders = {{"nowhere", std::nullopt}, {"missing", "/missing"}, {"empty", "/empty"}};
    EXPECT_THAT(list.reload(folders, {}, now), IsEmpty());
}

TEST_F(SubtaskListTest, EachSessionHasItsOwn) {
    add("a", 10, busy);
    files.write("/more/agent-b.jsonl", transcriptText(busy), fileTime(seconds));
    folders.push_back({"t", "/more"});
    auto map = list.reload(folders, {}, now);
    EXPECT_THAT(idsOf(map["s"]), ElementsAre("a"));
    EXPECT_THAT(idsOf(map["t"]), ElementsAre("b"));
}

TEST_F(SubtaskListTest, OfASessionThatLeftNothingIsRemembered) {
    const auto path = add("a", 10, done);
    reload();
    EXPECT_THAT(list.reload({}, {}, now), IsEmpty());
    reload();
    EXPECT_EQ(files.reads(path), 2);
}

TEST(MarkWaiting, MarksExactlyThoseGiven) {
    Subtask first;
    first.id = "a";
    first.waitingForOK = true;
    Subtask second;
    second.id = "b";
    const SubtaskMap before{{"s", {first, second}}, {"t", {first, second}}};
    auto after = markWaiting(before, {{"s", {"b", "unknown"}}, {"gone", {"a"}}});
    EXPECT_FALSE(after["s"].at(0).waitingForOK);
    EXPECT_TRUE(after["s"].at(1).waitingForOK);
    EXPECT_FALSE(after["t"].at(0).waitingForOK);
    EXPECT_FALSE(after["t"].at(1).waitingForOK);
    EXPECT_EQ(after.size(), 2U);
}
