#include "Platform/Linux/LinuxFileSystem.h"

#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <thread>

using namespace mimkins;
using test::writeFile;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::size_t limit = 1'000'000;

/// Lets the superuser act as somebody else for the time of its life.
class OrdinaryUser {
public:
    OrdinaryUser() {
        constexpr uid_t nobody = 65'534;
        if (before_ == 0) {
            EXPECT_EQ(::seteuid(nobody), 0);
        }
    }

    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    ~OrdinaryUser() { EXPECT_EQ(::seteuid(before_), 0); }

private:
    uid_t before_ = ::geteuid();
};

/// A folder with an instance of everything that can be in the way of a reader.
class LinuxFileSystemTest : public testing::Test {
protected:
    LinuxFileSystemTest() {
        ::mkfifo((folder / "fifo.json").c_str(), 0600);
        std::filesystem::create_directory(folder / "folder.json");
        std::filesystem::create_symlink(folder / "loop-b.json", folder / "loop-a.json");
        std::filesystem::create_symlink(folder / "loop-a.json", folder / "loop-b.json");
        std::filesystem::create_symlink("/dev/zero", folder / "zero.json");
        std::filesystem::create_symlink(folder / "missing", folder / "dangling.json");
        std::filesystem::create_symlink(folder / "fifo.json", folder / "linked-fifo.json");
        makeSocket(folder / "socket.json");
        writeFile(folder / "sparse.json", "");
        std::filesystem::resize_file(folder / "sparse.json", 10ULL * 1'024 * 1'024 * 1'024);
        writeFile(folder / "good.json", "good");
    }

    static void makeSocket(const std::string& path) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        ASSERT_LT(path.size(), sizeof address.sun_path);
        std::memcpy(address.sun_path, path.c_str(), path.size());
        const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        ::close(socket);
    }

    test::TemporaryFolder folder;
    LinuxFileSystem files;
};

} // namespace

TEST_F(LinuxFileSystemTest, HostileFolderCostsNothingButItself) {
    int readable = 0;
    const auto names = files.list(folder.path());
    EXPECT_EQ(names.size(), 10U);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    for (const auto& name : names) {
        if (const auto bytes = files.readFile(folder / name, limit)) {
            ++readable;
            EXPECT_EQ(name, "good.json");
            EXPECT_EQ(*bytes, "good");
        }
    }
    EXPECT_EQ(readable, 1);
}

TEST_F(LinuxFileSystemTest, TailsComeFromRegularFilesOnly) {
    for (const auto& name : files.list(folder.path())) {
        const auto tail = files.readTail(folder / name, 3);
        EXPECT_EQ(tail.has_value(), name == "good.json" || name == "sparse.json") << name;
    }
}

TEST_F(LinuxFileSystemTest, TailOfAHugeFileIsOnlyItsEnd) {
    constexpr std::uint64_t size = 10ULL * 1'024 * 1'024 * 1'024;
    std::fstream(folder / "sparse.json", std::ios::in | std::ios::out | std::ios::ate) << "end";
    const auto tail = files.readTail(folder / "sparse.json", 5);
    ASSERT_TRUE(tail);
    EXPECT_EQ(tail->bytes, std::string("\0\0end", 5));
    EXPECT_EQ(tail->position, size + 3 - 5);
}

TEST_F(LinuxFileSystemTest, TailOfAShortFileIsAllOfIt) {
    for (const std::size_t count :
         {std::size_t{4}, std::size_t{5}, std::numeric_limits<std::size_t>::max()}) {
        const auto tail = files.readTail(folder / "good.json", count);
        ASSERT_TRUE(tail);
        EXPECT_EQ(tail->bytes, "good");
        EXPECT_EQ(tail->position, 0U);
    }
    const auto none = files.readTail(folder / "good.json", 0);
    ASSERT_TRUE(none);
    EXPECT_EQ(none->bytes, "");
    EXPECT_EQ(none->position, 4U);
}

TEST_F(LinuxFileSystemTest, LimitIsTheLargestSizeThatIsRead) {
    EXPECT_EQ(files.readFile(folder / "good.json", 4), "good");
    EXPECT_EQ(files.readFile(folder / "good.json", 3), std::nullopt);
    EXPECT_EQ(files.readFile(folder / "good.json", std::numeric_limits<std::size_t>::max()), "good");
    writeFile(folder / "empty.json", "");
    EXPECT_EQ(files.readFile(folder / "empty.json", 0), "");
    EXPECT_EQ(files.readFile(folder / "empty.json", limit), "");
}

TEST_F(LinuxFileSystemTest, FileWhoseSizeTheKernelDoesNotTellIsReadWhole) {
    const auto bytes = files.readFile("/proc/self/stat", limit);
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(bytes->starts_with(std::to_string(::getpid()) + " ("));
    EXPECT_EQ(files.readFile("/proc/self/stat", 10), std::nullopt);
}

TEST_F(LinuxFileSystemTest, FileThatGrowsIsReadWithoutEnd) {
    const std::string path = folder / "growing.jsonl";
    const std::string line(99, 'x');
    writeFile(path, line + "\n");
    std::atomic<bool> over = false;
    std::thread writer([&] {
        std::ofstream file(path, std::ios::app);
        for (int count = 0; count < 20'000 && !over; ++count) {
            file << line << '\n' << std::flush;
        }
    });
    for (int round = 0; round < 500; ++round) {
        const auto bytes = files.readFile(path, 10 * limit);
        ASSERT_TRUE(bytes);
        EXPECT_EQ(bytes->substr(0, 100), line + "\n");
        const auto tail = files.readTail(path, 1'000);
        ASSERT_TRUE(tail);
        EXPECT_LE(tail->bytes.size(), 1'000U);
        // Bytes and position belong together: every hundredth byte of the file ends a line.
        const auto end = tail->bytes.find('\n');
        ASSERT_NE(end, std::string::npos);
        EXPECT_EQ((tail->position + end) % 100, 99U);
    }
    over = true;
    writer.join();
}

TEST_F(LinuxFileSystemTest, FileThatMayNotBeReadIsAbsent) {
    const std::string path = folder / "secret.json";
    writeFile(path, "secret");
    ::chmod(path.c_str(), 0);
    ::chmod(folder.path().c_str(), 0755);
    const OrdinaryUser user; // nothing is unreadable to the superuser
    EXPECT_EQ(files.readFile(path, limit), std::nullopt);
    EXPECT_FALSE(files.readTail(path, 10));
    EXPECT_TRUE(files.modified(path));
}

TEST_F(LinuxFileSystemTest, NamesThatAreTooLongOrOddAreHarmless) {
    const std::string longest(255, 'n');
    writeFile(folder / longest, "long");
    EXPECT_EQ(files.readFile(folder / longest, limit), "long");
    for (const std::string& name : {std::string(256, 'n'), std::string(100'000, 'n'), std::string()}) {
        EXPECT_EQ(files.readFile(folder / name, limit), std::nullopt);
        EXPECT_FALSE(files.readTail(folder / name, 1));
        EXPECT_THAT(files.list(folder / (name + "x")), IsEmpty());
    }
    EXPECT_EQ(files.modified(folder / std::string(256, 'n')), std::nullopt);
    EXPECT_FALSE(files.isFolder(folder / std::string(256, 'n')));
    EXPECT_FALSE(files.createFolders(folder / std::string(256, 'n')));
    EXPECT_EQ(files.readFile("", limit), std::nullopt);
    const std::string notText = "bad \xff\xfe\n.json";
    std::filesystem::create_directory(folder / "odd");
    writeFile(folder / ("odd/" + notText), "odd");
    EXPECT_THAT(files.list(folder / "odd"), ElementsAre(notText));
    EXPECT_EQ(files.readFile(folder / ("odd/" + notText), limit), "odd");
}

TEST_F(LinuxFileSystemTest, ListsHiddenNamesInOrderOfTheirBytes) {
    const std::string empty = folder / "list";
    for (const char* name : {"b", "B", "é", ".hidden", "a"}) {
        writeFile(empty + "/" + name, "");
    }
    EXPECT_THAT(files.list(empty), ElementsAre(".hidden", "B", "a", "b", "é"));
    EXPECT_THAT(files.list(folder / "good.json"), IsEmpty());
    EXPECT_THAT(files.list(folder / "missing"), IsEmpty());
    EXPECT_THAT(files.list(folder / "loop-a.json"), IsEmpty());
}

TEST_F(LinuxFileSystemTest, TimeOfChangeIsExactAndFollowsLinks) {
    const std::string path = folder / "good.json";
    const timespec times[] = {{1, 2}, {1'795'246'096, 123'456'789}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    const FileTime expected{1'795'246'096, 123'456'789};
    EXPECT_EQ(files.modified(path), expected);
    std::filesystem::create_symlink(path, folder / "link.json");
    EXPECT_EQ(files.modified(folder / "link.json"), expected);
    EXPECT_EQ(files.modified(folder / "dangling.json"), std::nullopt);
    EXPECT_EQ(files.modified(folder / "loop-a.json"), std::nullopt);
}

TEST_F(LinuxFileSystemTest, FoldersAreMadeWithThoseAboveThem) {
    EXPECT_TRUE(files.createFolders(folder / "a/b c/d"));
    EXPECT_TRUE(files.isFolder(folder / "a/b c/d"));
    EXPECT_TRUE(files.createFolders(folder / "a/b c/d/"));
    EXPECT_FALSE(files.createFolders(folder / "good.json"));
    EXPECT_FALSE(files.createFolders(folder / "good.json/below"));
    EXPECT_FALSE(files.createFolders(folder / "loop-a.json/below"));
    EXPECT_FALSE(files.isFolder(folder / "good.json"));
    std::filesystem::create_symlink(folder / "a", folder / "link-to-a");
    EXPECT_TRUE(files.isFolder(folder / "link-to-a"));
}
