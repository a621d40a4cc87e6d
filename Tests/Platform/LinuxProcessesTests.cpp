#include "Platform/Linux/LinuxProcesses.h"

#include "Platform/Linux/BootTime.h"
#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <limits>
#include <string>
#include <thread>
#include <vector>

using namespace mimkins;
using namespace std::chrono_literals;
using test::ChildProcess;
using test::TemporaryFolder;
using test::writeFile;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

bool eventually(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + 30s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

/// A copy of the program that sleeps, under another name.
std::string copyOfSleep(const TemporaryFolder& folder, const std::string& name) {
    const std::string path = folder / name;
    std::filesystem::copy_file("/bin/sleep", path);
    return path;
}

std::string statLine(int pid, int parent) {
    return std::to_string(pid) + " (a) S " + std::to_string(parent) +
           " 1 1 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 500 0 0\n";
}

double wallClock() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

} // namespace

TEST(LinuxProcesses, ChildrenAreFoundWhateverTheirNames) {
    const TemporaryFolder folder;
    const LinuxProcesses processes;
    const std::string program = copyOfSleep(folder, "a) R 1 (b c");
    const ChildProcess odd(program, {"odd name) S 1", "1000"});
    const ChildProcess plain("/bin/sleep", {"sleep", "1000"});
    const auto children = processes.children(::getpid());
    EXPECT_THAT(children, Contains(odd.pid()));
    EXPECT_THAT(children, Contains(plain.pid()));
    EXPECT_TRUE(std::is_sorted(children.begin(), children.end()));
    EXPECT_TRUE(processes.isAlive(odd.pid()));
    EXPECT_EQ(processes.executable(odd.pid()), program);
    EXPECT_EQ(processes.arguments(odd.pid()), std::string("odd name) S 1\0", 14) + std::string("1000\0", 5));
    EXPECT_TRUE(processes.started(odd.pid()));
}

TEST(LinuxProcesses, ChildrenOfOtherThreadsCount) {
    const LinuxProcesses processes;
    std::promise<pid_t> started;
    std::promise<void> finish;
    std::thread thread([&] {
        const ChildProcess child("/bin/sleep", {"sleep", "1000"});
        started.set_value(child.pid());
        finish.get_future().wait();
    });
    const pid_t pid = started.get_future().get();
    EXPECT_THAT(processes.children(::getpid()), Contains(pid));
    finish.set_value();
    thread.join();
    EXPECT_THAT(processes.children(::getpid()), Not(Contains(pid)));
}

TEST(LinuxProcesses, GrandchildrenAreNoChildren) {
    const LinuxProcesses processes;
    const ChildProcess shell("/bin/sh", {"sh", "-c", "/bin/sleep 1000 & exec /bin/sleep 1000"});
    ASSERT_TRUE(eventually([&] { return processes.children(shell.pid()).size() == 1; }));
    const auto grandchild = processes.children(shell.pid()).front();
    EXPECT_THAT(processes.children(::getpid()), Not(Contains(grandchild)));
    ::kill(grandchild, SIGKILL);
}

TEST(LinuxProcesses, StartIsRightToAClockTick) {
    const LinuxProcesses processes;
    const double before = wallClock();
    const ChildProcess child("/bin/sleep", {"sleep", "1000"});
    const double after = wallClock();
    const auto started = processes.started(child.pid());
    ASSERT_TRUE(started);
    // A tick down from the start, and a millisecond for the clocks.
    EXPECT_GE(started->secondsSince1970, before - 0.011);
    EXPECT_LE(started->secondsSince1970, after + 0.001);
}

TEST(LinuxProcesses, BootTimeRefinesTheKernelsOwnFigure) {
    std::ifstream stat("/proc/stat");
    std::string word;
    double kernels = 0;
    while (stat >> word && word != "btime") {
    }
    ASSERT_TRUE(stat >> kernels);
    const auto boot = bootTime();
    ASSERT_TRUE(boot);
    EXPECT_NEAR(boot->secondsSince1970, kernels, 1.5);
}

TEST(LinuxProcesses, ZombieIsAliveButHasNothingToTell) {
    const LinuxProcesses processes;
    const ChildProcess child("/bin/bash", {"bash", "-c", "kill -STOP $$"});
    child.killOnly();
    EXPECT_TRUE(processes.isAlive(child.pid()));
    EXPECT_THAT(processes.children(::getpid()), Contains(child.pid()));
    EXPECT_EQ(processes.started(child.pid()), std::nullopt);
    EXPECT_EQ(processes.arguments(child.pid()), "");
    EXPECT_EQ(processes.executable(child.pid()), std::nullopt);
    EXPECT_FALSE(processes.isShell(child.pid()));
    EXPECT_THAT(processes.children(child.pid()), IsEmpty());
}

TEST(LinuxProcesses, ProcessThatEndedAnswersLikeOneThatNeverWas) {
    const LinuxProcesses processes;
    ChildProcess child("/bin/sleep", {"sleep", "1000"});
    const pid_t pid = child.pid();
    child.end();
    EXPECT_FALSE(processes.isAlive(pid));
    EXPECT_EQ(processes.started(pid), std::nullopt);
    EXPECT_EQ(processes.arguments(pid), "");
    EXPECT_EQ(processes.executable(pid), std::nullopt);
    EXPECT_FALSE(processes.isShell(pid));
    EXPECT_THAT(processes.children(pid), IsEmpty());
    EXPECT_THAT(processes.children(::getpid()), Not(Contains(pid)));
}

TEST(LinuxProcesses, ProcessesThatComeAndGoNeverGiveGarbage) {
    const LinuxProcesses processes;
    std::atomic<bool> over = false;
    std::thread churn([&] {
        for (int round = 0; round < 200; ++round) {
            const ChildProcess child("/bin/true", {"true"});
        }
        over = true;
    });
    const double begin = wallClock();
    while (!over) {
        for (const auto pid : processes.children(::getpid())) {
            const auto started = processes.started(pid);
            EXPECT_TRUE(!started || *started >= Date{begin - 30});
            const auto arguments = processes.arguments(pid);
            static_cast<void>(processes.isShell(pid));
            EXPECT_LT(arguments.size(), 100'000U);
        }
    }
    churn.join();
    EXPECT_THAT(processes.children(::getpid()), IsEmpty());
}

TEST(LinuxProcesses, IdsBelowOneAreNobody) {
    const LinuxProcesses processes;
    for (const std::int32_t pid : {0, -1, -::getpid(), std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_THAT(processes.children(pid), IsEmpty());
        EXPECT_EQ(processes.started(pid), std::nullopt);
        EXPECT_EQ(processes.arguments(pid), "");
        EXPECT_EQ(processes.executable(pid), std::nullopt);
        EXPECT_FALSE(processes.isShell(pid));
    }
    EXPECT_FALSE(processes.isAlive(std::numeric_limits<std::int32_t>::max()));
    EXPECT_TRUE(processes.isAlive(1));
    EXPECT_TRUE(processes.isAlive(0)) << "the caller's own group";
}

TEST(LinuxProcesses, ShellsAreKnownByTheirExecutable) {
    const TemporaryFolder folder;
    const LinuxProcesses processes;
    const ChildProcess bash("/bin/bash", {"anything", "-c", "kill -STOP $$"});
    const ChildProcess system("/bin/sh", {"anything", "-c", "kill -STOP $$"});
    const ChildProcess zsh(copyOfSleep(folder, "zsh"), {"x", "1000"});
    const ChildProcess notQuite(copyOfSleep(folder, "fish"), {"zsh", "1000"});
    const ChildProcess suffix(copyOfSleep(folder, "mybash"), {"bash", "1000"});
    EXPECT_TRUE(processes.isShell(bash.pid()));
    EXPECT_TRUE(processes.isShell(system.pid()));
    EXPECT_TRUE(processes.isShell(zsh.pid()));
    EXPECT_FALSE(processes.isShell(notQuite.pid()));
    EXPECT_FALSE(processes.isShell(suffix.pid()));
}

TEST(LinuxProcesses, WhatTheSystemsShellLeadsToIsAShell) {
    const TemporaryFolder folder;
    const std::string dash = copyOfSleep(folder, "dash-of-another-name");
    std::filesystem::create_symlink(dash, folder / "sh");
    const ChildProcess child(dash, {"x", "1000"});
    EXPECT_TRUE(LinuxProcesses({"/proc", folder / "sh"}).isShell(child.pid()));
    EXPECT_FALSE(LinuxProcesses({"/proc", folder / "missing"}).isShell(child.pid()));
}

TEST(LinuxProcesses, ExecutableThatWasRemovedKeepsItsPath) {
    const TemporaryFolder folder;
    const LinuxProcesses processes;
    const std::string removed = copyOfSleep(folder, "bash");
    const std::string oddName = copyOfSleep(folder, "sleep (deleted)");
    const ChildProcess one(removed, {"x", "1000"});
    const ChildProcess two(oddName, {"x", "1000"});
    std::filesystem::remove(removed);
    EXPECT_EQ(processes.executable(one.pid()), removed);
    EXPECT_TRUE(processes.isShell(one.pid()));
    EXPECT_EQ(processes.executable(two.pid()), oddName);
}

TEST(LinuxProcesses, KernelWithoutListsOfChildrenIsScanned) {
    const TemporaryFolder proc;
    for (const int pid : {30, 20, 200}) {
        writeFile(proc / (std::to_string(pid) + "/stat"), statLine(pid, 7));
    }
    writeFile(proc / "40/stat", statLine(40, 8));
    writeFile(proc / "50/stat", "50 (broken");
    writeFile(proc / "60/stat", statLine(61, 7)); // answers for another process
    writeFile(proc / "sys/stat", statLine(70, 7));
    writeFile(proc / "7/stat", statLine(7, 1));
    std::filesystem::create_directories(proc / "7/task/7");
    const LinuxProcesses processes({proc.path(), "/bin/sh"});
    EXPECT_THAT(processes.children(7), ElementsAre(20, 30, 200));
    EXPECT_THAT(processes.children(9), IsEmpty());
}

TEST(LinuxProcesses, ListsOfAllThreadsAreGathered) {
    const TemporaryFolder proc;
    writeFile(proc / "7/task/7/children", "30 20 ");
    writeFile(proc / "7/task/8/children", "");
    writeFile(proc / "7/task/9/children", "10 x -4 0 99999999999 ");
    const LinuxProcesses processes({proc.path(), "/bin/sh"});
    EXPECT_THAT(processes.children(7), ElementsAre(10, 20, 30));
}

TEST(LinuxProcesses, AtMost256ChildrenAreGiven) {
    const TemporaryFolder proc;
    std::string list;
    for (int pid = 1000; pid < 1300; ++pid) {
        list += std::to_string(pid) + " ";
        writeFile(proc / (std::to_string(pid) + "/stat"), statLine(pid, 8));
    }
    writeFile(proc / "7/task/7/children", list);
    const LinuxProcesses processes({proc.path(), "/bin/sh"});
    EXPECT_EQ(processes.children(7).size(), 256U);
    EXPECT_EQ(processes.children(8).size(), 256U);
}
