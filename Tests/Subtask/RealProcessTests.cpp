#include "Subtask/ApprovalFinder.h"

#include "Platform/Linux/LinuxFileSystem.h"
#include "Platform/Linux/LinuxProcesses.h"
#include "Subtask/ChildProcess.h"
#include "Subtask/TranscriptLines.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;
using testing::IsEmpty;

namespace {

/// Waits for something that another process is about to do; false if it never does.
bool waitUntil(const std::function<bool()>& condition) {
    constexpr int mostTries = 10'000;
    for (int tries = 0; tries < mostTries; ++tries) {
        if (condition()) {
            return true;
        }
        ::usleep(1'000);
    }
    return false;
}

/// Processes in which one child ends right after it was listed.
class EndingProcesses final : public Processes {
public:
    EndingProcesses(const Processes& real, std::function<void()> end) : real_(real), end_(std::move(end)) {}

    std::vector<std::int32_t> children(std::int32_t pid) const override {
        auto result = real_.children(pid);
        if (pid == ::getpid()) {
            end_();
        }
        return result;
    }

    bool isAlive(std::int32_t pid) const override { return real_.isAlive(pid); }

    std::optional<Date> started(std::int32_t pid) const override { return real_.started(pid); }

    std::string arguments(std::int32_t pid) const override { return real_.arguments(pid); }

    std::optional<std::string> executable(std::int32_t pid) const override { return real_.executable(pid); }

    bool isShell(std::int32_t pid) const override { return real_.isShell(pid); }

private:
    const Processes& real_;
    std::function<void()> end_;
};

/// The test plays the client; its children are the commands.
class RealProcesses : public testing::Test {
protected:
    /// Waits until the child runs its program, and answers when it started.
    Date startOf(const ChildProcess& child) {
        EXPECT_TRUE(waitUntil([&] { return processes.arguments(child.pid()).starts_with("/bin/sh"); }));
        const auto started = processes.started(child.pid());
        EXPECT_TRUE(started);
        return started.value_or(Date());
    }

    /// What the session's transcript says that a command was called for at this time.
    ApprovalRound refresh(const std::string& command, Date since, const Processes& seen) {
        std::array<char, 32> timestamp{};
        const double whole = std::floor(since.secondsSince1970);
        const auto seconds = static_cast<std::time_t>(whole);
        std::tm parts{};
        ::gmtime_r(&seconds, &parts);
        std::strftime(timestamp.data(), timestamp.size(), "%FT%TZ", &parts);
        const std::string path = folder / "s.jsonl";
        writeFile(
            path,
            transcriptText({assistantLine({toolUse("1", "Bash", {{"command", command}})}, timestamp.data())})
        );
        ApprovalFinder finder(files, seen);
        ApprovalSubject subject;
        subject.sessionId = "s";
        subject.client = {::getpid(), Date{whole - 10'000}};
        subject.transcript = path;
        return finder.refresh({subject}, Date{whole + 11});
    }

    ApprovalRound refresh(const std::string& command, Date since) {
        return refresh(command, since, processes);
    }

    const TemporaryFolder folder;
    const LinuxFileSystem files{};
    const LinuxProcesses processes{};
};

} // namespace

TEST_F(RealProcesses, AChildWithTheCommandInItsLineIsTheCommand) {
    const std::string command = "touch '/tmp/a b' && echo done";
    const ChildProcess child({"zsh", "eval \"touch /tmp/a\\ b && echo done\" < /dev/null"});
    const Date later = startOf(child) + 1'000;
    EXPECT_THAT(refresh(command, later).approvals, IsEmpty());
    EXPECT_EQ(refresh("touch '/tmp/other'", later).approvals.size(), 1U);
}

TEST_F(RealProcesses, AGrandchildCountsAndItsChildDoesNot) {
    constexpr const char* once = "/bin/sh -c 'read line' \"$@\"; :";
    constexpr const char* twice =
        "/bin/sh -c '/bin/sh -c \"read line\" \"$@\"; :' outer second-level-word; :";
    const auto hasDescendant = [&](pid_t pid, const std::string& word) {
        return waitUntil([&] {
            const auto seen = processesUnder(pid, processes);
            return std::any_of(seen.begin(), seen.end(), [&](const auto& process) {
                return process.args.find(word) != std::string::npos;
            });
        });
    };
    {
        const ChildProcess child({"outer", "inner", "make-all-of-it"}, {once, 0});
        const Date later = startOf(child) + 1'000;
        ASSERT_TRUE(hasDescendant(child.pid(), "makeallofit"));
        EXPECT_THAT(refresh("make all of it", later).approvals, IsEmpty());
    }
    const ChildProcess child({"zero"}, {twice, 0});
    ASSERT_TRUE(hasDescendant(child.pid(), "secondlevelword"));
    ASSERT_TRUE(waitUntil([&] {
        return !processesUnder(processes.children(child.pid()).at(0), processes).empty();
    }));
    const auto fromParent = processesUnder(::getpid(), processes);
    EXPECT_EQ(fromParent.size(), 2U);
}

TEST_F(RealProcesses, AChildOfAboutThatTimeIsTheCommand) {
    const ChildProcess child({"unrelated"});
    const Date started = startOf(child);
    EXPECT_THAT(refresh("make", started).approvals, IsEmpty());
    EXPECT_THAT(refresh("make", started + 1).approvals, IsEmpty());
    EXPECT_THAT(refresh("make", started - 500).approvals, IsEmpty());
    EXPECT_EQ(refresh("make", started + 4).approvals.size(), 1U);
}

TEST_F(RealProcesses, AChildThatEndsInTheMiddleOfTheListingIsLeftOut) {
    ChildProcess child({"make-all"});
    const Date later = startOf(child) + 1'000;
    EXPECT_THAT(refresh("make all", later).approvals, IsEmpty());
    const EndingProcesses ending(processes, [&] { child.kill(); });
    EXPECT_EQ(refresh("make all", later, ending).approvals.size(), 1U);
    EXPECT_THAT(processesUnder(::getpid(), processes), IsEmpty());
}

TEST_F(RealProcesses, AChildThatIsGoneInTheMiddleOfTheListingIsLeftOut) {
    ChildProcess child({"make-all"});
    const Date later = startOf(child) + 1'000;
    const EndingProcesses gone(processes, [&] {
        child.kill();
        child.reap();
    });
    EXPECT_EQ(refresh("make all", later, gone).approvals.size(), 1U);
}

TEST_F(RealProcesses, APidUsedAgainIsTheNewProcess) {
    ChildProcess first({"make-all"});
    const pid_t pid = first.pid();
    const Date later = startOf(first) + 1'000;
    EXPECT_THAT(refresh("make all", later).approvals, IsEmpty());
    first.kill();
    first.reap();
    const ChildProcess second({"unrelated"}, {"read line", pid});
    if (second.pid() < 1) {
        GTEST_SKIP() << "Choosing the number of a process is not permitted here.";
    }
    ASSERT_EQ(second.pid(), pid);
    startOf(second);
    EXPECT_EQ(refresh("make all", later).approvals.size(), 1U);
    EXPECT_THAT(refresh("unrelated", later).approvals, IsEmpty());
}
