#include "Background/ScannerFixture.h"

using namespace mimkins;
using namespace mimkins::test;

namespace {

enum class Threads { one, two };

/// Everything holds whether the reading is shared or not.
class Reading : public Scanner, public testing::WithParamInterface<Threads> {
protected:
    Reading() : Scanner(GetParam() == Threads::two ? sharing() : BackgroundScanner::Options{}) {}
};

INSTANTIATE_TEST_SUITE_P(Threads, Reading, testing::Values(Threads::one, Threads::two));

} // namespace

TEST_P(Reading, ATailWithoutNewlineWaitsForItsEnd) {
    const auto line = started("b2");
    EXPECT_EQ(scan(started("a1") + line.substr(0, line.size() - 1)).commands, 1);
    EXPECT_EQ(tally().offset, started("a1").size());
    files.append(path, "\n");
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 2);
    EXPECT_EQ(tally().offset, 2 * line.size());
}

TEST_P(Reading, AFileWithoutNewlineIsNotConsumed) {
    auto line = started("b2");
    line.pop_back();
    EXPECT_EQ(scan(line).commands, 0);
    EXPECT_EQ(tally().offset, 0U);
    EXPECT_EQ(scan(std::string(7'000'000, 'x')).commands, 0);
    EXPECT_EQ(tally().offset, 1'000'000U);
    EXPECT_TRUE(tally().startsMidLine);
    files.append(path, line + "\n" + started("c3"));
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 1);
    EXPECT_FALSE(tally().startsMidLine);
    EXPECT_TRUE(tally().started.contains("c3"));
}

TEST_P(Reading, TheFirstReadingIsCapped) {
    const auto head = started("a1") + started("b2");
    std::string file = head + std::string(6'000'001 - head.size() - 1, 'x') + "\n";
    EXPECT_EQ(scan(file.substr(1)).commands, 2); // 6,000,000 bytes are read whole.
    test::MemoryFiles own;
    own.write(path, file);
    BackgroundScanner capped(own, options);
    EXPECT_EQ(capped.scan(path, processStart, now).commands, 1);
    EXPECT_TRUE(capped.tallies().at(path).started.contains("b2"));
    EXPECT_EQ(capped.tallies().at(path).offset, file.size());
    // The cap is for the first reading only.
    own.append(path, started("c3") + std::string(6'500'000, 'x') + "\n");
    EXPECT_EQ(capped.scan(path, processStart, now).commands, 2);
}

TEST_P(Reading, AScheduleWhoseCallLiesBeforeTheCapHasNoPrompt) {
    const auto result = cronResult("toolu_1", "Scheduled recurring task ab (0 9 * * 1)");
    const auto work = scan(cronCall("toolu_1", "lost") + std::string(6'000'000, 'x') + "\n" + result);
    EXPECT_EQ(work.items, (std::vector<ScheduledItem>{{"ab", std::nullopt, true, ""}}));
}

TEST_P(Reading, ATruncatedFileIsReadAnew) {
    EXPECT_EQ(scan(started("a1") + started("b2")).commands, 2);
    EXPECT_EQ(scan(started("c3")).commands, 1);
    EXPECT_EQ(tally().started.size(), 1U);
}

TEST_P(Reading, AFileThatShrankAndGrewBetweenScansIsNotNoticed) {
    EXPECT_EQ(scan(started("a1")).commands, 1);
    EXPECT_EQ(scan(started("b2") + started("c3")).commands, 2);
    EXPECT_TRUE(tally().started.contains("a1"));
    EXPECT_FALSE(tally().started.contains("b2"));
}

TEST_P(Reading, WhatCannotBeReadHasNothingNew) {
    EXPECT_EQ(scanner.scan("/missing", processStart, now), BackgroundWork{});
    EXPECT_TRUE(scanner.tallies().contains("/missing"));
    EXPECT_EQ(scan(started("a1")).commands, 1);
    files.append(path, started("b2"));
    files.refuseToOpen = true;
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 1);
    files.refuseToOpen = false;
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 2);
    files.remove(path);
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 2);
}

TEST_P(Reading, AFailureInTheMiddleLeavesTheTallyAsItWas) {
    scan(started("a1"));
    const Tally before = tally();
    files.append(path, started("b2") + std::string(1'000'000, 'x') + "\n" + started("c3"));
    files.brokenFrom = 900'000;
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 1);
    EXPECT_EQ(tally(), before);
    files.brokenFrom.reset();
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 3);
}

TEST_P(Reading, AFileThatShrinksWhileItIsReadGivesWhatIsThere) {
    files.write(path, started("a1") + started("b2"));
    files.shrunkTo = started("a1").size() + 10;
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 1);
    EXPECT_EQ(tally().offset, started("a1").size());
}

TEST_P(Reading, ALineThatChangesWhileItIsReadIsNotTaken) {
    auto line = started("a1");
    line.insert(1, std::string(600'000, 'x'));
    files.write(path, line);
    int reads = 0;
    files.beforeRead = [&](std::uint64_t position) {
        if (position == 0 && ++reads == 2) {
            files.shrunkTo = 1'000;
        }
    };
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 0);
    EXPECT_EQ(reads, 2);
    EXPECT_EQ(tally(), Tally{});
}

TEST_P(Reading, AnUnchangedFileCostsOneLook) {
    scan(started("a1") + "an unfinished line");
    const auto before = files.counts();
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 1);
    EXPECT_EQ(files.counts().looks, before.looks + 1);
    EXPECT_EQ(files.counts().opens, before.opens);
    EXPECT_EQ(files.counts().reads, before.reads);
    // A file of the same size is another one if its time differs.
    files.write(path, started("a1") + "an unfinished lin\n");
    scanner.scan(path, processStart, now);
    EXPECT_EQ(tally().offset, files.bytes(path).size());
}

TEST_P(Reading, MemoryStaysFlatHoweverMuchIsNew) {
    std::string file;
    while (file.size() < 5'000'000) {
        file += started("a1") + std::string(100'000, 'x') + "\n";
    }
    EXPECT_EQ(scan(file).commands, 1);
    EXPECT_LE(files.counts().largestRead, BackgroundScanner::Options{}.blockSize);
}

TEST_P(Reading, LinesOfTenMegabytesAreRead) {
    const std::string filler(10'000'000, '.');
    const std::string complete =
        filler + "\n<task-id>x1</task-id>" + filler + "running in background with ID: a1\n" + filler +
        "running in background with ID: b2" + filler + R"("timestamp":"2026-11-21T07:15:00Z")" + "\n";
    files.write(path, complete + filler + "running in background with ID: c3");
    for (const MarkerSearch search : {&findMarkersPortably, &findMarkersWithAvx2}) {
        Tally read;
        BackgroundScanner uncapped(files, {1'000'000'000, options.blockSize, search, options.shared});
        uncapped.read(path, now, read);
        EXPECT_EQ(read.offset, complete.size());
        EXPECT_EQ(read.started.size(), 2U);
        EXPECT_EQ(read.started["b2"], text::parseIso8601("2026-11-21T07:15:00Z"));
        EXPECT_EQ(read.started["a1"], now);
    }
}
