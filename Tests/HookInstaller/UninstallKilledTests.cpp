// A connected home that is uninstalled by a process that dies at each of its system calls: the client must
// never be left with an entry whose script is gone.

#include "HookInstaller/DriverProcess.h"
#include "HookInstaller/InstallerTest.h"
#include "HookInstaller/TracedCalls.h"
#include "Platform/Linux/AutostartService.h"
#include "Platform/Linux/JsonPreferencesStore.h"

#include <csignal>

namespace mimkins::test {

namespace {

constexpr const char* userSettings = R"({"hooks":{"Stop":[{"hooks":[{"command":"mine"}]}]},"model":"x"})";

class UninstallKilled : public InstallerTest {
protected:
    /// Connected, with a login item, preferences and a status file.
    void prepare() {
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            if (entry.path().filename() != "bundle") {
                std::filesystem::remove_all(entry.path());
            }
        }
        write(userSettings);
        installer.connect();
        writeFile(paths.sessions() + "/a.json", "{}");
        AutostartService(paths, "/opt/mimkins").registerItem();
        JsonPreferencesStore(paths.preferencesFolder(), "app.mimkins").set("themeId", std::string("paper"));
    }

    bool entriesAreThere() const { return read().find(paths.hookScript()) != std::string::npos; }

    /// What holds whenever the uninstalling stops: whole settings, with entries only if the script is there,
    /// and nothing else gone before they are.
    void expectNothingDangles() const {
        const std::string text = read();
        ASSERT_NO_THROW(parseSettings(text)) << text;
        EXPECT_NE(text.find("mine"), std::string::npos);
        if (entriesAreThere()) {
            EXPECT_EQ(modeOf(paths.hookScript()), 0555U);
            EXPECT_EQ(readWhole(paths.hookScript()), readWhole(bundled));
            EXPECT_TRUE(std::filesystem::exists(paths.sessions() + "/a.json"));
            EXPECT_TRUE(std::filesystem::exists(paths.autostartEntry()));
            EXPECT_TRUE(std::filesystem::exists(paths.preferencesFolder()));
        }
    }

    void expectUninstalled() const {
        EXPECT_FALSE(entriesAreThere());
        EXPECT_FALSE(std::filesystem::exists(paths.support()));
        EXPECT_FALSE(std::filesystem::exists(paths.autostartEntry()));
        EXPECT_FALSE(std::filesystem::exists(paths.preferencesFolder()));
    }

    TracedCalls traced{{MIMKINS_HOOK_DRIVER, folder.path(), bundled, "uninstall"}, folder / "bundle/trace"};
};

TEST_F(UninstallKilled, AtEachSystemCall) {
    prepare();
    const auto clean = traced.run({});
    if (clean.status != 0) {
        GTEST_SKIP() << "programs can't be traced here: " << clean.errors;
    }
    expectUninstalled();
    DriverProcess driver;
    int stillConnected = 0;
    int disconnected = 0;
    const auto all = traced.calls();
    for (const auto& call : all) {
        SCOPED_TRACE(call.name + " " + std::to_string(call.ordinal));
        prepare();
        EXPECT_EQ(traced.runKilledAt(call).status, 128 + SIGKILL);
        expectNothingDangles();
        (entriesAreThere() ? stillConnected : disconnected) += 1;
        EXPECT_EQ(driver.run({folder.path(), bundled, "uninstall", {}}).status, 0); // the second try ends it
        expectUninstalled();
    }
    EXPECT_GT(stillConnected, 20);
    EXPECT_GT(disconnected, 20);
}

TEST_F(UninstallKilled, EachCallFailsOnce) {
    DriverProcess driver;
    prepare();
    const DriverRun clean = driver.run({folder.path(), bundled, "uninstall", {}});
    ASSERT_EQ(clean.status, 0) << clean.message;
    int stops = 0;
    for (int call = 1; call <= clean.calls; ++call) {
        SCOPED_TRACE(call);
        prepare();
        const DriverRun run =
            driver.run({folder.path(), bundled, "uninstall", {{"FAULT_FAIL", std::to_string(call)}}});
        expectNothingDangles();
        if (run.status != 0) {
            ++stops;
            EXPECT_EQ(run.message.find("Uninstall stopped: "), 0U) << run.message;
            EXPECT_TRUE(std::filesystem::exists(paths.hookScript()));
            EXPECT_TRUE(std::filesystem::exists(paths.autostartEntry()));
        }
    }
    EXPECT_GT(stops, 10);
}

TEST_F(UninstallKilled, FullDiskStopsItWithNothingRemoved) {
    DriverProcess driver;
    prepare();
    const std::string before = read();
    const DriverRun run = driver.run({folder.path(), bundled, "uninstall", {{"FAULT_FULL", "10"}}});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.message.find("No space left on device"), std::string::npos) << run.message;
    EXPECT_EQ(read(), before);
    expectNothingDangles();
}

} // namespace

} // namespace mimkins::test
