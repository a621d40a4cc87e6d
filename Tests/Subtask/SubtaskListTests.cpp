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

TEST_F(SubtaskListTest, ARunningOneIsReadEachTime) {
    const auto path = add("a", 4, done);
    EXPECT_TRUE(reload().at(0).running);
    EXPECT_FALSE(reload(now + 2).at(0).running);
    EXPECT_EQ(files.reads(path), 2);
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
