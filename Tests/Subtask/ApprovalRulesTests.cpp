#include "Subtask/ApprovalRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace mimkins;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

constexpr Date made{1'795'246'218};

PendingTool
call(const std::string& name, std::optional<std::string> command = std::nullopt, Date since = made) {
    return {name, std::nullopt, std::move(command), since};
}

CallList own(std::vector<PendingTool> calls) {
    return {std::nullopt, std::move(calls)};
}

/// The verdict on one list of the session's own, `age` seconds after `made`.
std::optional<PendingApproval>
approvalAt(double age, std::vector<PendingTool> calls, const std::vector<ObservedProcess>& processes = {}) {
    return judge({own(std::move(calls))}, processes, made + age).approval;
}

/// A process that started long before the call.
ObservedProcess oldProcess(const std::string& args) {
    return {args, made - 1'000};
}

} // namespace

TEST(Promptable, IsAFixedSetOfTools) {
    for (const auto* tool : {"Bash", "Edit", "Write", "MultiEdit", "NotebookEdit", "Read", "Grep", "Glob"}) {
        EXPECT_TRUE(isPromptable(tool)) << tool;
    }
    for (const auto* tool : {"Task", "WebFetch", "bash", "", "AskUserQuestion", "SubagentHandback"}) {
        EXPECT_FALSE(isPromptable(tool)) << tool;
    }
}

TEST(Candidates, ArePromptableAndNotOlderThanTheClient) {
    const std::vector<PendingTool> calls{
        call("Task"), call("Read", {}, made - 0.001), call("Edit"), call("Grep", {}, made + 1)};
    EXPECT_THAT(candidates(calls, made), ElementsAre(calls[2], calls[3]));
}

TEST(IsRunning, FindsTheSquashedCommandInTheArguments) {
    const auto bash = call("Bash", "touch '/tmp/A b' && echo done");
    EXPECT_TRUE(isRunning(bash, {oldProcess("binzshcevaltouchtmpabechodoneltdevnull")}));
    EXPECT_FALSE(isRunning(bash, {oldProcess("binzshcevaltouchtmpab")}));
    EXPECT_TRUE(isRunning(bash, {oldProcess("unrelated"), oldProcess("touchtmpabechodone")}));
}

TEST(IsRunning, ComparesTheFirst48SquashedCharacters) {
    const std::string beginning(48, 'x');
    EXPECT_TRUE(isRunning(call("Bash", beginning + "yyy"), {oldProcess(beginning + "zzz")}));
    EXPECT_FALSE(isRunning(call("Bash", beginning), {oldProcess(std::string(47, 'x'))}));
    EXPECT_FALSE(isRunning(call("Bash", std::string(47, 'x') + "yz"), {oldProcess(beginning)}));
}

TEST(IsRunning, AnEmptyKeyMatchesNothing) {
    EXPECT_FALSE(isRunning(call("Bash"), {oldProcess("anything")}));
    EXPECT_FALSE(isRunning(call("Bash", "./!! &&"), {oldProcess("anything")}));
}

TEST(IsRunning, AnyProcessOfAboutThatTimeCounts) {
    EXPECT_TRUE(isRunning(call("Bash", "make"), {{"unrelated", made - 1}}));
    EXPECT_TRUE(isRunning(call("Bash", "make"), {{"unrelated", made - 2}}));
    EXPECT_TRUE(isRunning(call("Bash"), {{"", made + 500}}));
    EXPECT_FALSE(isRunning(call("Bash", "make"), {{"unrelated", made - 2.01}}));
}

TEST(IsRunning, WithoutProcessesNothingRuns) {
    EXPECT_FALSE(isRunning(call("Bash", "make"), {}));
}

TEST(Judge, ACallWaitsOnceItIsTenSecondsOld) {
    EXPECT_EQ(approvalAt(9.9, {call("Bash", "make")}), std::nullopt);
    EXPECT_EQ(
        approvalAt(10.0, {call("Bash", "make")}), (PendingApproval{"Bash", "make", made, std::nullopt})
    );
    EXPECT_EQ(approvalAt(10.0, {call("Bash", "make")}, {oldProcess("other")})->tool, "Bash");
}

TEST(Judge, AShellCommandAtWorkNeverWaits) {
    EXPECT_EQ(approvalAt(5'000, {call("Bash", "make all")}, {oldProcess("zshcmakeall")}), std::nullopt);
    EXPECT_EQ(approvalAt(10, {call("Bash", "make all")}, {{"unrelated", made - 1}}), std::nullopt);
}

TEST(Judge, OtherToolsAreNotJudgedByProcesses) {
    const std::vector<ObservedProcess> fresh{{"unrelated", made + 1}};
    EXPECT_EQ(approvalAt(9.9, {call("Read")}, fresh), std::nullopt);
    EXPECT_EQ(approvalAt(10, {call("Read")}, fresh)->tool, "Read");
    EXPECT_EQ(approvalAt(10, {call("Read"), call("Bash", "make")}, fresh), std::nullopt);
    EXPECT_EQ(approvalAt(10, {call("Read"), call("Bash", "make")})->tool, "Read");
}

TEST(Judge, TheFirstCallDecidesOnTheAge) {
    EXPECT_EQ(approvalAt(10, {call("Read", {}, made + 1), call("Edit")}), std::nullopt);
    EXPECT_EQ(approvalAt(11, {call("Read", {}, made + 1), call("Edit")})->since, made + 1);
}

TEST(Judge, TheDetailIsTheCallsOrTheCommandsBeginning) {
    auto described = call("Bash", "make");
    described.detail = "Build it";
    EXPECT_EQ(approvalAt(10, {described})->detail, "Build it");
    EXPECT_EQ(approvalAt(10, {call("Bash", std::string(121, 'm'))})->detail, std::string(120, 'm'));
    EXPECT_EQ(approvalAt(10, {call("Read")})->detail, std::nullopt);
}

TEST(Judge, TheSessionsOwnCallWinsAndAllWaitingSubtasksAreTold) {
    const CallList first{"a", {call("Edit")}};
    const CallList second{"b", {call("Write")}};
    const auto alone = judge({own({}), first, second}, {}, made + 10);
    EXPECT_EQ(alone.approval, (PendingApproval{"Edit", std::nullopt, made, "a"}));
    EXPECT_THAT(alone.waitingSubtasks, UnorderedElementsAre("a", "b"));
    const auto all = judge({own({call("Read")}), first, second}, {}, made + 10);
    EXPECT_EQ(all.approval, (PendingApproval{"Read", std::nullopt, made, std::nullopt}));
    EXPECT_THAT(all.waitingSubtasks, UnorderedElementsAre("a", "b"));
}

TEST(Judge, AListAtWorkSilencesOnlyItself) {
    const CallList busy{"a", {call("Bash", "make all")}};
    const CallList waiting{"b", {call("Bash", "rm -r build")}};
    const auto verdict = judge({busy, waiting}, {oldProcess("zshcmakeall")}, made + 10);
    EXPECT_EQ(verdict.approval->subtaskId, "b");
    EXPECT_THAT(verdict.waitingSubtasks, UnorderedElementsAre("b"));
}

TEST(Judge, NothingOpenGivesNothing) {
    EXPECT_EQ(judge({}, {}, made + 10), ApprovalVerdict());
    EXPECT_EQ(judge({own({}), {"a", {}}}, {}, made + 10), ApprovalVerdict());
}
