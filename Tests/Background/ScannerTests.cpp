#include "Background/ScannerFixture.h"
#include "Support/FakeProcesses.h"

using namespace mimkins;
using namespace mimkins::test;
using namespace std::string_literals;

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
    files.write("/s", cronResult("toolu_1", "Scheduled recurring task ab (0 9 * * 1)"));
    EXPECT_EQ(scanner.scan("/s", processStart + 1'800, now).scheduled, 1);
    EXPECT_EQ(scanner.scan("/s", processStart + 1'800.001, now).scheduled, 0);
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
