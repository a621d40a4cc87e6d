#include "Subtask/ApprovalFinder.h"

#include "Subtask/TranscriptLines.h"
#include "Support/FakeProcesses.h"
#include "Support/MemoryFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

constexpr const char* madeText = "2026-11-21T07:30:18.000Z";
constexpr Date made{1'795'246'218};
constexpr std::int32_t clientPid = 500;

Subtask runningSubtask(const std::string& id, std::vector<PendingTool> pending) {
    Subtask subtask;
    subtask.id = id;
    subtask.running = true;
    subtask.pending = std::move(pending);
    return subtask;
}

/// A session "s" whose client runs as process 500 and writes to "/s.jsonl".
class ApprovalFinderTest : public testing::Test {
protected:
    ApprovalFinderTest() {
        subject.sessionId = "s";
        subject.client = {clientPid, made - 100};
        subject.transcript = "/s.jsonl";
    }

    void write(const std::vector<Json>& lines, std::int64_t time = 1'795'246'218) {
        files.write("/s.jsonl", transcriptText(lines), fileTime(time));
    }

    void writeBash(const std::string& command) {
        write({assistantLine({toolUse("1", "Bash", {{"command", command}})}, madeText)});
    }

    void addProcess(std::int32_t pid, std::int32_t parent, const std::string& arguments, Date started) {
        processes.processes[pid] = {parent, started, arguments, std::nullopt, false};
    }

    ApprovalRound refresh(double age = 10) { return finder.refresh({subject}, made + age); }

    ApprovalSubject subject;
    MemoryFileSystem files;
    FakeProcesses processes;
    ApprovalFinder finder{files, processes};
};

} // namespace

TEST_F(ApprovalFinderTest, FindsACallThatWaits) {
    writeBash("make");
    EXPECT_THAT(refresh(9.9).approvals, IsEmpty());
    const auto round = refresh(10);
    EXPECT_EQ(round.approvals.at("s"), (PendingApproval{"Bash", "make", made, std::nullopt}));
    EXPECT_THAT(round.waiting, IsEmpty());
}

TEST_F(ApprovalFinderTest, AProcessTwoLevelsDownShowsTheCommand) {
    writeBash("make 'all of it'");
    addProcess(501, clientPid, "node", made - 50);
    EXPECT_EQ(refresh().approvals.size(), 1U);
    addProcess(502, 501, std::string("zsh\0-c\0eval \"make 'all of it'\"", 31), made - 50);
    EXPECT_THAT(refresh(5'000).approvals, IsEmpty());
    processes.processes.erase(502);
    EXPECT_EQ(refresh().approvals.size(), 1U);
}

TEST_F(ApprovalFinderTest, AProcessThreeLevelsDownShowsNothing) {
    writeBash("make all");
    addProcess(501, clientPid, "node", made - 50);
    addProcess(502, 501, "node", made - 50);
    addProcess(503, 502, "make all", made - 50);
    EXPECT_EQ(refresh().approvals.size(), 1U);
}

TEST_F(ApprovalFinderTest, AnUnrelatedChildOfAboutThatTimeIsTheCommand) {
    writeBash("make");
    addProcess(501, clientPid, "unrelated", made - 1);
    EXPECT_THAT(refresh().approvals, IsEmpty());
}

TEST_F(ApprovalFinderTest, ACallOlderThanTheClientIsIgnored) {
    writeBash("make");
    subject.client->started = made + 0.5;
    EXPECT_THAT(refresh(100).approvals, IsEmpty());
    subject.client->started = made;
    EXPECT_EQ(refresh(100).approvals.size(), 1U);
}

TEST_F(ApprovalFinderTest, OtherToolsAreNeverFirst) {
    write({assistantLine({toolUse("1", "Task"), toolUse("2", "Read", {{"file_path", "/a/b"}})}, madeText)});
    EXPECT_EQ(refresh().approvals.at("s"), (PendingApproval{"Read", "b", made, std::nullopt}));
    write({assistantLine({toolUse("1", "Task")}, madeText)}, 1'795'246'219);
    EXPECT_THAT(refresh().approvals, IsEmpty());
}

TEST_F(ApprovalFinderTest, TwoSubtasksMayWaitAtOnce) {
    write({});
    const std::vector<Subtask> subtasks{
        runningSubtask("a", {{"Edit", "x.txt", std::nullopt, made}}),
        runningSubtask("b", {{"Write", std::nullopt, std::nullopt, made}}),
        runningSubtask("c", {}),
    };
    subject.subtasks = subtasks;
    const auto round = refresh();
    EXPECT_EQ(round.approvals.at("s"), (PendingApproval{"Edit", "x.txt", made, "a"}));
    EXPECT_THAT(round.waiting.at("s"), UnorderedElementsAre("a", "b"));
    const auto marked = markWaiting({{"s", subtasks}}, round.waiting);
    EXPECT_TRUE(marked.at("s").at(0).waitingForOK && marked.at("s").at(1).waitingForOK);
    EXPECT_FALSE(marked.at("s").at(2).waitingForOK);
}

TEST_F(ApprovalFinderTest, ASubtaskThatDoesNotRunAddsNothing) {
    write({});
    std::vector<Subtask> subtasks{runningSubtask("a", {{"Edit", std::nullopt, std::nullopt, made}})};
    subtasks[0].running = false;
    subject.subtasks = subtasks;
    EXPECT_EQ(refresh(), ApprovalRound());
}

TEST_F(ApprovalFinderTest, OnlySessionsOfTheClientWithProcessAndTranscriptAreJudged) {
    writeBash("make");
    const std::vector<Subtask> subtasks{runningSubtask("a", {{"Edit", std::nullopt, std::nullopt, made}})};
    subject.subtasks = subtasks;
    auto other = subject;
    other.hasOtherAgent = true;
    auto unregistered = subject;
    unregistered.client.reset();
    auto pidless = subject;
    pidless.client->pid = 0;
    auto pathless = subject;
    pathless.transcript.reset();
    for (const auto& session : {other, unregistered, pidless, pathless}) {
        EXPECT_EQ(finder.refresh({session}, made + 10), ApprovalRound());
    }
    EXPECT_EQ(finder.refresh({subject}, made + 10).approvals.size(), 1U);
}

TEST_F(ApprovalFinderTest, WithoutATranscriptTheSubtasksStillCount) {
    const std::vector<Subtask> subtasks{runningSubtask("a", {{"Edit", std::nullopt, std::nullopt, made}})};
    subject.subtasks = subtasks;
    EXPECT_EQ(refresh().approvals.at("s").subtaskId, "a");
    EXPECT_FALSE(finder.hasOpenCall("s"));
}

TEST_F(ApprovalFinderTest, ATranscriptIsReadAgainOnlyWhenItChanges) {
    writeBash("make");
    refresh();
    refresh(20);
    EXPECT_EQ(files.reads("/s.jsonl"), 1);
    files.append("/s.jsonl", transcriptText({userLine({toolResult("1")})}), fileTime(1'795'246'218, 1));
    EXPECT_THAT(refresh(30).approvals, IsEmpty());
    EXPECT_EQ(files.reads("/s.jsonl"), 2);
}

TEST_F(ApprovalFinderTest, CallsThatSomebodyHasJustReadAreNotReadAgain) {
    writeBash("make");
    const auto offered = *files.stamp("/s.jsonl");
    finder.offer("/s.jsonl", offered, {{"Edit", "a", std::nullopt, made}});
    EXPECT_EQ(refresh().approvals.at("s").tool, "Edit");
    EXPECT_EQ(files.reads("/s.jsonl"), 0);
}

TEST_F(ApprovalFinderTest, CallsOfAnotherStateOfTheTranscriptAreNotTaken) {
    writeBash("make");
    const auto before = *files.stamp("/s.jsonl");
    writeBash("more"); // another file, but of the same size and time
    finder.offer("/s.jsonl", before, {{"Edit", "a", std::nullopt, made}});
    EXPECT_EQ(refresh().approvals.at("s").detail, "more");
    EXPECT_EQ(files.reads("/s.jsonl"), 1);
}

TEST_F(ApprovalFinderTest, AnOfferLastsForOneRound) {
    writeBash("make");
    const auto offered = *files.stamp("/s.jsonl");
    finder.offer("/s.jsonl", offered, {{"Edit", "a", std::nullopt, made}});
    finder.refresh({}, made);
    EXPECT_EQ(refresh().approvals.at("s").tool, "Bash");
}

TEST_F(ApprovalFinderTest, ATranscriptWhoseTimeCannotBeHadAddsNothing) {
    writeBash("make");
    EXPECT_EQ(refresh().approvals.size(), 1U);
    files.setTime("/s.jsonl", std::nullopt);
    EXPECT_THAT(refresh().approvals, IsEmpty());
}

TEST_F(ApprovalFinderTest, ACallWithoutATimeIsAsOldAsTheTranscript) {
    write({assistantLine({toolUse("1", "Read")}, "")});
    EXPECT_EQ(refresh().approvals.at("s").since, made);
}

TEST_F(ApprovalFinderTest, RemembersOpenCallsOfCurrentSessionsAlone) {
    write({assistantLine({toolUse("1", "Task")}, madeText)});
    refresh();
    EXPECT_TRUE(finder.hasOpenCall("s"));
    auto passedOver = subject;
    passedOver.client.reset();
    finder.refresh({passedOver}, made);
    EXPECT_TRUE(finder.hasOpenCall("s"));
    finder.refresh({}, made);
    EXPECT_FALSE(finder.hasOpenCall("s"));
}

TEST_F(ApprovalFinderTest, ProcessesAreAskedOnlyWhenACallMayWait) {
    write({assistantLine({toolUse("1", "Task")}, madeText)});
    refresh();
    EXPECT_EQ(processes.listings(), 0);
    const std::vector<Subtask> subtasks{
        runningSubtask("a", {{"Edit", std::nullopt, std::nullopt, made}}),
        runningSubtask("b", {{"Bash", std::nullopt, "make", made}}),
    };
    subject.subtasks = subtasks;
    refresh();
    EXPECT_EQ(processes.listings(), 1);
}

TEST_F(ApprovalFinderTest, AProcessThatEndsDuringTheListingIsLeftOut) {
    writeBash("make all");
    addProcess(501, clientPid, "make all", made);
    processes.afterChildren = [&](std::int32_t parent) {
        if (parent == clientPid) {
            processes.processes.erase(501);
        }
    };
    EXPECT_THAT(processesUnder(clientPid, processes), IsEmpty());
    EXPECT_EQ(refresh().approvals.size(), 1U);
}

// The child has ended and its number went to another program: what counts is who has the number now.
TEST_F(ApprovalFinderTest, APidUsedAgainIsTheNewProcess) {
    writeBash("make all");
    addProcess(501, clientPid, "make all", made - 50);
    EXPECT_THAT(refresh().approvals, IsEmpty());
    addProcess(501, clientPid, "sleep", made - 40);
    EXPECT_EQ(refresh().approvals.size(), 1U);
    addProcess(501, 1, "make all", made - 40);
    EXPECT_EQ(refresh().approvals.size(), 1U);
}

TEST_F(ApprovalFinderTest, OneSessionDoesNotSeeAnothersProcesses) {
    writeBash("make all");
    addProcess(601, 600, "make all", made);
    auto other = subject;
    other.sessionId = "t";
    other.client->pid = 600;
    const auto round = finder.refresh({subject, other}, made + 10);
    EXPECT_TRUE(round.approvals.contains("s"));
    EXPECT_FALSE(round.approvals.contains("t"));
}

TEST(ProcessesUnder, SquashesArgumentsAndGoesTwoLevelsDeep) {
    FakeProcesses processes;
    processes.processes[2] = {1, Date{20}, std::string("/bin/Sh\0-c\0x '\xff'", 16), std::nullopt, true};
    processes.processes[3] = {2, Date{30}, "", std::nullopt, false};
    processes.processes[4] = {3, Date{40}, "deep", std::nullopt, false};
    processes.processes[-5] = {1, Date{50}, "negative", std::nullopt, false};
    processes.processes[6] = {1, std::nullopt, "ended", std::nullopt, false};
    EXPECT_THAT(
        processesUnder(1, processes),
        ElementsAre(ObservedProcess{"binshcx", Date{20}}, ObservedProcess{"", Date{30}})
    );
}
