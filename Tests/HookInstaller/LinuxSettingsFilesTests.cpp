#include "HookInstaller/InstallerTest.h"

#include "Base/Error.h"
#include "Platform/Linux/LinuxResources.h"
#include "Support/RunProgram.h"

#include <gmock/gmock.h>
#include <sys/xattr.h>

namespace mimkins::test {

namespace {

using ::testing::HasSubstr;

class LinuxSettingsFilesTest : public InstallerTest {
protected:
    LinuxSettingsFiles real;

    static std::string attribute(const std::string& path, const std::string& name) {
        std::string value(256, '\0');
        const auto size = ::getxattr(path.c_str(), name.c_str(), value.data(), value.size());
        value.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        return value;
    }

    static std::string accessList(const std::string& path) {
        return runProgram({{"getfacl", "--omit-header", "--absolute-names", path}, {}, "", ""}).output;
    }
};

TEST_F(LinuxSettingsFilesTest, extendedAttributesSurvive) {
    write("{}");
    const std::string value("a\0b", 3);
    if (::setxattr(settings.c_str(), "user.mine", value.data(), value.size(), 0) != 0) {
        GTEST_SKIP() << "the file system of " << settings << " has no extended attributes";
    }
    ::setxattr(settings.c_str(), "user.empty", "", 0, 0);
    const auto backup = installer.connect();
    EXPECT_EQ(attribute(settings, "user.mine"), value);
    EXPECT_EQ(attribute(*backup, "user.mine"), value);
    EXPECT_EQ(::getxattr(settings.c_str(), "user.empty", nullptr, 0), 0);
}

TEST_F(LinuxSettingsFilesTest, accessListSurvivesAndTheBackupIsAsClosed) {
    write("{}");
    const auto set = runProgram({{"setfacl", "-m", "u:12345:rw,g::-,o::-", settings}, {}, "", ""});
    if (set.status != 0) {
        GTEST_SKIP() << "access lists can't be set: " << set.errors;
    }
    const std::string before = accessList(settings);
    ASSERT_THAT(before, HasSubstr("user:12345:rw-"));
    const auto backup = installer.connect();
    EXPECT_EQ(accessList(settings), before);
    EXPECT_EQ(accessList(*backup), before);
    installer.disconnect();
    EXPECT_EQ(accessList(settings), before);
}

TEST_F(LinuxSettingsFilesTest, theFoldersDefaultListIsNotAdded) {
    write("{}");
    std::filesystem::permissions(settings, std::filesystem::perms(0640));
    const std::string before = accessList(settings);
    const auto set = runProgram({{"setfacl", "-d", "-m", "u:12345:rwx", paths.clientFolder()}, {}, "", ""});
    if (set.status != 0) {
        GTEST_SKIP() << "access lists can't be set: " << set.errors;
    }
    const auto backup = installer.connect();
    EXPECT_EQ(accessList(settings), before);
    EXPECT_EQ(accessList(*backup), before);
}

TEST_F(LinuxSettingsFilesTest, ownerSurvives) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can give files away";
    }
    write("{}");
    ASSERT_EQ(::chown(settings.c_str(), 12345, 54321), 0);
    installer.connect();

    struct stat facts {};

    ASSERT_EQ(::stat(settings.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_uid, 12345U);
    EXPECT_EQ(facts.st_gid, 54321U);
}

TEST_F(LinuxSettingsFilesTest, readsRegularFilesOnly) {
    EXPECT_TRUE(real.read(settings).missing());
    EXPECT_TRUE(real.read(settings + "/below").missing());
    EXPECT_EQ(real.read(paths.clientFolder()).failure, std::errc::is_a_directory);
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(real.read(pipe).failure, std::errc::invalid_argument);
    const std::string big(200'000, 'x');
    write(big);
    EXPECT_EQ(real.read(settings).bytes, big);
    std::filesystem::resize_file(settings, LinuxSettingsFiles::largestFile + 1);
    EXPECT_EQ(real.read(settings).failure, std::errc::file_too_large);
}

TEST_F(LinuxSettingsFilesTest, exchangesInOneStep) {
    writeFile(folder / "a", "A");
    writeFile(folder / "b", "B");
    const std::errc result = real.exchange(folder / "a", folder / "b");
    if (result == std::errc::operation_not_supported) {
        GTEST_SKIP() << "the file system of " << folder.path() << " can't exchange files";
    }
    EXPECT_EQ(result, std::errc{});
    EXPECT_EQ(readWhole(folder / "a") + readWhole(folder / "b"), "BA");
    EXPECT_EQ(real.exchange(folder / "a", folder / "c"), std::errc::no_such_file_or_directory);
}

TEST_F(LinuxSettingsFilesTest, renamesOnlyOntoNothing) {
    writeFile(folder / "a", "A");
    writeFile(folder / "b", "B");
    EXPECT_EQ(real.renameIfAbsent(folder / "a", folder / "b"), std::errc::file_exists);
    std::filesystem::create_symlink("nowhere", folder / "dead");
    EXPECT_EQ(real.renameIfAbsent(folder / "a", folder / "dead"), std::errc::file_exists);
    EXPECT_EQ(real.renameIfAbsent(folder / "a", folder / "c"), std::errc{});
    EXPECT_EQ(readWhole(folder / "c"), "A");
    EXPECT_FALSE(std::filesystem::exists(folder / "a"));
}

TEST_F(LinuxSettingsFilesTest, failedWritesSayWhy) {
    try {
        real.writeNew({folder / "nowhere/file", "x", 0600, ""});
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.domain(), Error::posixDomain);
        EXPECT_EQ(error.code(), ENOENT);
        EXPECT_EQ(std::string(error.what()), folder / "nowhere/file: No such file or directory");
    }
}

TEST_F(LinuxSettingsFilesTest, resourcesStandBesideTheInstalledProgram) {
    writeFile(folder / "usr/share/mimkins/hook/status.sh", "x");
    writeFile(folder / "usr/Resources/hook/status.sh", "x");
    std::filesystem::create_directories(folder / "usr/bin");
    EXPECT_EQ(resourceFolder(folder / "usr/bin"), folder / "usr/share/mimkins");
}

TEST_F(LinuxSettingsFilesTest, resourcesStandAboveAProgramInTheSourceTree) {
    std::filesystem::create_directories(folder / "tree/build/debug/Sources");
    EXPECT_EQ(resourceFolder(folder / "tree/build/debug/Sources"), std::nullopt);
    writeFile(folder / "tree/Resources/hook/status.sh", "x");
    EXPECT_EQ(resourceFolder(folder / "tree/build/debug/Sources"), folder / "tree/Resources");
    EXPECT_EQ(resourceFolder(), std::string(MIMKINS_BINARY_DIR) + "/Resources");
}

TEST_F(LinuxSettingsFilesTest, resourcesOfAnotherUserDoNotCount) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can make another user's file";
    }
    const std::string script = folder / "Resources/hook/status.sh";
    writeFile(script, "x");
    ASSERT_EQ(::chown(script.c_str(), 12345, 12345), 0);
    EXPECT_EQ(resourceFolder(folder / "program"), std::nullopt);
}

} // namespace

} // namespace mimkins::test
