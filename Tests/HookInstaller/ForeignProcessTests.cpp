// Two real processes at work on the same settings: the installer connects and disconnects in turn, and a
// client rewrites the file by renaming, as clients do, without looking whether somebody else wrote meanwhile.

#include "HookInstaller/InstallerTest.h"

#include "Base/Error.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <random>
#include <thread>

namespace mimkins::test {

namespace {

using std::chrono::steady_clock;

constexpr std::chrono::seconds duration{20};
constexpr const char* counterKey = "counter";

struct Tally {
    int successes = 0;
    int gaveUp = 0;
    int otherFailures = 0;
};

/// Connects and disconnects until the time is over.
Tally alternate(const Paths& paths, const std::string& bundled) {
    LinuxSettingsFiles files;
    HookInstaller installer(paths, bundled, files);
    Tally tally;
    const auto end = steady_clock::now() + duration;
    for (int count = 0; steady_clock::now() < end; ++count) {
        try {
            count % 2 == 0 ? installer.connect() : installer.disconnect();
            ++tally.successes;
        } catch (const Error& error) {
            ++(error.domain() == Error::ownDomain && error.code() == 3 ? tally.gaveUp : tally.otherFailures);
        }
    }
    return tally;
}

class ForeignProcessTest : public InstallerTest {
protected:
    /// The settings as they are. They must be whole, and hold all of our entries or none.
    SettingsObject readSettings() const {
        const std::string text = read();
        SettingsObject root;
        EXPECT_NO_THROW(root = parseSettings(text)) << text;
        const auto found = findEntries(root, paths);
        EXPECT_TRUE(found.events.empty() || found.events.size() == hookEvents.size()) << text;
        return root;
    }

    static int counterOf(const SettingsObject& root) {
        const auto found = root.find(counterKey);
        const auto* number =
            found == root.end() ? nullptr : std::get_if<SettingsNumber>(&found->second.content);
        return number == nullptr ? -1 : std::stoi(number->text);
    }

    /// Reads until the client's last write is there. For some microseconds it may be out of place: while the
    /// installer holds it in its hands and puts it back.
    SettingsObject readWithCounter(int counter) const {
        auto root = readSettings();
        for (int attempt = 0; attempt < 100 && counterOf(root) != counter; ++attempt) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            root = readSettings();
        }
        return root;
    }
};

TEST_F(ForeignProcessTest, loseNothingToEachOther) {
    write("{\"counter\":0,\"hooks\":{\"Stop\":[{\"hooks\":[{\"command\":\"theirs\"}]}]}}");
    std::array<int, 2> ends{-1, -1};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const Tally tally = alternate(paths, bundled);
        ::_exit(::write(ends[1], &tally, sizeof tally) == sizeof tally ? 0 : 1);
    }
    ::close(ends[1]);
    std::mt19937 random(1);
    int counter = 0;
    const auto end = steady_clock::now() + duration;
    while (steady_clock::now() < end && !HasFailure()) {
        auto root = readWithCounter(counter);
        ASSERT_EQ(counterOf(root), counter) << "an update was lost";
        root[counterKey].content = SettingsNumber{std::to_string(++counter)};
        replaceByRename(settings, serialiseSettings(root));
        std::this_thread::sleep_for(
            std::chrono::microseconds(random() % (counter % 100 < 50 ? 2'000 : 40'000))
        );
    }
    Tally tally;
    EXPECT_EQ(::read(ends[0], &tally, sizeof tally), static_cast<ssize_t>(sizeof tally));
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    RecordProperty("foreignWrites", counter);
    RecordProperty("operations", tally.successes);
    RecordProperty("gaveUp", tally.gaveUp);
    EXPECT_GT(counter, 100);
    EXPECT_GT(tally.successes, 10);
    EXPECT_EQ(tally.otherFailures, 0);
    auto root = readWithCounter(counter);
    EXPECT_EQ(counterOf(root), counter);
    strip(root, paths);
    EXPECT_EQ(
        serialiseSettings(root), serialiseSettings(parseSettings(
                                     "{\"counter\":" + std::to_string(counter) +
                                     ",\"hooks\":{\"Stop\":[{\"hooks\":[{\"command\":\"theirs\"}]}]}}"
                                 ))
    );
    EXPECT_TRUE(temporaries().empty());
    EXPECT_LE(backups().size(), 3U);
}

} // namespace

} // namespace mimkins::test
