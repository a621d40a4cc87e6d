#include "HookInstaller/Connection.h"
#include "HookInstaller/InstallerTest.h"
#include "Support/ManualFolderWatcher.h"
#include "Support/ManualRunLoop.h"
#include "Support/MemoryPreferencesStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace mimkins::test {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using Status = HookInstaller::Status;

class FakeLoginService final : public LoginService {
public:
    void registerItem() override { enabled = true; }

    void unregisterItem() override { enabled = false; }

    Status status() const override { return enabled ? Status::enabled : Status::notRegistered; }

    bool enabled = true;
};

class NotedLinks final : public LinkOpener {
public:
    void openLink(const std::string&) override {}

    void showFile(const std::string& link) override { shown = link; }

    void showFolder(const std::string&) override {}

    std::string shown;
};

class ConnectionTest : public InstallerTest {
protected:
    ConnectionTest() {
        connection.changed().connect([this] { ++changes; });
    }

    ManualFolderWatcher watcher;
    ManualRunLoop loop;
    HookGuard guard{{paths, installer, watcher, loop}};
    FakeLoginService service;
    LoginItem login{service};
    MemoryPreferencesStore preferences{{{"themeId", std::string("paper")}}};
    NotedLinks links;
    int quits = 0;
    int changes = 0;
    Connection connection{{
        paths,
        installer,
        guard,
        login,
        preferences,
        links,
        "/opt/mimkins/bin/mimkins",
        [](const std::string& path) { std::filesystem::remove_all(path); },
        [this] { ++quits; },
    }};

    bool supportExists() const { return std::filesystem::exists(paths.support()); }
};

TEST_F(ConnectionTest, BeginsWithTheStatusAndNoMessage) {
    EXPECT_EQ(connection.status(), Status::notConnected);
    EXPECT_FALSE(connection.lastMessage());
}

TEST_F(ConnectionTest, ConnectingStartsTheGuard) {
    connection.connect();
    EXPECT_EQ(connection.status(), Status::connected);
    EXPECT_EQ(connection.lastMessage(), "Connected.");
    EXPECT_EQ(guard.sourceCount(), 2U);
    EXPECT_EQ(changes, 1);
    connection.refresh();
    EXPECT_EQ(changes, 1); // nothing new
}

TEST_F(ConnectionTest, NamesTheBackupAlone) {
    write("{}");
    connection.connect();
    EXPECT_THAT(
        *connection.lastMessage(), StartsWith("Connected. settings.json was backed up to settings.json.bak-")
    );
    EXPECT_EQ(connection.lastMessage()->find('/'), std::string::npos);
}

TEST_F(ConnectionTest, AFailureIsToldAndStartsNoGuard) {
    write("no json");
    connection.connect();
    EXPECT_THAT(*connection.lastMessage(), StartsWith("Couldn't connect: "));
    EXPECT_EQ(connection.status(), Status::notConnected);
    EXPECT_EQ(guard.sourceCount(), 0U);
    EXPECT_EQ(read(), "no json");
}

TEST_F(ConnectionTest, Disconnects) {
    connection.connect();
    connection.disconnect();
    EXPECT_EQ(connection.status(), Status::notConnected);
    EXPECT_EQ(
        connection.lastMessage(),
        "Disconnected. Mimkins' hook entries were removed; everything else is as it was."
    );
}

TEST_F(ConnectionTest, UninstallRemovesWhatIsOurs) {
    write(R"({"model":"x"})");
    connection.connect();
    connection.uninstall();
    EXPECT_EQ(quits, 1);
    EXPECT_FALSE(service.enabled);
    EXPECT_FALSE(supportExists());
    EXPECT_EQ(preferences.removals, 1);
    EXPECT_EQ(links.shown, "file:///opt/mimkins/bin/mimkins");
    EXPECT_EQ(connection.status(), Status::notConnected);
    EXPECT_THAT(read(), HasSubstr("\"model\""));
    EXPECT_EQ(read().find("hooks"), std::string::npos);
    EXPECT_FALSE(backups().empty()); // stay behind on purpose
}

TEST_F(ConnectionTest, BrokenSettingsStopTheUninstall) {
    connection.connect();
    write("no json");
    connection.uninstall();
    EXPECT_EQ(quits, 0);
    EXPECT_TRUE(service.enabled);
    EXPECT_TRUE(supportExists());
    EXPECT_EQ(preferences.removals, 0);
    EXPECT_THAT(
        *connection.lastMessage(),
        StartsWith("Uninstall stopped: couldn't remove Mimkins' hooks from " + settings + " (")
    );
    EXPECT_THAT(
        *connection.lastMessage(), testing::EndsWith("). Nothing was removed. Fix that file, then try again.")
    );
}

TEST_F(ConnectionTest, UninstallWithoutSettingsWritesNone) {
    connection.uninstall();
    EXPECT_EQ(quits, 1);
    EXPECT_FALSE(std::filesystem::exists(settings));
}

TEST_F(ConnectionTest, UninstallWithoutTheClient) {
    std::filesystem::remove_all(paths.clientFolder());
    connection.uninstall();
    EXPECT_EQ(quits, 1);
    EXPECT_EQ(connection.status(), Status::noClaudeCode);
    EXPECT_FALSE(std::filesystem::exists(paths.clientFolder()));
}

} // namespace

} // namespace mimkins::test
