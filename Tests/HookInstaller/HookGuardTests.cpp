#include "HookInstaller/HookGuard.h"
#include "HookInstaller/InstallerTest.h"
#include "Platform/Linux/InotifyFolderWatcher.h"
#include "Platform/Linux/LinuxRunLoop.h"
#include "Support/ManualFolderWatcher.h"
#include "Support/ManualRunLoop.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace mimkins::test {

namespace {

class HookGuardTest : public InstallerTest {
protected:
    std::string script = paths.hookScript();
    std::string scriptFolder = std::filesystem::path(script).parent_path();

    bool isCurrent() const {
        return std::filesystem::exists(script) && readWhole(script) == readWhole(bundled);
    }

    void edit() const {
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        writeFile(script, "changed");
    }
};

class WithManualWatcher : public HookGuardTest {
protected:
    ManualFolderWatcher watcher;
    ManualRunLoop loop;
    HookGuard guard{{paths, installer, watcher, loop}};
};

TEST_F(WithManualWatcher, WatchesTheFolderAndTheScript) {
    EXPECT_EQ(guard.sourceCount(), 0U);
    installer.connect();
    guard.start();
    EXPECT_EQ(guard.sourceCount(), 2U);
    guard.start();
    EXPECT_EQ(watcher.count(), 2U); // the former ones are gone
}

TEST_F(WithManualWatcher, ManyChangesLeadToOneCheck) {
    installer.connect();
    guard.start();
    edit();
    for (int write = 0; write < 10; ++write) {
        watcher.change(script);
        loop.advance(0.02);
    }
    EXPECT_EQ(loop.timers(), 1U);
    EXPECT_FALSE(isCurrent());
    loop.advance(0.09); // 0.29 s after the first
    EXPECT_FALSE(isCurrent());
    loop.advance(0.02);
    EXPECT_TRUE(isCurrent());
    EXPECT_EQ(loop.timers(), 0U);
}

TEST_F(WithManualWatcher, ADeletedScriptComesBackReadOnly) {
    installer.connect();
    guard.start();
    std::filesystem::remove(script);
    watcher.change(scriptFolder);
    loop.advance(0.31);
    EXPECT_TRUE(isCurrent());
    EXPECT_EQ(modeOf(script), 0555U);
    EXPECT_EQ(guard.sourceCount(), 2U);
}

TEST_F(WithManualWatcher, WithoutEntriesTheScriptIsLeftAlone) {
    installer.connect();
    installer.disconnect();
    guard.start();
    edit();
    watcher.change(script);
    loop.advance(0.31);
    EXPECT_EQ(readWhole(script), "changed");
    EXPECT_EQ(guard.sourceCount(), 2U); // watched all the same
}

TEST_F(WithManualWatcher, StaleEntriesArentTouchedButTheScriptIs) {
    installer.connect();
    write(withCommand(script));
    const std::string before = read();
    ASSERT_EQ(installer.status(), HookInstaller::Status::needsUpdate);
    guard.start();
    edit();
    watcher.change(script);
    loop.advance(0.31);
    EXPECT_TRUE(isCurrent());
    EXPECT_EQ(read(), before);
}

TEST_F(WithManualWatcher, WithoutTheClientNothingIsDone) {
    installer.connect();
    guard.start();
    edit();
    std::filesystem::remove_all(paths.clientFolder());
    watcher.change(script);
    loop.advance(0.31);
    EXPECT_EQ(readWhole(script), "changed");
    EXPECT_FALSE(std::filesystem::exists(paths.clientFolder()));
}

TEST_F(WithManualWatcher, AFailureIsSilent) {
    installer.connect();
    guard.start();
    std::filesystem::remove(script);
    std::filesystem::remove(bundled);
    watcher.change(scriptFolder);
    EXPECT_NO_THROW(loop.advance(0.31));
    EXPECT_FALSE(std::filesystem::exists(script));
}

class WithRealWatcher : public HookGuardTest {
protected:
    LinuxRunLoop loop;
    InotifyFolderWatcher watcher{loop};
    HookGuard guard{{paths, installer, watcher, loop}};

    /// Lets the loop run until the condition holds, or for so long that it never will.
    template <typename Condition>
    bool eventually(Condition condition) {
        bool held = false;
        const Handle watch = loop.every(0.02, [&] {
            if (condition()) {
                held = true;
                loop.stop();
            }
        });
        const Handle limit = loop.after(20, [this] { loop.stop(); });
        loop.run();
        return held;
    }
};

TEST_F(WithRealWatcher, FoldersThatDontExistArentWatched) {
    guard.start();
    EXPECT_EQ(guard.sourceCount(), 0U);
    installer.connect();
    guard.start();
    EXPECT_EQ(guard.sourceCount(), 2U);
}

TEST_F(WithRealWatcher, HealsWhateverHappensAgainAndAgain) {
    installer.connect();
    guard.start();
    for (int round = 0; round < 2; ++round) {
        std::filesystem::remove(script);
        EXPECT_TRUE(eventually([&] { return isCurrent(); })) << "removed, round " << round;
        edit();
        EXPECT_TRUE(eventually([&] { return isCurrent(); })) << "edited, round " << round;
        replaceByRename(script, "another file");
        EXPECT_TRUE(eventually([&] { return isCurrent(); })) << "replaced, round " << round;
    }
    EXPECT_EQ(modeOf(script), 0555U);
}

TEST_F(WithRealWatcher, ACheckDoesNotTriggerItself) {
    installer.connect();
    guard.start();
    std::filesystem::remove(script);
    ASSERT_TRUE(eventually([&] { return isCurrent(); }));
    // Within a second nothing more is written.
    const auto written = std::filesystem::last_write_time(script);
    const Handle limit = loop.after(1, [this] { loop.stop(); });
    loop.run();
    EXPECT_EQ(std::filesystem::last_write_time(script), written);
}

} // namespace

} // namespace mimkins::test
