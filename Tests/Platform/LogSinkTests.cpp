#include "Platform/Linux/HomeFolder.h"
#include "Platform/Linux/LogSink.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

using namespace mimkins;

namespace {

/// Sets an environment variable for the time of its life.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::string& value) : name_(name) {
        if (const char* old = std::getenv(name)) {
            old_ = old;
        }
        ::setenv(name, value.c_str(), 1);
        ::tzset();
    }

    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

    ~ScopedVariable() {
        if (old_) {
            ::setenv(name_, old_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
        ::tzset();
    }

private:
    const char* name_;
    std::optional<std::string> old_;
};

/// What standard error gets while `work` runs, which is called after the file has taken its place.
template <typename Work>
std::string standardErrorOf(const Work& work) {
    const test::TemporaryFolder folder;
    const std::string path = folder / "errors";
    const int file = ::open(path.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    const int before = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 10);
    ::dup2(file, STDERR_FILENO);
    work();
    ::dup2(before, STDERR_FILENO);
    ::close(before);
    ::close(file);
    return test::readWhole(path);
}

} // namespace

TEST(LogSink, JournalLinesCarryThePriority) {
    EXPECT_EQ(journalLine({log::Level::standard, "panel", "opened"}), "<5>app.mimkins panel: opened");
    EXPECT_EQ(journalLine({log::Level::error, "hotkey", "taken"}), "<3>app.mimkins hotkey: taken");
    EXPECT_EQ(
        journalLine({log::Level::fault, "login", "é\nline\ttwo\x7f"}), "<2>app.mimkins login: é line two "
    );
}

TEST(LogSink, TerminalLinesCarryLocalTime) {
    const ScopedVariable zone("TZ", "XST-5:30");
    const Date date{1'795'246'096.0625};
    EXPECT_EQ(
        terminalLine({log::Level::standard, "panel", "opened"}, date),
        "2026-11-21 12:58:16.062 [panel] opened"
    );
    EXPECT_EQ(
        terminalLine({log::Level::error, "panel", "a\nb"}, date), "2026-11-21 12:58:16.062 error [panel] a b"
    );
    EXPECT_EQ(terminalLine({log::Level::fault, "panel", ""}, date), "2026-11-21 12:58:16.062 fault [panel] ");
}

TEST(LogSink, JournalIsKnownByDeviceAndInode) {
    EXPECT_TRUE(isJournal("10:2000", {10, 2000}));
    for (const char* other : {"", "10", "10:", ":2000", "10:2001", "11:2000", "10:2000 ", "010:2000"}) {
        EXPECT_FALSE(isJournal(other, {10, 2000})) << other;
    }
}

TEST(LogSink, WritesWhatSuitsStandardError) {
    const auto journal = standardErrorOf([] {
        struct stat facts {};

        ASSERT_EQ(::fstat(STDERR_FILENO, &facts), 0);
        const ScopedVariable stream(
            "JOURNAL_STREAM", std::to_string(facts.st_dev) + ":" + std::to_string(facts.st_ino)
        );
        standardErrorSink()({log::Level::error, "panel", "text"});
    });
    EXPECT_EQ(journal, "<3>app.mimkins panel: text\n");
    const auto plain = standardErrorOf([] {
        const ScopedVariable stream("JOURNAL_STREAM", "1:1");
        standardErrorSink()({log::Level::error, "panel", "text"});
    });
    EXPECT_TRUE(plain.ends_with(" error [panel] text\n")) << plain;
}

TEST(HomeFolder, ComesFromThePasswordDatabase) {
    const ScopedVariable home("HOME", "/somewhere/else");
    const passwd* entry = ::getpwuid(::getuid());
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(homeFolder(), std::string(entry->pw_dir));
    EXPECT_NE(homeFolder(), "/somewhere/else");
}
