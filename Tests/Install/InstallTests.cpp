// The programs as they are installed, in a throw-away place, and as they stand in the build folder.

#include "Platform/Linux/LinuxResources.h"
#include "Presentation/SetupWords.h"
#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

#include <filesystem>

namespace mimkins::test {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Install : public testing::Test {
protected:
    static void SetUpTestSuite() {
        place = new TemporaryFolder;
        const auto result = runProgram(
            {{"cmake", "--install", MIMKINS_BINARY_DIR, "--prefix", prefix()},
             {{"HOME", place->path()}},
             "",
             ""}
        );
        ASSERT_EQ(result.status, 0) << result.errors;
    }

    static void TearDownTestSuite() { delete std::exchange(place, nullptr); }

    /// With a blank, as a home folder's might have.
    static std::string prefix() { return *place / "my programs"; }

    static std::string installed(const std::string& path) { return prefix() + "/" + path; }

    ProgramResult run(std::vector<std::string> words) const {
        return runProgram({std::move(words), {{"HOME", home.path()}}, "", home.path()});
    }

    std::string programs() const { return installed("bin"); }

    TemporaryFolder home;
    static inline TemporaryFolder* place = nullptr;
};

TEST_F(Install, EverythingIsInItsPlace) {
    for (const char* path :
         {"bin/mimkins", "bin/mimkin", "share/mimkins/bin/mimkin", "share/mimkins/hook/status.sh",
          "share/mimkins/AGENT-SETUP.md", "share/applications/app.mimkins.desktop",
          "share/icons/hicolor/16x16/apps/app.mimkins.png", "share/icons/hicolor/48x48/apps/app.mimkins.png",
          "share/icons/hicolor/256x256/apps/app.mimkins.png"}) {
        EXPECT_TRUE(std::filesystem::is_regular_file(installed(path))) << path;
    }
    for (const char* path :
         {"bin/mimkins", "bin/mimkin", "share/mimkins/bin/mimkin", "share/mimkins/hook/status.sh"}) {
        EXPECT_EQ(::access(installed(path).c_str(), X_OK), 0) << path;
    }
    EXPECT_EQ(
        readWhole(installed("share/mimkins/hook/status.sh")),
        readWhole(MIMKINS_SOURCE_DIR "/Resources/hook/status.sh")
    );
}

TEST_F(Install, DesktopEntryNamesWhatIsThere) {
    const std::string entry = readWhole(installed("share/applications/app.mimkins.desktop"));
    EXPECT_THAT(entry, HasSubstr("\nExec=mimkins\n"));
    EXPECT_THAT(entry, HasSubstr("\nIcon=app.mimkins\n"));
}

TEST_F(Install, CopiedWordsPointAtWhatIsThere) {
    const auto built = agentResources(MIMKINS_BINARY_DIR "/Sources/Mimkins");
    const auto atPrefix = agentResources(programs());
    EXPECT_EQ(atPrefix.command, installed("share/mimkins/bin/mimkin"));
    for (const auto& resources : {built, atPrefix}) {
        EXPECT_EQ(readWhole(resources.guide), readWhole(MIMKINS_SOURCE_DIR "/Resources/AGENT-SETUP.md"));
        EXPECT_THAT(readWhole(resources.guide), StartsWith("# Connect yourself to Mimkins"));
        EXPECT_THAT(run({resources.command, "--version"}).output, StartsWith("0."));
    }
}

TEST_F(Install, LinkedCommandRuns) {
    const auto resources = agentResources(programs());
    ASSERT_EQ(run({"sh", "-c", linkCommand({resources.guide, resources.command})}).status, 0);
    const std::string linked = home / ".local/bin/mimkin";
    EXPECT_EQ(run({linked, "--version"}).status, 0);
    ASSERT_EQ(
        run({linked, "--home", home.path(), "report", "--agent", "codex", "--id", "1", "--state", "working"})
            .status,
        0
    );
    EXPECT_THAT(run({linked, "--home", home.path(), "sessions", "--json"}).output, HasSubstr("\"codex\""));
}

TEST_F(Install, LinkedCommandFindsTheInstalledHook) {
    std::filesystem::create_directories(home / ".claude");
    const auto result =
        run({installed("share/mimkins/bin/mimkin"), "--home", home.path(), "hooks", "connect"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(
        readWhole(Paths(home.path()).hookScript()), readWhole(MIMKINS_SOURCE_DIR "/Resources/hook/status.sh")
    );
}

TEST_F(Install, StaysWholeWhenItIsMoved) {
    const TemporaryFolder elsewhere;
    std::filesystem::copy(
        prefix(), elsewhere / "there",
        std::filesystem::copy_options::recursive | std::filesystem::copy_options::copy_symlinks
    );
    EXPECT_EQ(run({elsewhere / "there/share/mimkins/bin/mimkin", "--version"}).status, 0);
}

TEST_F(Install, ApplicationDrawsItsSetUpScreen) {
    if (!std::filesystem::exists(installed("bin/mimkins"))) {
        GTEST_SKIP() << "built without the user interface";
    }
    for (const char* status : {"connected", "notConnected", "needsUpdate", "noClaudeCode"}) {
        const auto result = run(
            {installed("bin/mimkins"), "render", "setup", "--home", home.path(), "--status", status, "-o",
             home / (std::string(status) + ".png")}
        );
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_GT(std::filesystem::file_size(home / (std::string(status) + ".png")), 10'000U);
    }
}

} // namespace

} // namespace mimkins::test
