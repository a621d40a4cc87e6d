#include "Platform/KeptReading.h"

#include "Platform/Linux/LinuxFileSystem.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace mimkins;

namespace {

/// Long after anything that a test does.
constexpr Date later{1e11};

/// A real file whose reading is kept.
class KeptReadingTest : public testing::Test {
protected:
    KeptReadingTest() { write("one"); }

    void write(const std::string& text) const { std::ofstream(path) << text; }

    /// Longer than a step of the file system's clock.
    static void letTimePass() { ::usleep(20'000); }

    void setTime(const std::string& file, time_t seconds) const {
        const timespec times[2]{{seconds, 0}, {seconds, 0}}; // NOLINT(modernize-avoid-c-arrays)
        ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    }

    void keep() {
        const auto stamp = files.stamp(path);
        kept.take(files.readFile(path, 100).value_or("none"), stamp, later);
    }

    bool holds() const { return kept.holdsFor(files.stamp(path)); }

    test::TemporaryFolder folder;
    const std::string path = folder / "file";
    LinuxFileSystem files;
    KeptReading<std::string> kept;
};

} // namespace

TEST_F(KeptReadingTest, HoldsWhileNothingChanges) {
    EXPECT_FALSE(holds());
    keep();
    EXPECT_TRUE(holds());
    EXPECT_EQ(files.readFile(path, 100), "one");
    EXPECT_TRUE(holds()) << "reading changes nothing";
    EXPECT_EQ(kept.value(), "one");
}

TEST_F(KeptReadingTest, EndsWithAnotherFileOfTheSameSizeAndTime) {
    setTime(path, 1'000);
    keep();
    std::ofstream(folder / "other") << "two";
    setTime(folder / "other", 1'000);
    std::filesystem::rename(folder / "other", path);
    EXPECT_EQ(files.modified(path), (FileTime{1'000, 0}));
    EXPECT_FALSE(holds());
}

TEST_F(KeptReadingTest, EndsWhenTheTimeOfAChangeIsSetBack) {
    setTime(path, 1'000);
    keep();
    letTimePass();
    write("two");
    setTime(path, 1'000);
    EXPECT_FALSE(holds());
}

TEST_F(KeptReadingTest, EndsWhenTheFileIsCutShortOrGrows) {
    keep();
    std::filesystem::resize_file(path, 1);
    EXPECT_FALSE(holds());
    keep();
    std::ofstream(path, std::ios::app) << "more";
    EXPECT_FALSE(holds());
}

TEST_F(KeptReadingTest, EndsWithTheFile) {
    keep();
    std::filesystem::remove(path);
    EXPECT_FALSE(holds());
    letTimePass();
    write("one");
    EXPECT_FALSE(holds());
}

TEST_F(KeptReadingTest, EndsWhenALinkLeadsElsewhere) {
    std::ofstream(folder / "target") << "two";
    std::filesystem::rename(path, folder / "first");
    std::filesystem::create_symlink(folder / "first", path);
    keep();
    EXPECT_TRUE(holds());
    std::filesystem::remove(path);
    std::filesystem::create_symlink(folder / "target", path);
    EXPECT_FALSE(holds());
}

TEST_F(KeptReadingTest, OfAFolderEndsWithItsEntries) {
    const auto stamp = files.stamp(folder.path());
    letTimePass();
    std::ofstream(folder / "other") << "two";
    const auto added = files.stamp(folder.path());
    EXPECT_NE(added, stamp);
    letTimePass();
    std::filesystem::rename(folder / "other", folder / "another");
    const auto renamed = files.stamp(folder.path());
    EXPECT_NE(renamed, added);
    letTimePass();
    std::filesystem::remove(folder / "another");
    EXPECT_NE(files.stamp(folder.path()), renamed);
}

TEST(KeptReading, DoesNotHoldForAFailedReading) {
    KeptReading<int> kept;
    kept.take(5, std::nullopt, later);
    EXPECT_FALSE(kept.holdsFor(std::nullopt));
    EXPECT_FALSE(kept.holdsFor(FileStamp()));
    EXPECT_EQ(kept.value(), 5);
}

TEST(KeptReading, DoesNotHoldIfAChangeMightHaveTheSameTime) {
    const auto holds = [](std::int32_t nanoseconds, double now) {
        FileStamp stamp;
        stamp.changed = {1'000, nanoseconds};
        KeptReading<int> kept;
        kept.take(5, stamp, Date{now});
        return kept.holdsFor(stamp);
    };
    EXPECT_FALSE(holds(500'000'000, 1'000.55));
    EXPECT_TRUE(holds(500'000'000, 1'000.65));
    EXPECT_FALSE(holds(500'000'000, 900)) << "the clock was set back";
    EXPECT_FALSE(holds(0, 1'001.9)) << "whole seconds, or two";
    EXPECT_TRUE(holds(0, 1'002.1));
}
