#include "Platform/Linux/InotifyFolderWatcher.h"

#include "Platform/Linux/LinuxRunLoop.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using namespace mimkins;

namespace {

constexpr double patience = 30; // seconds until a test gives up

class InotifyFolderWatcherTest : public testing::Test {
protected:
    InotifyFolderWatcherTest() { std::filesystem::create_directory(folder); }

    Handle count(const std::string& path, int& calls) {
        return watcher.watch(path, [&calls] { ++calls; });
    }

    /// True if the count rises above its present figure.
    bool rises(const int& calls) {
        return loop.runUntil([&calls, before = calls] { return calls > before; }, patience);
    }

    /// Runs until everything that has happened so far has been told: inotify keeps the order of events, so a
    /// change in a folder of its own comes last.
    void settle() {
        int calls = 0;
        const auto handle = count(marker.path(), calls);
        test::writeFile(marker / std::to_string(markers++), "");
        ASSERT_TRUE(loop.runUntil([&] { return calls > 0; }, patience));
    }

    test::TemporaryFolder temporary;
    test::TemporaryFolder marker;
    int markers = 0;
    std::string folder = temporary / "watched";
    LinuxRunLoop loop;
    InotifyFolderWatcher watcher{loop};
    int changes = 0;
};

} // namespace

TEST_F(InotifyFolderWatcherTest, TellsOfEveryWayInWhichEntriesComeAndGo) {
    const auto handle = count(folder, changes);
    ASSERT_TRUE(handle);
    const std::vector<std::function<void()>> ways{
        [&] { test::writeFile(folder + "/a.json", "1"); },
        [&] { std::filesystem::create_directory(folder + "/sub"); },
        [&] { std::filesystem::create_symlink("/nowhere", folder + "/link"); },
        [&] { std::filesystem::create_hard_link(folder + "/a.json", folder + "/hard"); },
        [&] { ::mkfifo((folder + "/fifo").c_str(), 0600); },
        [&] { std::filesystem::rename(folder + "/a.json", folder + "/b.json"); },
        [&] { std::filesystem::rename(folder + "/b.json", temporary / "out.json"); },
        [&] { std::filesystem::rename(temporary / "out.json", folder + "/in.json"); },
        [&] { std::filesystem::remove(folder + "/in.json"); },
        [&] { std::filesystem::remove(folder + "/sub"); },
    };
    for (std::size_t number = 0; number < ways.size(); ++number) {
        ways[number]();
        EXPECT_TRUE(rises(changes)) << "way " << number;
    }
}

TEST_F(InotifyFolderWatcherTest, ReplacingAFileByRenameIsTold) {
    test::writeFile(folder + "/a.json", "old");
    test::writeFile(temporary / "new", "new");
    const auto handle = count(folder, changes);
    std::filesystem::rename(temporary / "new", folder + "/a.json");
    EXPECT_TRUE(rises(changes));
}

TEST_F(InotifyFolderWatcherTest, ChangesInsideFilesAndBelowSubfoldersDontCount) {
    test::writeFile(folder + "/a.json", "1");
    std::filesystem::create_directory(folder + "/sub");
    const auto handle = count(folder, changes);
    std::ofstream(folder + "/a.json", std::ios::app) << "more";
    std::ofstream(folder + "/a.json", std::ios::trunc) << "less";
    ::chmod((folder + "/a.json").c_str(), 0600);
    test::writeFile(folder + "/sub/b.json", "1");
    static_cast<void>(test::readWhole(folder + "/a.json"));
    settle();
    EXPECT_EQ(changes, 0);
}

TEST_F(InotifyFolderWatcherTest, ABurstIsToldOnce) {
    const auto handle = count(folder, changes);
    for (int number = 0; number < 500; ++number) {
        test::writeFile(folder + "/" + std::to_string(number), "");
    }
    settle();
    EXPECT_EQ(changes, 1);
}

TEST_F(InotifyFolderWatcherTest, TheSameFolderMayBeWatchedTwice) {
    int others = 0;
    auto first = count(folder, changes);
    const auto second = count(temporary / "./watched/", others);
    test::writeFile(folder + "/a", "");
    settle();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(others, 1);
    first.reset();
    test::writeFile(folder + "/b", "");
    settle();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(others, 2);
}

TEST_F(InotifyFolderWatcherTest, EndedWatchIsSilentAndCanBeMadeAgain) {
    auto handle = count(folder, changes);
    test::writeFile(folder + "/before", ""); // waits in the queue when the watch ends
    handle.reset();
    test::writeFile(folder + "/after", "");
    settle();
    EXPECT_EQ(changes, 0);
    handle = count(folder, changes);
    test::writeFile(folder + "/again", "");
    settle();
    EXPECT_EQ(changes, 1);
}

TEST_F(InotifyFolderWatcherTest, DeletionOfTheFolderIsToldOnceAndForAll) {
    const auto handle = count(folder, changes);
    std::filesystem::remove(folder);
    settle();
    EXPECT_EQ(changes, 1);
    std::filesystem::create_directory(folder);
    test::writeFile(folder + "/a", "");
    settle();
    EXPECT_EQ(changes, 1);
    int fresh = 0;
    const auto again = count(folder, fresh);
    test::writeFile(folder + "/b", "");
    settle();
    EXPECT_EQ(fresh, 1);
    EXPECT_EQ(changes, 1);
}

TEST_F(InotifyFolderWatcherTest, MovingTheFolderAwayIsToldOnceAndForAll) {
    const auto handle = count(folder, changes);
    std::filesystem::rename(folder, temporary / "elsewhere");
    settle();
    EXPECT_EQ(changes, 1);
    test::writeFile(temporary / "elsewhere/a", "");
    settle();
    EXPECT_EQ(changes, 1);
}

TEST_F(InotifyFolderWatcherTest, LostEventsAreToldToEverybody) {
    int limit = 0;
    std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> limit;
    if (limit < 1 || limit > 100'000) {
        GTEST_SKIP() << "the limit on queued events is " << limit;
    }
    const std::string quiet = temporary / "quiet";
    std::filesystem::create_directory(quiet);
    int quietChanges = 0;
    const auto loud = count(folder, changes);
    const auto handle = count(quiet, quietChanges);
    for (int number = 0; number <= limit / 2; ++number) { // two events each
        const std::string path = folder + "/" + std::to_string(number % 2);
        ::close(::open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
        ::unlink(path.c_str());
    }
    test::writeFile(quiet + "/a", ""); // finds the queue full
    EXPECT_TRUE(loop.runUntil([&] { return changes > 0 && quietChanges > 0; }, patience));
    settle();
    const int before = quietChanges;
    test::writeFile(quiet + "/b", "");
    settle();
    EXPECT_EQ(quietChanges, before + 1);
}

TEST_F(InotifyFolderWatcherTest, WhatIsNoFolderCantBeWatched) {
    test::writeFile(temporary / "file", "");
    EXPECT_FALSE(count(temporary / "missing", changes));
    EXPECT_FALSE(count(temporary / "file", changes));
    EXPECT_FALSE(count("", changes));
}

TEST_F(InotifyFolderWatcherTest, ListenersMayEndEachOtherAndThemselves) {
    Handle first;
    Handle second;
    const auto endBoth = [&] {
        ++changes;
        first.reset();
        second.reset();
    };
    first = watcher.watch(folder, endBoth);
    second = watcher.watch(folder, endBoth);
    test::writeFile(folder + "/a", "");
    settle();
    EXPECT_EQ(changes, 1);
}

TEST_F(InotifyFolderWatcherTest, TheWatcherMayGoWithinACallAndBeforeItsHandles) {
    auto own = std::make_unique<InotifyFolderWatcher>(loop);
    const auto handle = own->watch(folder, [&] {
        ++changes;
        own.reset();
    });
    const auto other = own->watch(folder, [&] { ++changes; });
    test::writeFile(folder + "/a", "");
    EXPECT_TRUE(rises(changes));
    loop.runFor(0.02);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(own, nullptr);
}
