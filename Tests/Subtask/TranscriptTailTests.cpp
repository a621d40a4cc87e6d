#include "Subtask/TranscriptTail.h"

#include "Platform/Linux/LinuxFileSystem.h"
#include "Subtask/SubtaskReader.h"
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

std::vector<std::string> linesOf(const TranscriptTail& tail) {
    std::vector<std::string> lines;
    for (std::size_t index = 0; index < tail.size(); ++index) {
        lines.emplace_back(tail.line(index));
    }
    return lines;
}

std::vector<std::string> linesOf(const std::string& bytes, std::uint64_t position) {
    return linesOf(TranscriptTail(FileSystem::Tail{bytes, position}));
}

std::vector<std::string> readLines(const std::string& bytes, std::size_t count) {
    MemoryFileSystem files;
    files.write("/t.jsonl", bytes);
    return linesOf(SubtaskReader(files).tail("/t.jsonl", count));
}

} // namespace

TEST(TranscriptTail, SplitsAtLineEndsAndDropsEmptyLines) {
    EXPECT_THAT(linesOf("a\n\nb\nc", 0), ElementsAre("a", "b", "c"));
    EXPECT_THAT(linesOf("\na\n", 0), ElementsAre("a"));
    EXPECT_THAT(linesOf("a\r\nb", 0), ElementsAre("a\r", "b"));
    EXPECT_THAT(linesOf("", 0), IsEmpty());
    EXPECT_THAT(linesOf("\n\n", 0), IsEmpty());
}

TEST(TranscriptTail, DropsTheFragmentAtItsBegin) {
    EXPECT_THAT(linesOf("ragment\nwhole\n", 1), ElementsAre("whole"));
    EXPECT_THAT(linesOf("one line longer than the tail", 1), IsEmpty());
    EXPECT_THAT(linesOf("", 1), IsEmpty());
}

// Empty lines are dropped before the fragment is.
TEST(TranscriptTail, TheFragmentIsTheFirstLineThatIsNotEmpty) {
    EXPECT_THAT(linesOf("\n\nfirst\nsecond", 1), ElementsAre("second"));
}

TEST(TranscriptTail, RepairsInvalidSequences) {
    EXPECT_THAT(linesOf("a\xff\nb", 0), ElementsAre("a\uFFFD", "b"));
    EXPECT_THAT(linesOf("cut\xc3\nnext", 0), ElementsAre("cut\uFFFD", "next"));
    EXPECT_THAT(linesOf("\xff\n", 0), ElementsAre("\uFFFD"));
}

TEST(TranscriptTail, AFragmentMayBeginInsideACharacter) {
    EXPECT_THAT(linesOf("\xa9\nwhole é\n", 1), ElementsAre("whole é"));
    EXPECT_THAT(linesOf("\xa9\nbad \xe4 line\n", 1), ElementsAre("bad \uFFFD line"));
}

TEST(TranscriptTail, ReadsOnlyTheEnd) {
    EXPECT_THAT(readLines("first\nsecond\nthird\n", 12), ElementsAre("third"));
    EXPECT_THAT(readLines("first\nsecond\n", 13), ElementsAre("first", "second"));
    EXPECT_THAT(readLines("first\nsecond\n", 12), ElementsAre("second"));
}

TEST(TranscriptTail, AFileOfExactlyTheTailsLengthKeepsItsFirstLine) {
    constexpr auto limit = SubtaskReader::tailBytes;
    const std::string first(1'000, 'a');
    const std::string rest(limit - first.size() - 2, 'b');
    const std::string exact = first + "\n" + rest + "\n";
    ASSERT_EQ(exact.size(), 65'536U);
    EXPECT_THAT(readLines(exact, limit), ElementsAre(first, rest));
    EXPECT_THAT(readLines("x" + exact, limit), ElementsAre(rest));
}

TEST(TranscriptTail, ALineLongerThanTheTailLeavesNone) {
    EXPECT_THAT(readLines(std::string(70'000, 'a'), SubtaskReader::tailBytes), IsEmpty());
    EXPECT_THAT(readLines(std::string(70'000, 'a') + "\n", SubtaskReader::tailBytes), IsEmpty());
}

TEST(TranscriptTail, ParsesLinesWhereTheyStand) {
    const TranscriptTail tail(FileSystem::Tail{
        "{\"a\":1}\nnot json\n{\"a\":2}" + std::string(80, ' ') + "\n3", 0});
    json::Parser parser;
    EXPECT_EQ(tail.parse(0, parser)["a"].integer32(), 1);
    EXPECT_FALSE(tail.parse(1, parser).exists());
    EXPECT_EQ(tail.parse(2, parser)["a"].integer32(), 2);
    EXPECT_EQ(tail.parse(3, parser).integer32(), 3);
}

TEST(TranscriptTail, ReadsRealFiles) {
    const TemporaryFolder folder;
    const LinuxFileSystem files;
    const SubtaskReader reader(files);
    writeFile(folder / "t.jsonl", "first\nsecond\n");
    EXPECT_THAT(linesOf(reader.tail(folder / "t.jsonl", 10)), ElementsAre("second"));
    EXPECT_THAT(linesOf(reader.tail(folder / "missing.jsonl", 10)), IsEmpty());
    EXPECT_THAT(linesOf(reader.tail(folder.path(), 10)), IsEmpty());
}
