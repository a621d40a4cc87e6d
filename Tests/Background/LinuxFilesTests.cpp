#include "Background/BackgroundScanner.h"
#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>

using namespace mimkins;

TEST(LinuxRandomAccessFiles, ReadsPieces) {
    const test::TemporaryFolder folder;
    test::writeFile(folder / "file", "0123456789");
    const auto file = LinuxRandomAccessFiles().open(folder / "file");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->identity().size, 10U);
    std::array<char, 4> buffer{};
    EXPECT_EQ(file->read(3, buffer), 4U);
    EXPECT_EQ(std::string(buffer.data(), 4), "3456");
    EXPECT_EQ(file->read(8, buffer), 2U);
    EXPECT_EQ(file->read(10, buffer), 0U);
    EXPECT_EQ(file->read(1'000, buffer), 0U);
    EXPECT_EQ(file->read(std::uint64_t{1} << 63U, buffer), std::nullopt);
}

TEST(LinuxRandomAccessFiles, LooksAtAFileWithoutOpeningIt) {
    const test::TemporaryFolder folder;
    const LinuxRandomAccessFiles files;
    const std::string path = folder / "file";
    EXPECT_EQ(files.look(path), std::nullopt);
    test::writeFile(path, "12345");
    const auto first = files.look(path);
    ASSERT_TRUE(first);
    EXPECT_EQ(*first, files.open(path)->identity());
    EXPECT_EQ(*first, files.look(path));
    test::writeFile(path, "123456");
    EXPECT_NE(*first, files.look(path));
    test::writeFile(folder / "other", "12345");
    std::filesystem::rename(folder / "other", path);
    EXPECT_NE(*first, files.look(path));
    std::filesystem::create_symlink(path, folder / "link");
    EXPECT_EQ(files.look(folder / "link"), files.look(path));
}

TEST(LinuxRandomAccessFiles, OpensRegularFilesOnly) {
    const test::TemporaryFolder folder;
    const LinuxRandomAccessFiles files;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const std::string& path :
         {folder / "pipe", folder.path(), std::string("/dev/null"), folder / "none"}) {
        EXPECT_EQ(files.open(path), nullptr) << path;
        EXPECT_EQ(files.look(path), std::nullopt) << path;
    }
}

TEST(LinuxRandomAccessFiles, ServeTheScanner) {
    const test::TemporaryFolder folder;
    const LinuxRandomAccessFiles files;
    BackgroundScanner scanner(files);
    const std::string path = folder / "t.jsonl";
    const std::string line = "running in background with ID: ";
    test::writeFile(path, line + "a1\n" + line);
    EXPECT_EQ(scanner.scan(path, Date{0}, Date{1}).commands, 1);
    EXPECT_EQ(scanner.scan(path, Date{0}, Date{1}).commands, 1);
    test::writeFile(path, line + "a1\n" + line + "b2\n");
    EXPECT_EQ(scanner.scan(path, Date{0}, Date{1}).commands, 2);
    test::writeFile(path, line + "c\n");
    EXPECT_EQ(scanner.scan(path, Date{0}, Date{1}).commands, 1);
    test::writeFile(path, "");
    EXPECT_EQ(scanner.scan(path, Date{0}, Date{1}).commands, 0);
}
