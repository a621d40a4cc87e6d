#include "Background/BackgroundScanner.h"
#include "Background/MemoryFiles.h"
#include "Background/NaiveScanner.h"
#include "Base/DateText.h"
#include "Support/FakeProcesses.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

using namespace mimkins;
using namespace std::string_literals;

namespace {

const std::string path = "/t.jsonl";
const Date now = text::parseIso8601("2026-11-21T08:00:00Z").value();
const Date processStart = text::parseIso8601("2026-11-21T07:00:00Z").value();

std::string timed(const std::string& content, const std::string& time = "2026-11-21T07:30:00.500Z") {
    return "{\"content\":\"" + content + "\",\"timestamp\":\"" + time + "\"}\n";
}

std::string started(const std::string& id, const std::string& time = "2026-11-21T07:30:00.500Z") {
    return timed("Command running in background with ID: " + id + ". Output is", time);
}

std::string finished(const std::string& id, const std::string& status = "completed") {
    return timed("<task-id>" + id + "</task-id>\\n<status>" + status + "</status>");
}

std::string cronCall(const std::string& call, const std::string& prompt) {
    return R"({"type":"tool_use","id":")" + call +
           R"(","name":"CronCreate","input":{"cron":"30 14 2 12 *","prompt":")" + prompt + "\"}}\n";
}

std::string cronResult(const std::string& call, const std::string& announcement) {
    return R"([{"tool_use_id":")" + call + R"(","type":"tool_result","content":")" + announcement +
           "\"}],\"timestamp\":\"2026-11-21T07:30:00Z\"}\n";
}

class Scanner : public testing::Test {
protected:
    void SetUp() override { ::setenv("TZ", "UTC", 1); }

    BackgroundWork scan(const std::string& bytes) {
        files.write(path, bytes);
        return scanner.scan(path, processStart, now);
    }

    const Tally& tally() const { return scanner.tallies().at(path); }

    test::MemoryFiles files;
    BackgroundScanner scanner{files};
};

} // namespace

TEST_F(Scanner, CountsCommandsThatHaveNotEnded) {
    EXPECT_EQ(scan(started("a1") + started("b2") + finished("a1")).commands, 1);
    EXPECT_EQ(tally().started.size(), 2U);
    EXPECT_EQ(tally().started.at("a1"), text::parseIso8601("2026-11-21T07:30:00.500Z"));
}

TEST_F(Scanner, EveryEndingStatusEnds) {
    for (const char* status : {"completed", "failed", "killed", "stopped", "cancelled", "timed_out"}) {
        test::MemoryFiles own;
        own.write(path, started("a1") + finished("a1", status));
        EXPECT_EQ(BackgroundScanner(own).scan(path, processStart, now).commands, 0) << status;
    }
    EXPECT_EQ(scan(started("a1") + finished("a1", "running")).commands, 1);
}

TEST_F(Scanner, EachWayOfStoppingEnds) {
    for (const char* stop :
         {R"("name":"TaskStop","input":{"task_id":"a1"})", R"("name":"KillShell","input":{"shell_id":"a1"})",
          R"("name":"KillBash","input":{"id":"a1"})",
          R"("name":"TaskStop","input":{"x":1,"task_id":"a1","y":2})"}) {
        test::MemoryFiles own;
        own.write(path, started("a1") + stop + "\n");
        EXPECT_EQ(BackgroundScanner(own).scan(path, processStart, now).commands, 0) << stop;
    }
    EXPECT_EQ(
        scan(
            started("a1") + R"("name":"TaskStop","input":{},"task_id":"a1")"
                            "\n"
        )
            .commands,
        1
    );
}

TEST_F(Scanner, AStatusTooFarFromItsTaskDoesNotEndIt) {
    const auto far = [](std::size_t distance) {
        return "<task-id>a1</task-id>" + std::string(distance, '.') + "<status>completed\n";
    };
    EXPECT_EQ(scan(started("a1") + far(601)).commands, 1);
    files.append(path, far(600));
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 0);
}

TEST_F(Scanner, ATaskOfAnEarlierProcessIsDead) {
    EXPECT_EQ(scan(started("a1", "2026-11-21T06:59:59.999Z")).commands, 0);
    EXPECT_EQ(scan(started("a1", "2026-11-21T07:00:00Z")).commands, 1);
    const auto result = cronResult("toolu_1", "Scheduled recurring task ab (0 9 * * 1)");
    EXPECT_EQ(scan(result).scheduled, 1);
    EXPECT_EQ(scanner.scan(path, processStart + 3600, now).scheduled, 0);
}

TEST_F(Scanner, ALineWithoutReadableTimeIsOfThePresent) {
    scan(
        "running in background with ID: a1\n"s +
        R"(running in background with ID: b2 "timestamp":"soon" "timestamp":"2026-11-21T07:30:00Z")" + "\n"
    );
    EXPECT_EQ(tally().started.at("a1"), now);
    EXPECT_EQ(tally().started.at("b2"), now);
}

TEST_F(Scanner, ARepeatedIdTakesTheTimeOfTheLaterLine) {
    scan(started("a1") + started("a1", "2026-11-21T07:45:00Z"));
    EXPECT_EQ(tally().started.at("a1"), text::parseIso8601("2026-11-21T07:45:00Z"));
}

TEST_F(Scanner, AOneShotTaskIsListedUntilItFires) {
    const auto work = scan(
        cronCall("toolu_1", R"(Check the \"nightly\" build\nand report)") +
        cronResult("toolu_1", "Scheduled one-shot task dd7039ef (30 14 2 12 *). Session-only")
    );
    const Date fire = text::parseIso8601("2026-12-02T14:30:00Z").value();
    ASSERT_EQ(work.items.size(), 1U);
    EXPECT_EQ(
        work.items[0], (ScheduledItem{"dd7039ef", fire, false, "Check the \"nightly\" build\nand report"})
    );
    EXPECT_EQ(work.scheduled, 1);
    EXPECT_EQ(work.nextFire, fire);
    EXPECT_EQ(scanner.scan(path, processStart, fire - 0.001).scheduled, 1);
    EXPECT_EQ(scanner.scan(path, processStart, fire).scheduled, 0);
    EXPECT_EQ(scanner.scan(path, processStart, fire).nextFire, std::nullopt);
}

TEST_F(Scanner, ARecurringTaskHasNoDate) {
    const auto work = scan(cronResult("toolu_1", "Scheduled recurring task ab (30 14 2 12 *)"));
    EXPECT_EQ(work.items, (std::vector<ScheduledItem>{{"ab", std::nullopt, true, ""}}));
    EXPECT_EQ(work.nextFire, std::nullopt);
    EXPECT_TRUE(tally().crons.at("ab").fire.has_value());
}

TEST_F(Scanner, AnUnreadableScheduleIsShownOnlyIfItRecurs) {
    const auto work = scan(
        cronResult("toolu_1", "Scheduled recurring task ab (0 9 * * 1)") +
        cronResult("toolu_1", "Scheduled one-shot task cd (0 9 * * 1)")
    );
    EXPECT_EQ(work.items, (std::vector<ScheduledItem>{{"ab", std::nullopt, true, ""}}));
    EXPECT_EQ(tally().crons.size(), 2U);
}

TEST_F(Scanner, ReadsTheWordingOfJobs) {
    const auto work = scan(
        cronCall("toolu_1", "Weekly report") +
        cronResult("toolu_1", "Scheduled recurring job 9bce26cc (Every Monday at 9:00 AM). Session-only") +
        cronResult("toolu_2", "Scheduled one-shot job 77 (30 14 2 12 *). Session-only")
    );
    const Date fire = text::parseIso8601("2026-12-02T14:30:00Z").value();
    EXPECT_EQ(
        work.items, (std::vector<ScheduledItem>{
                        {"77", fire, false, ""}, {"9bce26cc", std::nullopt, true, "Weekly report"}})
    );
    files.append(
        path, R"("name":"CronDelete","input":{"id":"9bce26cc"})"
              "\n"
    );
    EXPECT_EQ(scanner.scan(path, processStart, now).scheduled, 1);
}

TEST_F(Scanner, ItemsAreSortedByTheirDate) {
    const auto work = scan(
        cronResult("toolu_1", "Scheduled recurring task aa (0 9 * * 1)") +
        cronResult("toolu_1", "Scheduled one-shot task bb (0 9 3 12 *)") +
        cronResult("toolu_1", "Scheduled one-shot task cc (0 9 2 12 *)") +
        cronResult("toolu_1", "Scheduled one-shot task dd (0 9 1 1 *)")
    );
    std::string order;
    for (const auto& item : work.items) {
        order += item.id + " ";
    }
    EXPECT_EQ(order, "cc bb dd aa ");
    EXPECT_EQ(work.nextFire, text::parseIso8601("2026-12-02T09:00:00Z"));
}

TEST_F(Scanner, ADeletedTaskIsGoneEvenIfDeletedFirst) {
    EXPECT_EQ(
        scan(
            R"("name":"CronDelete","input":{"id":"ab"})"
            "\n" +
            cronResult("toolu_1", "Scheduled recurring task ab (0 9 * * 1)")
        )
            .scheduled,
        0
    );
}

TEST_F(Scanner, APromptOnTheSameLineIsFound) {
    auto call = cronCall("toolu_1", "here");
    call.pop_back();
    const auto work = scan(call + cronResult("toolu_1", "Scheduled recurring task ab (0 9 * * 1)"));
    EXPECT_EQ(work.items.at(0).prompt, "here");
}

TEST_F(Scanner, TheCallMustStandCloseToItsAnnouncement) {
    const auto apart = [](std::size_t distance) {
        return cronCall("toolu_1", "here") + R"("tool_use_id":"toolu_1")" + std::string(distance, '.') +
               "Scheduled recurring task ab (0 9 * * 1)\n";
    };
    EXPECT_EQ(scan(apart(400)).items.at(0).prompt, "here");
    EXPECT_EQ(scan(apart(401)).items.at(0).prompt, "here"); // Nothing new: the file isn't shorter.
    test::MemoryFiles own;
    own.write(path, apart(401));
    EXPECT_EQ(BackgroundScanner(own).scan(path, processStart, now).items.at(0).prompt, "");
}

TEST_F(Scanner, PromptsAreDecoded) {
    EXPECT_EQ(decodePrompt(R"(a\tb\u00e9\\)"), "a\tbé\\");
    EXPECT_EQ(decodePrompt(R"(one\ntwo \"three\" \u12)"), R"(one two "three" \u12)");
    EXPECT_EQ(decodePrompt(R"(\\n \q)"), R"(\  \q)");
    EXPECT_EQ(decodePrompt(""), "");
    // The cut at 160 units falls into an escape sequence.
    scan(cronCall("toolu_1", std::string(159, 'x') + R"(\u00e9 and more)"));
    EXPECT_EQ(tally().prompts.at("toolu_1"), std::string(159, 'x') + R"(\u)");
    scan(cronCall("toolu_1", std::string(159, 'x') + R"(\u00e9 and more)") + cronCall("toolu_1", "later"));
    EXPECT_EQ(tally().prompts.at("toolu_1"), "later");
}

TEST_F(Scanner, ATailWithoutNewlineWaitsForItsEnd) {
    const auto line = started("b2");
    EXPECT_EQ(scan(started("a1") + line.substr(0, line.size() - 1)).commands, 1);
    EXPECT_EQ(tally().offset, started("a1").size());
    files.append(path, "\n");
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 2);
    EXPECT_EQ(tally().offset, 2 * line.size());
}

TEST_F(Scanner, AFileWithoutNewlineIsNotConsumed) {
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

TEST_F(Scanner, TheFirstReadingIsCapped) {
    const auto head = started("a1") + started("b2");
    std::string file = head + std::string(6'000'001 - head.size() - 1, 'x') + "\n";
    EXPECT_EQ(scan(file.substr(1)).commands, 2); // 6,000,000 bytes are read whole.
    test::MemoryFiles own;
    own.write(path, file);
    BackgroundScanner capped(own);
    EXPECT_EQ(capped.scan(path, processStart, now).commands, 1);
    EXPECT_TRUE(capped.tallies().at(path).started.contains("b2"));
    EXPECT_EQ(capped.tallies().at(path).offset, file.size());
    // The cap is for the first reading only.
    own.append(path, started("c3") + std::string(6'500'000, 'x') + "\n");
    EXPECT_EQ(capped.scan(path, processStart, now).commands, 2);
}

TEST_F(Scanner, AScheduleWhoseCallLiesBeforeTheCapHasNoPrompt) {
    const auto result = cronResult("toolu_1", "Scheduled recurring task ab (0 9 * * 1)");
    const auto work = scan(cronCall("toolu_1", "lost") + std::string(6'000'000, 'x') + "\n" + result);
    EXPECT_EQ(work.items, (std::vector<ScheduledItem>{{"ab", std::nullopt, true, ""}}));
}

TEST_F(Scanner, ATruncatedFileIsReadAnew) {
    EXPECT_EQ(scan(started("a1") + started("b2")).commands, 2);
    EXPECT_EQ(scan(started("c3")).commands, 1);
    EXPECT_EQ(tally().started.size(), 1U);
}

TEST_F(Scanner, AFileThatShrankAndGrewBetweenScansIsNotNoticed) {
    EXPECT_EQ(scan(started("a1")).commands, 1);
    EXPECT_EQ(scan(started("b2") + started("c3")).commands, 2);
    EXPECT_TRUE(tally().started.contains("a1"));
    EXPECT_FALSE(tally().started.contains("b2"));
}

TEST_F(Scanner, WhatCannotBeReadHasNothingNew) {
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

TEST_F(Scanner, AFailureInTheMiddleLeavesTheTallyAsItWas) {
    scan(started("a1"));
    const Tally before = tally();
    files.append(path, started("b2") + std::string(1'000'000, 'x') + "\n" + started("c3"));
    files.brokenFrom = 900'000;
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 1);
    EXPECT_EQ(tally(), before);
    files.brokenFrom.reset();
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 3);
}

TEST_F(Scanner, AFileThatShrinksWhileItIsReadGivesWhatIsThere) {
    files.write(path, started("a1") + started("b2"));
    files.shrunkTo = started("a1").size() + 10;
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 1);
    EXPECT_EQ(tally().offset, started("a1").size());
}

TEST_F(Scanner, ALineThatChangesWhileItIsReadIsNotTaken) {
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

TEST_F(Scanner, AnUnchangedFileCostsOneLook) {
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

TEST_F(Scanner, MemoryStaysFlatHoweverMuchIsNew) {
    std::string file;
    while (file.size() < 5'000'000) {
        file += started("a1") + std::string(100'000, 'x') + "\n";
    }
    EXPECT_EQ(scan(file).commands, 1);
    EXPECT_LE(files.counts().largestRead, BackgroundScanner::Options{}.blockSize);
}

TEST_F(Scanner, LinesOfTenMegabytesAreRead) {
    const std::string filler(10'000'000, 'y');
    Tally whole;
    files.write(
        path, filler + "\n" + "<task-id>x1</task-id>" + filler + "running in background with ID: a1\n" +
                  filler + "running in background with ID: b2" + filler +
                  R"("timestamp":"2026-11-21T07:15:00Z")" + "\n" + filler +
                  "running in background with ID: c3"
    );
    for (const MarkerSearch search : {&findMarkersPortably, &findMarkersWithAvx2}) {
        Tally tally;
        BackgroundScanner uncapped(files, {1'000'000'000, 256 << 10U, search});
        uncapped.read(path, now, tally);
        EXPECT_EQ(tally.offset, 50'000'000 + 4U + 21 + 33 + 33 + 36 - 1 - 0U);
        EXPECT_EQ(tally.started.size(), 2U);
        EXPECT_EQ(tally.started["b2"], text::parseIso8601("2026-11-21T07:15:00Z"));
        EXPECT_EQ(tally.started["a1"], now);
    }
}

TEST_F(Scanner, InvalidBytesAreRepaired) {
    EXPECT_EQ(
        scan("\xff\xc3 running in background with ID: a1\xff\n\xe2\x82<task-id>\xf0\n" + started("b2"))
            .commands,
        2
    );
    EXPECT_TRUE(tally().started.contains("a1"));
    // Each broken sequence counts as one character of the 600.
    std::string broken;
    for (int count = 0; count < 600; ++count) {
        broken += "\xe2\x82";
    }
    files.append(path, "<task-id>a1</task-id>" + broken + "<status>failed\n");
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 1);
    files.append(path, "<task-id>b2</task-id>\xff" + broken + "<status>failed\n");
    EXPECT_EQ(scanner.scan(path, processStart, now).commands, 1);
}

TEST_F(Scanner, ParsesDatesWithAndWithoutFraction) {
    EXPECT_EQ(parseDate("2026-11-21T07:30:18.250Z"), Date{1795246218.25});
    EXPECT_EQ(parseDate("2026-11-21T07:30:18Z"), Date{1795246218});
    EXPECT_EQ(parseDate("2026-11-21"), std::nullopt);
}

TEST_F(Scanner, CommandsAreCappedByLiveShells) {
    files.write(path, started("a1") + started("b2"));
    files.write("/s", started("a1") + cronResult("toolu_1", "Scheduled recurring task ab (0 9 * * 1)"));
    const auto work = [&](const std::string& transcript, std::int64_t shells) {
        return scanBackground(scanner, {{"id", transcript, processStart, shells}}, now);
    };
    EXPECT_EQ(work(path, 3).at("id").commands, 2);
    EXPECT_EQ(work(path, 1).at("id").commands, 1);
    EXPECT_TRUE(work(path, 0).empty());
    EXPECT_EQ(work("/s", 0).at("id").commands, 0);
    EXPECT_EQ(work("/s", 0).at("id").scheduled, 1);
    EXPECT_TRUE(work("/missing", 5).empty());
    EXPECT_TRUE(scanBackground(scanner, {}, now).empty());
}

TEST(LiveShells, AreTheDirectChildrenThatRunAShell) {
    test::FakeProcesses processes;
    processes.processes[10] = {};
    processes.processes[11] = {10, {}, "", "/bin/bash", true};
    processes.processes[12] = {10, {}, "", "/usr/bin/node", false};
    processes.processes[13] = {11, {}, "", "/bin/sh", true};
    processes.processes[14] = {0, {}, "", "/bin/sh", true};
    processes.processes[15] = {10, {}, "", "/bin/zsh", true};
    EXPECT_EQ(liveShellCount(processes, 10), 2);
    EXPECT_EQ(liveShellCount(processes, 11), 1);
    EXPECT_EQ(liveShellCount(processes, 0), 0);
    EXPECT_EQ(liveShellCount(processes, -1), 0);
    EXPECT_EQ(liveShellCount(processes, 99), 0);
    processes.processes[0] = {10, {}, "", "/bin/sh", true}; // No process has such an id.
    EXPECT_EQ(liveShellCount(processes, 10), 2);
}
