#include "HookInstaller/InstallerTest.h"

#include "Base/Error.h"

namespace mimkins::test {

namespace {

class InstallScriptTest : public InstallerTest {
protected:
    std::string script = paths.hookScript();
    std::string temporary = paths.support() + "/hook/.status.sh.tmp";
};

TEST_F(InstallScriptTest, installsAnExecutableThatNobodyMayWrite) {
    installer.installScript();
    EXPECT_EQ(readWhole(script), readWhole(bundled));
    EXPECT_EQ(modeOf(script), 0555U);
    EXPECT_TRUE(std::filesystem::is_directory(paths.sessions()));
    EXPECT_FALSE(std::filesystem::exists(temporary));
    EXPECT_FALSE(std::filesystem::exists(settings));
}

TEST_F(InstallScriptTest, replacesAnOlderScript) {
    writeFile(script, "old");
    installer.installScript();
    installer.installScript();
    EXPECT_EQ(readWhole(script), readWhole(bundled));
    EXPECT_EQ(modeOf(script), 0555U);
}

TEST_F(InstallScriptTest, followsNoLinkThatStandsInItsWay) {
    const std::string precious = folder / "precious";
    writeFile(precious, "mine");
    std::filesystem::create_directories(paths.support() + "/hook");
    std::filesystem::create_symlink(precious, temporary);
    std::filesystem::create_symlink(precious, script);
    installer.installScript();
    EXPECT_EQ(readWhole(precious), "mine");
    EXPECT_EQ(modeOf(precious) & 0111U, 0U);
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(script)));
}

TEST_F(InstallScriptTest, failsWithoutABundledScript) {
    for (const std::optional<std::string>& missing :
         {std::optional<std::string>(), std::optional<std::string>(folder / "nowhere")}) {
        HookInstaller without(paths, missing, files);
        try {
            without.connect();
            ADD_FAILURE();
        } catch (const Error& error) {
            EXPECT_EQ(error.domain(), Error::ownDomain);
            EXPECT_EQ(error.code(), 2);
            EXPECT_STREQ(error.what(), "The hook script isn't inside this copy of the app.");
        }
        EXPECT_TRUE(std::filesystem::is_directory(paths.sessions()));
        EXPECT_FALSE(std::filesystem::exists(settings));
    }
}

TEST_F(InstallScriptTest, leavesNothingWhenTheScriptsPlaceIsTaken) {
    std::filesystem::create_directories(script + "/folder");
    EXPECT_THROW(installer.installScript(), Error);
    EXPECT_FALSE(std::filesystem::exists(temporary));
}

TEST_F(InstallScriptTest, failsWhenAFolderCannotBeMade) {
    writeFile(folder / "Library", "a file");
    EXPECT_THROW(installer.installScript(), Error);
}

} // namespace

} // namespace mimkins::test
