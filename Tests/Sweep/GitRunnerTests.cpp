#include "Platform/Linux/LinuxGitRunner.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;
using namespace std::chrono_literals;

namespace {

/// Runs shell scripts in the place of git.
class GitStandIn : public testing::Test {
protected:
    LinuxGitRunner runner(const std::string& script, std::chrono::milliseconds limit = 5s) const {
        const std::string path = folder / "git";
        writeFile(path, "#!/bin/sh\n" + script);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return LinuxGitRunner({path, limit});
    }

    std::optional<std::string> output(const std::string& script) const {
        return runner(script).run({}, folder.path());
    }

    /// True if the process whose id a script left in a file has ended, waiting a little for that. Whether its
    /// new parent has taken note of it is not our business.
    static bool isGone(const std::string& pidFile) {
        const std::string status = "/proc/" + std::to_string(std::stoi(readWhole(pidFile))) + "/status";
        const auto runs = [&] {
            const std::string words = readWhole(status);
            return !words.empty() && words.find("State:\tZ") == std::string::npos;
        };
        for (int round = 0; round < 500 && runs(); ++round) {
            std::this_thread::sleep_for(10ms);
        }
        return !runs();
    }

    /// True if no child of this process is left, whether running or unreaped.
    static bool hasNoChildren() { return ::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD; }

    TemporaryFolder folder;
};

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        result.push_back(line);
    }
    return result;
}

} // namespace

TEST_F(GitStandIn, GetsItsFolderAndWordsBehindTheSafeSettings) {
    const auto words = lines(output(R"(printf '%s\n' "$@")").value_or(""));
    ASSERT_GE(words.size(), 7U);
    EXPECT_EQ(
        std::vector<std::string>(words.begin(), words.begin() + 7),
        (std::vector<std::string>{
            "-C", folder.path(), "--no-optional-locks", "-c", "core.fsmonitor=false", "-c",
            "diff.autoRefreshIndex=false"})
    );
    const auto more = runner(R"(printf '%s\n' "$@")").run({"log", "a b", ""}, "/x y");
    const auto given = lines(more.value_or(""));
    EXPECT_EQ(given.at(1), "/x y");
    EXPECT_EQ(
        std::vector<std::string>(given.end() - 3, given.end()), (std::vector<std::string>{"log", "a b", ""})
    );
}

TEST_F(GitStandIn, GetsExactlyTwoVariables) {
    ::setenv("GIT_DIR", "/nowhere", 1);
    const auto environment = output("tr '\\0' '\\n' </proc/$$/environ");
    ::unsetenv("GIT_DIR");
    EXPECT_EQ(environment, "GIT_OPTIONAL_LOCKS=0\nPATH=/usr/bin:/bin\n");
}

TEST_F(GitStandIn, GetsNoOtherDescriptorsAndNoInput) {
    constexpr int leak = 57;
    ASSERT_EQ(::dup2(STDOUT_FILENO, leak), leak);
    const auto answer =
        output("readlink /proc/$$/fd/0 /proc/$$/fd/2; if [ -e /proc/$$/fd/57 ]; then echo leaked; fi");
    ::close(leak);
    EXPECT_EQ(answer, "/dev/null\n/dev/null\n");
}

TEST_F(GitStandIn, StartsWithCleanSignals) {
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &blocked, nullptr);
    const auto old = ::signal(SIGPIPE, SIG_IGN);
    // Bits of the mask from signal 1 on; the two above 31 belong to the C library.
    const auto status =
        output("exec sed -n 's/^Sig\\(Blk\\|Ign\\):.*\\(........\\)$/\\1 \\2/p' /proc/self/status");
    ::signal(SIGPIPE, old);
    ::sigprocmask(SIG_UNBLOCK, &blocked, nullptr);
    EXPECT_EQ(status, "Blk 00000000\nIgn 80000000\n");
}

TEST_F(GitStandIn, StatusDecides) {
    EXPECT_EQ(output("echo fine"), "fine\n");
    EXPECT_EQ(output("exit 0"), "");
    EXPECT_EQ(output("echo fine; exit 1"), std::nullopt);
    EXPECT_EQ(runner("echo fine; exit 1").run({}, "/", GitFailure::allowNotFound), "fine\n");
    EXPECT_EQ(runner("echo fine; exit 2").run({}, "/", GitFailure::allowNotFound), std::nullopt);
    EXPECT_EQ(runner("echo fine; kill -9 $$").run({}, "/", GitFailure::allowNotFound), std::nullopt);
    EXPECT_EQ(output("echo wrong >&2; echo right"), "right\n");
}

TEST_F(GitStandIn, AMissingProgramIsAbsent) {
    EXPECT_EQ(LinuxGitRunner({folder / "none", 5s}).run({}, "/"), std::nullopt);
    EXPECT_TRUE(hasNoChildren());
}

TEST_F(GitStandIn, InvalidTextIsRepaired) {
    EXPECT_EQ(output(R"(printf 'a\377b\000c')"), std::string("a\uFFFDb\0c", 7));
}

TEST_F(GitStandIn, OutputMustFitThePipe) {
    EXPECT_EQ(output("head -c 65536 /dev/zero").value_or("").size(), 65'536U);
    EXPECT_EQ(output("head -c 65537 /dev/zero"), std::nullopt);
    EXPECT_EQ(output("head -c 10000000 /dev/zero; : >" + (folder / "end")), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(folder / "end"));
    EXPECT_TRUE(hasNoChildren());
}

TEST_F(GitStandIn, SlowOutputArrivesWhole) {
    EXPECT_EQ(output("echo one; sleep 0.1; echo two; exec >&-; sleep 0.1"), "one\ntwo\n");
}

TEST_F(GitStandIn, AHangingRunIsEndedAfterFiveSeconds) {
    const LinuxGitRunner git = runner("echo $$ >" + (folder / "pid") + "; echo half; exec sleep 1000");
    EXPECT_EQ(LinuxGitRunner::Options{}.limit, 5s);
    EXPECT_EQ(git.run({}, folder.path()), std::nullopt);
    EXPECT_TRUE(isGone(folder / "pid"));
    EXPECT_TRUE(hasNoChildren());
}

TEST_F(GitStandIn, AStubbornRunAndItsChildrenAreEnded) {
    const LinuxGitRunner git = runner(
        "trap '' TERM\nsh -c 'trap \"\" TERM; echo $$ >" + (folder / "child") +
            "; while :; do sleep 1; done' &\n" + "echo $$ >" + (folder / "pid") +
            "\nwhile :; do sleep 1; done",
        500ms
    );
    EXPECT_EQ(git.run({}, folder.path()), std::nullopt);
    EXPECT_TRUE(isGone(folder / "pid"));
    EXPECT_TRUE(isGone(folder / "child"));
    EXPECT_TRUE(hasNoChildren());
}

TEST_F(GitStandIn, AChildThatHoldsThePipeIsntWaitedFor) {
    EXPECT_EQ(output("sleep 1000 & echo $! >" + (folder / "child") + "; echo done"), "done\n");
    EXPECT_TRUE(isGone(folder / "child"));
    EXPECT_TRUE(hasNoChildren());
}

TEST_F(GitStandIn, RunsInSeveralThreadsAtOnce) {
    const LinuxGitRunner git = runner("sleep 0.05; echo \"$2\"");
    std::vector<std::optional<std::string>> answers(8);
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < answers.size(); ++index) {
        threads.emplace_back([&, index] { answers[index] = git.run({}, "/" + std::to_string(index)); });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    for (std::size_t index = 0; index < answers.size(); ++index) {
        EXPECT_EQ(answers[index], "/" + std::to_string(index) + "\n");
    }
    EXPECT_TRUE(hasNoChildren());
}
