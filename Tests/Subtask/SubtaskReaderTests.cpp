#include "Subtask/SubtaskReader.h"

#include "Base/DateText.h"
#include "Platform/Linux/LinuxFileSystem.h"
#include "Subtask/TranscriptLines.h"
#include "Support/MemoryFileSystem.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr Date modified{1'795'246'300};
const std::string path = "/sub/agent-a1b2.jsonl";

/// Reads a transcript of these lines, `age` seconds after it was last written.
Subtask readAt(double age, const std::vector<Json>& lines) {
    MemoryFileSystem files;
    files.write(path, transcriptText(lines));
    return SubtaskReader(files).read(path, modified, modified + age);
}

Subtask readWithMetadata(const std::string& metadata) {
    MemoryFileSystem files;
    files.write(path, "");
    files.write("/sub/agent-a1b2.meta.json", metadata, fileTime(1'795'246'200, 250'000'000));
    return SubtaskReader(files).read(path, modified, modified);
}

const std::string recordings = MIMKINS_SOURCE_DIR "/Tests/Data/transcripts/";

Subtask readRecording(const std::string& name, double age) {
    const LinuxFileSystem files;
    return SubtaskReader(files).read(recordings + name, modified, modified + age);
}

/// The recording's first lines only, as it stood while the subagent was at work.
Subtask readRecordingsBegin(const std::string& name, std::size_t lines) {
    const std::string whole = readWhole(recordings + name);
    std::size_t end = 0;
    for (std::size_t line = 0; line < lines; ++line) {
        end = whole.find('\n', end) + 1;
    }
    MemoryFileSystem files;
    files.write("/sub/" + name, whole.substr(0, end));
    return SubtaskReader(files).read("/sub/" + name, modified, modified + 60);
}

} // namespace

TEST(SubtaskReader, AFinalAnswerEndsItAfterMoreThanFiveSeconds) {
    EXPECT_TRUE(readAt(0, {finalLine()}).running);
    EXPECT_TRUE(readAt(5, {finalLine()}).running);
    EXPECT_FALSE(readAt(5.001, {finalLine()}).running);
    EXPECT_TRUE(readAt(-100, {finalLine()}).running);
}

TEST(SubtaskReader, AToolResultAtTheEndKeepsItRunningForHalfAnHour) {
    const std::vector<Json> lines{assistantLine({toolUse("1", "Read")}), userLine({toolResult("1")})};
    EXPECT_TRUE(readAt(6, lines).running);
    EXPECT_TRUE(readAt(1'800, lines).running);
    EXPECT_FALSE(readAt(1'800.5, lines).running);
}

TEST(SubtaskReader, AHandbackEndsItAtOnceEvenIfLinesFollow) {
    const std::vector<Json> lines{
        assistantLine({toolUse("1", "SubagentHandback")}), userLine({toolResult("1")}),
        assistantLine({toolUse("2", "Bash")})};
    const auto subtask = readAt(0, lines);
    EXPECT_FALSE(subtask.running);
    EXPECT_EQ(subtask.tool, std::nullopt);
}

TEST(SubtaskReader, OnceFinishedItKeepsOnlyItsModel) {
    const std::vector<Json> lines{assistantLine({toolUse("1", "Bash", {{"command", "make"}})})};
    const auto running = readAt(1'000, lines);
    EXPECT_EQ(running.tool, "Bash");
    EXPECT_EQ(running.detail, "make");
    EXPECT_EQ(running.pending.size(), 1U);
    const auto finished = readAt(2'000, lines);
    EXPECT_EQ(finished.tool, std::nullopt);
    EXPECT_EQ(finished.detail, std::nullopt);
    EXPECT_THAT(finished.pending, IsEmpty());
    EXPECT_EQ(finished.model.model, "claude-opus-4-8");
    EXPECT_FALSE(running.waitingForOK || finished.waitingForOK);
}

TEST(SubtaskReader, ACallWithoutATimeIsAsOldAsTheFile) {
    EXPECT_EQ(readAt(1, {assistantLine({toolUse("1", "Bash")}, "")}).pending.at(0).since, modified);
}

TEST(SubtaskReader, TheIdIsTheNameWithoutAgentAndExtension) {
    MemoryFileSystem files;
    SubtaskReader reader(files);
    EXPECT_EQ(reader.read("/sub/agent-a1b2.jsonl", modified, modified).id, "a1b2");
    EXPECT_EQ(reader.read("/sub/agent-x.agent-y.jsonl", modified, modified).id, "x.y");
    EXPECT_EQ(reader.read("/agent-sub/plain.jsonl", modified, modified).id, "plain");
    EXPECT_EQ(reader.read("/sub/agagent-ent-z.jsonl", modified, modified).id, "agent-z");
}

TEST(SubtaskReader, TakesTypeAndDescriptionFromTheMetadata) {
    const auto subtask = readWithMetadata(R"({"agentType": "Explore", "description": "Look around"})");
    EXPECT_EQ(subtask.type, "Explore");
    EXPECT_EQ(subtask.description, "Look around");
    EXPECT_EQ(subtask.started, Date{1'795'246'200.25});
    EXPECT_EQ(subtask.lastActivity, modified);
}

TEST(SubtaskReader, AnEmptyDescriptionIsReplacedAndAnEmptyTypeStays) {
    const auto subtask = readWithMetadata(R"({"agentType": "", "description": ""})");
    EXPECT_EQ(subtask.type, "");
    EXPECT_EQ(subtask.description, "Subagent");
}

TEST(SubtaskReader, MetadataOfTheWrongShapeCountsAsAbsent) {
    for (const auto* metadata : {"", "[]", "{", R"({"agentType": 5, "description": null})", "\"text\""}) {
        const auto subtask = readWithMetadata(metadata);
        EXPECT_EQ(subtask.type, "agent") << metadata;
        EXPECT_EQ(subtask.description, "Subagent") << metadata;
        EXPECT_EQ(subtask.started, Date{1'795'246'200.25}) << metadata;
    }
}

TEST(SubtaskReader, WithoutMetadataItStartedWhenItsTranscriptChanged) {
    EXPECT_EQ(readAt(1, {}).started, modified);
}

TEST(SubtaskReader, AFileThatCannotBeReadGivesTheDefaults) {
    const MemoryFileSystem files;
    const Subtask expected{
        .id = "a1b2",
        .type = "agent",
        .description = "Subagent",
        .running = true,
        .started = modified,
        .lastActivity = modified,
        .tool = std::nullopt,
        .detail = std::nullopt,
        .model = {},
        .pending = {},
        .waitingForOK = false,
    };
    EXPECT_EQ(SubtaskReader(files).read(path, modified, modified), expected);
}

TEST(SubtaskReader, ReadsTheRecordingOfASubagentAtSeveralAges) {
    const auto fresh = readRecording("agent-a1df3b0ad6931f0ba.jsonl", 4);
    EXPECT_TRUE(fresh.running);
    EXPECT_EQ(fresh.id, "a1df3b0ad6931f0ba");
    EXPECT_EQ(fresh.type, "general-purpose");
    EXPECT_EQ(fresh.description, "Look around");
    EXPECT_EQ(fresh.tool, "Read");
    EXPECT_EQ(fresh.detail, "a.txt");
    EXPECT_EQ(fresh.activity(), "Read: a.txt");
    EXPECT_EQ(fresh.model, (ModelTag{"claude-opus-4-8", std::nullopt}));
    EXPECT_THAT(fresh.pending, IsEmpty());

    const auto settled = readRecording("agent-a1df3b0ad6931f0ba.jsonl", 6);
    EXPECT_FALSE(settled.running);
    EXPECT_EQ(settled.activity(), std::nullopt);
    EXPECT_EQ(settled.model.model, "claude-opus-4-8");

    EXPECT_EQ(readRecording("agent-ad0b0efc4f33b2269.jsonl", 1).description, "Long look");
    EXPECT_EQ(readRecording("agent-ad0b0efc4f33b2269.jsonl", 1).activity(), "Bash: Wait twelve");
    EXPECT_FALSE(readRecording("agent-ad0b0efc4f33b2269.jsonl", 4'000).running);
}

TEST(SubtaskReader, ReadsTheRecordingAsItStoodOnTheWay) {
    const std::string name = "agent-a1df3b0ad6931f0ba.jsonl";
    EXPECT_EQ(readRecordingsBegin(name, 1).activity(), "Thinking");
    const auto asking = readRecordingsBegin(name, 2);
    EXPECT_EQ(asking.activity(), "Bash: Touch it");
    EXPECT_THAT(
        asking.pending, ElementsAre(PendingTool{
                            "Bash", "Touch it", "touch /home/kim/shop/sub.txt",
                            *text::parseIso8601("2026-11-21T07:30:18.624Z")})
    );
    const auto answered = readRecordingsBegin(name, 3);
    EXPECT_EQ(answered.activity(), "Bash: Touch it");
    EXPECT_THAT(answered.pending, IsEmpty());
    EXPECT_EQ(readRecordingsBegin(name, 4).pending.at(0).name, "Read");
    EXPECT_TRUE(readRecordingsBegin(name, 5).running);
}

TEST(SubtaskReader, ReadsTheRecordingOfASession) {
    const LinuxFileSystem files;
    SubtaskReader reader(files);
    const auto transcript = recordings + "transcript-main.jsonl";
    const auto tail = reader.tail(transcript, SubtaskReader::tailBytes);
    EXPECT_EQ(tail.size(), 64U);
    EXPECT_THAT(reader.pendingTools(tail, modified), IsEmpty());
    const auto facts = reader.facts(transcript, Date());
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->model, (ModelTag{"claude-opus-4-8", std::nullopt}));
    EXPECT_FALSE(reader.facts(recordings + "missing.jsonl", Date()));
}

// Cut anywhere, as a reader meets a file that is being written, the recording never names a wrong call.
TEST(SubtaskReader, SurvivesTheRecordingCutAtEachByte) {
    const std::string whole = readWhole(recordings + "agent-a1df3b0ad6931f0ba.jsonl");
    ASSERT_FALSE(whole.empty());
    MemoryFileSystem files;
    SubtaskReader reader(files);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        files.write("/t.jsonl", std::string_view(whole).substr(0, length));
        const auto subtask = reader.read("/t.jsonl", modified, modified);
        EXPECT_TRUE(!subtask.tool || subtask.tool == "Bash" || subtask.tool == "Read") << length;
        EXPECT_LE(subtask.pending.size(), 1U) << length;
    }
}

TEST(SubtaskActivity, SaysWhatARunningSubtaskDoes) {
    Subtask subtask;
    subtask.running = true;
    EXPECT_EQ(subtask.activity(), "Thinking");
    subtask.detail = "left over";
    EXPECT_EQ(subtask.activity(), "Thinking");
    subtask.tool = "Read";
    subtask.detail = std::nullopt;
    EXPECT_EQ(subtask.activity(), "Read");
    subtask.detail = "a.txt";
    EXPECT_EQ(subtask.activity(), "Read: a.txt");
    subtask.running = false;
    EXPECT_EQ(subtask.activity(), std::nullopt);
}
