// The application on homes of every kind: what the first start shows, and what is left after the last.

#include "App/AppDelegate.h"
#include "Platform/Linux/LinuxResources.h"
#include "Setup/ConnectionSettings.h"
#include "Setup/SetupView.h"

#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <QTest>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>

namespace mimkins::test {

namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Status = HookInstaller::Status;

/// Every file, folder and link below a folder, with what it holds.
std::map<std::string, std::string> everythingBelow(const std::string& folder) {
    std::map<std::string, std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const auto name = std::filesystem::relative(entry.path(), folder).string();
        found[name] = entry.is_symlink()     ? "link to " + std::filesystem::read_symlink(entry).string()
                      : entry.is_directory() ? "folder"
                      : entry.is_regular_file()
                          ? std::to_string(static_cast<int>(entry.status().permissions())) + " " +
                                readWhole(entry.path())
                          : "something else";
    }
    return found;
}

class Launch : public testing::Test {
protected:
    void launch() {
        application = std::make_unique<AppDelegate>(paths);
        application->launch(AppDelegate::Launch::normal);
        QCoreApplication::processEvents();
    }

    void connectBefore() const {
        std::filesystem::create_directories(paths.clientFolder());
        LinuxSettingsFiles files;
        HookInstaller(paths, bundledHookScript(), files).connect();
    }

    SetupView* setup() const {
        for (auto* widget : application->panel()->findChildren<QWidget*>()) {
            if (auto* found = dynamic_cast<SetupView*>(widget)) {
                return found;
            }
        }
        return nullptr;
    }

    bool greets() const {
        return setup() != nullptr && setup()->isVisible() &&
               application->drawer().mode() == DrawerMode::setup && application->drawer().isOpen();
    }

    std::string heading() const { return setup()->heading().accessibleName().toStdString(); }

    std::string message() const { return setup()->message().accessibleName().toStdString(); }

    void press(std::size_t button) const {
        QTest::mouseClick(setup()->buttons().at(button), Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    void keepDrawerShut() const {
        writeFile(paths.preferencesFolder() + "/app.mimkins.json", R"({"drawerOpen":false})");
    }

    /// The application still does what it is for: a report shows.
    void expectAlive() const {
        writeFile(
            paths.sessions() + "/a.json",
            R"({"id":"a","state":"working","event":"x","since":)" + now() + R"(,"ts":)" + now() + "}"
        );
        EXPECT_TRUE(QTest::qWaitFor([this] { return application->store()->sessions().size() == 1; }));
    }

    std::string now() const {
        return std::to_string(static_cast<std::int64_t>(application->loop().now().milliseconds()));
    }

    TemporaryFolder folder;
    Paths paths{folder.path()};
    std::unique_ptr<AppDelegate> application;
};

TEST_F(Launch, NewUserIsGreeted) {
    std::filesystem::create_directories(paths.clientFolder());
    keepDrawerShut();
    launch();
    EXPECT_TRUE(greets());
    EXPECT_EQ(heading(), "Welcome to Mimkins");
    EXPECT_FALSE(std::filesystem::exists(paths.hookScript())); // nobody was asked yet
    press(0);                                                  // not now
    EXPECT_EQ(application->drawer().mode(), DrawerMode::pets);
    EXPECT_FALSE(setup()->isVisible());
    EXPECT_FALSE(std::filesystem::exists(paths.clientSettings()));
}

TEST_F(Launch, WithoutTheClientNobodyIsGreeted) {
    keepDrawerShut();
    launch();
    EXPECT_FALSE(application->drawer().isOpen());
    EXPECT_EQ(application->drawer().mode(), DrawerMode::pets);
    EXPECT_EQ(application->connection().status(), Status::noClaudeCode);
    EXPECT_FALSE(std::filesystem::exists(paths.hookScript()));
    EXPECT_FALSE(std::filesystem::exists(paths.clientFolder()));
    expectAlive();
}

TEST_F(Launch, ConnectedUserIsLeftInPeace) {
    connectBefore();
    keepDrawerShut();
    launch();
    EXPECT_EQ(application->connection().status(), Status::connected);
    EXPECT_FALSE(application->drawer().isOpen());
    EXPECT_EQ(application->drawer().mode(), DrawerMode::pets);
}

TEST_F(Launch, OutdatedScriptIsReplacedWithoutAQuestion) {
    connectBefore();
    std::filesystem::permissions(paths.hookScript(), std::filesystem::perms(0755));
    writeFile(paths.hookScript(), "old");
    launch();
    EXPECT_EQ(application->connection().status(), Status::connected);
    EXPECT_EQ(application->drawer().mode(), DrawerMode::pets);
    EXPECT_EQ(readWhole(paths.hookScript()), readWhole(*bundledHookScript()));
}

TEST_F(Launch, OldConnectionIsToBeUpdated) {
    writeFile(
        paths.clientSettings(), R"({"hooks":{"Stop":[{"hooks":[{"command":")" + paths.oldestHookScript() +
                                    R"("},{"command":"mine"}]}]}})"
    );
    launch();
    EXPECT_TRUE(greets());
    EXPECT_EQ(heading(), "Update the Claude Code connection");
    press(1);
    EXPECT_EQ(heading(), "You're connected!");
    EXPECT_EQ(application->connection().status(), Status::connected);
    EXPECT_THAT(readWhole(paths.clientSettings()), HasSubstr("\"mine\""));
    press(0);
    EXPECT_EQ(application->drawer().mode(), DrawerMode::pets);
    expectAlive();
}

TEST_F(Launch, BrokenSettingsAreLeftAlone) {
    writeFile(paths.clientSettings(), "{\"model\":");
    launch();
    EXPECT_TRUE(greets());
    EXPECT_EQ(heading(), "Welcome to Mimkins");
    press(1);
    EXPECT_THAT(message(), StartsWith("Couldn't connect: "));
    EXPECT_EQ(readWhole(paths.clientSettings()), "{\"model\":");
    EXPECT_TRUE(greets());
    expectAlive();
}

/// While it lives, this process may write no byte to any file.
class FullDisk {
public:
    FullDisk() {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none{0, before_.rlim_max};
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &none);
    }

    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

TEST_F(Launch, FullDiskLosesNothing) {
    const std::string settings = R"({"model":"x"})";
    writeFile(paths.clientSettings(), settings);
    {
        const FullDisk full;
        launch();
        EXPECT_TRUE(greets());
        press(1);
        EXPECT_THAT(message(), StartsWith("Couldn't connect: "));
        EXPECT_EQ(heading(), "Welcome to Mimkins");
        EXPECT_TRUE(greets());
    }
    EXPECT_EQ(readWhole(paths.clientSettings()), settings);
    for (const auto& [name, contents] : everythingBelow(paths.clientFolder())) {
        EXPECT_EQ(name, "settings.json");
    }
    press(1); // there is room again
    EXPECT_EQ(heading(), "You're connected!");
    expectAlive();
}

/// While it lives, this process has the rights of nobody in particular, if it had all.
class Powerless {
public:
    Powerless() { static_cast<void>(::seteuid(wasRoot_ ? 65534 : ::geteuid())); }

    Powerless(const Powerless&) = delete;
    Powerless& operator=(const Powerless&) = delete;

    ~Powerless() { static_cast<void>(::seteuid(wasRoot_ ? 0 : ::geteuid())); }

private:
    bool wasRoot_ = ::geteuid() == 0;
};

TEST_F(Launch, ReadOnlyHomeIsLivedWith) {
    const std::string settings = R"({"model":"x"})";
    writeFile(paths.clientSettings(), settings);
    std::filesystem::permissions(paths.clientFolder(), std::filesystem::perms(0555));
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
    const auto before = everythingBelow(folder.path());
    {
        const Powerless powerless;
        launch();
        EXPECT_TRUE(greets());
        press(1);
        EXPECT_THAT(message(), StartsWith("Couldn't connect: "));
        EXPECT_THAT(message(), HasSubstr("Permission denied"));
        EXPECT_TRUE(greets());
        press(0);
        EXPECT_EQ(application->drawer().mode(), DrawerMode::pets);
        EXPECT_EQ(application->connection().status(), Status::notConnected);
    }
    EXPECT_EQ(everythingBelow(folder.path()), before);
    std::filesystem::permissions(paths.clientFolder(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    application.reset();
}

class Farewell : public Launch {
protected:
    void uninstall() const {
        ConnectionSettings block(
            {application->connection(), {}, folder.path()}, application->panel()->look()
        );
        application->connection().uninstall();
        QCoreApplication::processEvents();
    }

    std::map<std::string, std::string> settled() const {
        auto found = everythingBelow(folder.path());
        for (auto entry = found.begin(); entry != found.end();) {
            const bool backup = entry->first.find(".claude/settings.json.bak-mimkins-") == 0;
            entry = backup ? found.erase(entry) : std::next(entry);
        }
        return found;
    }

    int backups() const {
        int count = 0;
        for (const auto& [name, contents] : everythingBelow(folder.path())) {
            count += name.find(".claude/settings.json.bak-mimkins-") == 0 ? 1 : 0;
        }
        return count;
    }
};

TEST_F(Farewell, LeavesTheHomeAsItWas) {
    // As our own writer has it: what is compared is what else might change.
    const std::string settings =
        "{\n  \"hooks\": {\n    \"Stop\": [\n      {\n        \"hooks\": [\n          "
        "{\n            \"command\": \"mine\"\n          }\n        ]\n      }\n    "
        "]\n  },\n  \"model\": \"x\"\n}\n";
    writeFile(paths.clientSettings(), settings);
    std::filesystem::permissions(paths.clientSettings(), std::filesystem::perms(0600));
    writeFile(paths.clientFolder() + "/projects/a/b.jsonl", "{}");
    writeFile(folder / ".config/autostart/other.desktop", "[Desktop Entry]\n");
    writeFile(paths.preferencesFolder() + "/local.zorbly.json", R"({"themeId":"paper"})");
    writeFile(paths.oldestHookScript(), "#!/bin/sh\n");
    writeFile(paths.formerHookScript(), "#!/bin/sh\n");
    writeFile(folder / "work/notes.txt", "mine");
    const auto before = everythingBelow(folder.path());
    launch();
    press(1);
    ASSERT_EQ(application->connection().status(), Status::connected);
    expectAlive();
    application->windows()->toggle(); // a preference of ours
    ASSERT_TRUE(std::filesystem::exists(paths.autostartEntry()));
    uninstall();
    EXPECT_EQ(settled(), before);
    EXPECT_GE(backups(), 1);
    EXPECT_LE(backups(), 3);
    EXPECT_FALSE(application->windows()->drawer().isVisible());
    EXPECT_FALSE(application->windows()->tab().isVisible());
}

TEST_F(Farewell, LeavesAnEmptyHomeEmpty) {
    launch();
    uninstall();
    EXPECT_THAT(everythingBelow(folder.path()), testing::IsEmpty());
}

TEST_F(Farewell, LeavesASettingsFileThatHoldsNothing) {
    std::filesystem::create_directories(paths.clientFolder());
    launch();
    press(1);
    uninstall();
    const std::map<std::string, std::string> left{
        {".claude", "folder"}, {".claude/settings.json", "420 {}\n"}};
    EXPECT_EQ(settled(), left);
}

TEST_F(Farewell, StopsBeforeAnythingIsGone) {
    connectBefore();
    launch();
    application->windows()->toggle();
    writeFile(paths.clientSettings(), "no json");
    const auto before = everythingBelow(folder.path());
    uninstall();
    EXPECT_THAT(*application->connection().lastMessage(), StartsWith("Uninstall stopped: "));
    EXPECT_EQ(everythingBelow(folder.path()), before);
    EXPECT_TRUE(application->windows()->tab().isVisible());
    expectAlive();
}

class Unregister : public testing::Test {
protected:
    ProgramResult run(const std::map<std::string, std::string>& environment) {
        return runProgram(
            {{MIMKINS_BINARY_DIR "/Sources/Mimkins/mimkins", "--home", folder.path()}, environment, "", ""}
        );
    }

    TemporaryFolder folder;
    Paths paths{folder.path()};
};

TEST_F(Unregister, EmptyValueCountsToo) {
    for (const char* value : {"", "1"}) {
        writeFile(paths.autostartEntry(), "[Desktop Entry]\nExec=mimkins\n");
        writeFile(folder / ".config/autostart/other.desktop", "x");
        std::filesystem::create_directories(paths.clientFolder());
        const auto result = run({{"MIMKINS_UNREGISTER_LOGIN", value}, {"HOME", folder.path()}});
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_FALSE(std::filesystem::exists(paths.autostartEntry()));
        EXPECT_TRUE(std::filesystem::exists(folder / ".config/autostart/other.desktop"));
        EXPECT_TRUE(std::filesystem::exists(paths.sessions())); // the sources were loaded
        EXPECT_FALSE(std::filesystem::exists(paths.hookScript()));
    }
}

} // namespace

} // namespace mimkins::test
