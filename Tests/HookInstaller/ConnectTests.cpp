#include "HookInstaller/InstallerTest.h"

#include "Base/Error.h"
#include "HookInstaller/Connection.h"

#include <gmock/gmock.h>

#include <set>

namespace mimkins::test {

namespace {

using ::testing::ElementsAre;

class ConnectTest : public InstallerTest {
protected:
    std::size_t entriesOfOurs() const {
        const std::string text = read();
        std::size_t count = 0;
        for (auto at = text.find("Mimkins/hook/status.sh"); at != std::string::npos;
             at = text.find("Mimkins/hook/status.sh", at + 1)) {
            ++count;
        }
        return count;
    }
};

TEST_F(ConnectTest, createsMissingSettings) {
    EXPECT_EQ(installer.connect(), std::nullopt);
    EXPECT_EQ(modeOf(settings), 0644U);
    EXPECT_EQ(installer.status(), HookInstaller::Status::connected);
    EXPECT_TRUE(backups().empty());
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ConnectTest, createsTheClientsFolder) {
    std::filesystem::remove_all(paths.clientFolder());
    EXPECT_EQ(installer.connect(), std::nullopt);
    EXPECT_EQ(installer.status(), HookInstaller::Status::connected);
}

TEST_F(ConnectTest, disconnectingMissingSettingsWritesNothing) {
    EXPECT_EQ(installer.disconnect(), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_empty(paths.clientFolder()));
    std::filesystem::remove_all(paths.clientFolder());
    EXPECT_EQ(installer.disconnect(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(paths.clientFolder()));
}

TEST_F(ConnectTest, writesSortedKeysAndOneLineFeed) {
    write("{\"z\":1,\"hooks\":{},\"a\":{\"y\":\"/\",\"x\":2}}\n\n\n");
    installer.disconnect();
    EXPECT_EQ(read(), "{\n  \"a\": {\n    \"x\": 2,\n    \"y\": \"/\"\n  },\n  \"z\": 1\n}\n");
}

TEST_F(ConnectTest, connectingTwiceLeavesOneEntryPerEventAndTwoBackups) {
    write("{}");
    const auto first = installer.connect();
    const std::string afterFirst = read();
    const auto second = installer.connect();
    EXPECT_EQ(read(), afterFirst);
    EXPECT_EQ(entriesOfOurs(), 10U);
    EXPECT_EQ(first, settings + ".bak-mimkins-2026-11-21T073106Z");
    EXPECT_EQ(second, settings + ".bak-mimkins-2026-11-21T073106Z-2");
    EXPECT_EQ(readWhole(*first), "{}");
    EXPECT_EQ(readWhole(*second), afterFirst);
}

TEST_F(ConnectTest, replacesFormerEntries) {
    write(withCommand("~/Developer/Zorbly/hook/status.sh"));
    EXPECT_EQ(installer.status(), HookInstaller::Status::needsUpdate);
    installer.connect();
    EXPECT_EQ(installer.status(), HookInstaller::Status::connected);
    EXPECT_EQ(read().find("Zorbly"), std::string::npos);
}

TEST_F(ConnectTest, disconnectingRemovesEverySpellingAndLeavesTheScript) {
    installer.connect();
    for (const std::string& command :
         {"'" + paths.hookScript() + "'", paths.hookScript(),
          std::string("~/Library/Application Support/Mimkins/hook/status.sh"),
          std::string("\"$HOME/Library/Application Support/Mimkins/hook/status.sh\""),
          std::string("${HOME}/Library/Application Support/Mimkins/hook/status.sh")}) {
        write(withCommand(command));
        installer.disconnect();
        EXPECT_EQ(read(), "{}\n") << command;
    }
    EXPECT_TRUE(std::filesystem::exists(paths.hookScript()));
}

TEST_F(ConnectTest, leavesSettingsAloneThatItCannotRead) {
    for (const std::string& text :
         {std::string("[]"), std::string(), std::string("{\"a\":"), std::string("{\"a\":\"\xff\"}"),
          std::string(1'000'000, '[')}) {
        write(text);
        EXPECT_THROW(installer.connect(), Error);
        EXPECT_THROW(installer.disconnect(), Error);
        EXPECT_EQ(read(), text);
        EXPECT_TRUE(backups().empty());
        EXPECT_TRUE(temporaries().empty());
        EXPECT_TRUE(files.pauses.empty());
    }
    // The script is installed before the settings are read.
    EXPECT_TRUE(std::filesystem::exists(paths.hookScript()));
}

TEST_F(ConnectTest, replacesWhatALinkLeadsTo) {
    const std::string real = folder / "dotfiles/claude.json";
    writeFile(real, "{\"mine\":1}");
    std::filesystem::create_symlink("../dotfiles/claude.json", settings);
    std::vector<std::string> beside;
    files.beforeExchange = [&] { beside = namesWith(folder / "dotfiles", ".tmp"); };
    const auto backup = installer.connect();
    EXPECT_TRUE(std::filesystem::is_symlink(settings));
    EXPECT_NE(readWhole(real).find("status.sh"), std::string::npos);
    EXPECT_THAT(beside, ElementsAre(".settings.json.mimkins-4242.tmp"));
    EXPECT_TRUE(namesWith(folder / "dotfiles", ".tmp").empty());
    EXPECT_EQ(std::filesystem::path(*backup).parent_path(), paths.clientFolder());
    EXPECT_EQ(readWhole(*backup), "{\"mine\":1}");
}

TEST_F(ConnectTest, createsWhatADeadLinkLeadsTo) {
    std::filesystem::create_directory(folder / "dotfiles");
    std::filesystem::create_symlink(folder / "dotfiles/hop", settings);
    std::filesystem::create_symlink("claude.json", folder / "dotfiles/hop");
    EXPECT_EQ(installer.connect(), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_symlink(settings));
    EXPECT_EQ(modeOf(folder / "dotfiles/claude.json"), 0644U);
    EXPECT_EQ(installer.status(), HookInstaller::Status::connected);
}

TEST_F(ConnectTest, leavesALoopOfLinksAlone) {
    std::filesystem::create_symlink(settings, settings);
    EXPECT_THROW(installer.connect(), Error);
    EXPECT_TRUE(std::filesystem::is_symlink(settings));
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ConnectTest, keepsPermissionsForTheFileAndItsBackup) {
    for (const unsigned mode : {0600U, 0640U, 0444U}) {
        write("{}");
        std::filesystem::permissions(settings, static_cast<std::filesystem::perms>(mode));
        const auto backup = installer.connect();
        EXPECT_EQ(modeOf(settings), mode);
        EXPECT_EQ(modeOf(*backup), mode);
        std::filesystem::remove(settings);
    }
}

TEST_F(ConnectTest, neverReplacesAFileThatCannotBeRead) {
    std::filesystem::create_directory(settings);
    try {
        installer.connect();
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.domain(), Error::posixDomain);
        EXPECT_EQ(error.code(), EISDIR);
    }
    EXPECT_TRUE(std::filesystem::is_directory(settings));
    EXPECT_TRUE(temporaries().empty());
    EXPECT_EQ(installer.disconnect(), std::nullopt);
}

TEST_F(ConnectTest, keepsTheNewestThreeBackups) {
    write("{}");
    for (int second = 0; second < 4; ++second) {
        installer.connect();
        files.time = files.time + 1;
    }
    EXPECT_THAT(
        backups(),
        ElementsAre(
            "settings.json.bak-mimkins-2026-11-21T073107Z", "settings.json.bak-mimkins-2026-11-21T073108Z",
            "settings.json.bak-mimkins-2026-11-21T073109Z"
        )
    );
}

TEST_F(ConnectTest, countsBackupsOfOneSecondAsNumbers) {
    write("{}");
    std::set<std::string> made;
    for (int count = 0; count < 12; ++count) {
        made.insert(*installer.connect());
    }
    EXPECT_EQ(backups().size(), 3U);
    EXPECT_TRUE(made.count(settings + ".bak-mimkins-2026-11-21T073106Z-4") > 0);
}

TEST_F(ConnectTest, overwritesTheLastOfNinetyNine) {
    write("{}");
    const std::string stamp = settings + ".bak-mimkins-2026-11-21T073106Z";
    writeFile(stamp, "taken");
    for (int number = 2; number <= 99; ++number) {
        writeFile(stamp + "-" + std::to_string(number), "taken");
    }
    EXPECT_EQ(installer.connect(), stamp + "-99");
    EXPECT_EQ(readWhole(stamp + "-99"), "{}");
}

TEST_F(ConnectTest, aFailedDeletionOfABackupDoesNotMatter) {
    write("{}");
    std::filesystem::create_directories(settings + ".bak-mimkins-2001/full");
    for (int count = 0; count < 4; ++count) {
        installer.connect();
    }
    EXPECT_EQ(backups().size(), 4U);
}

TEST_F(ConnectTest, followsNoLinkThatStandsInTheTemporaryFilesPlace) {
    const std::string precious = folder / "precious";
    writeFile(precious, "mine");
    write("{}");
    std::filesystem::create_symlink(precious, paths.clientFolder() + "/.settings.json.mimkins-4242.tmp");
    std::filesystem::create_symlink(precious, settings + ".bak-mimkins-2026-11-21T073106Z-99");
    installer.connect();
    EXPECT_EQ(readWhole(precious), "mine");
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ConnectTest, tellsOfConnecting) {
    auto outcome = connectAndReport(installer);
    EXPECT_EQ(outcome.message, "Connected.");
    EXPECT_EQ(outcome.status, HookInstaller::Status::connected);
    EXPECT_EQ(outcome.backup, std::nullopt);
    EXPECT_FALSE(outcome.failed);
    connectAndReport(installer);
    outcome = connectAndReport(installer);
    EXPECT_EQ(
        outcome.message,
        "Connected. settings.json was backed up to settings.json.bak-mimkins-2026-11-21T073106Z-2."
    );
    EXPECT_EQ(outcome.backup, settings + ".bak-mimkins-2026-11-21T073106Z-2");
}

TEST_F(ConnectTest, tellsOfDisconnecting) {
    installer.connect();
    const auto outcome = disconnectAndReport(installer);
    EXPECT_EQ(
        outcome.message, "Disconnected. Mimkins' hook entries were removed; everything else is as it was."
    );
    EXPECT_EQ(outcome.status, HookInstaller::Status::notConnected);
    EXPECT_FALSE(outcome.failed);
}

TEST_F(ConnectTest, tellsOfFailures) {
    write("[]");
    auto outcome = connectAndReport(installer);
    EXPECT_EQ(outcome.message, "Couldn't connect: settings.json isn't a JSON object, so it was left alone.");
    EXPECT_EQ(outcome.status, HookInstaller::Status::notConnected);
    EXPECT_TRUE(outcome.failed);
    outcome = disconnectAndReport(installer);
    EXPECT_EQ(
        outcome.message, "Couldn't disconnect: settings.json isn't a JSON object, so it was left alone."
    );
    EXPECT_TRUE(outcome.failed);
}

} // namespace

} // namespace mimkins::test
