// The installer as a program of its own on a throw-away home, with each of its calls into the system killed,
// failed, cut short or overtaken. Whatever happens, the settings are whole: the old ones or the new ones.

#include "HookInstaller/DriverProcess.h"
#include "HookInstaller/InstallerTest.h"

#include <gmock/gmock.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <map>

namespace mimkins::test {

namespace {

using ::testing::HasSubstr;
using Faults = std::map<std::string, std::string>;

constexpr int killed = 128 + SIGKILL;
constexpr const char* attributeName = "user.mine";
const std::string oldSettings = "{\"number\":12345678901234567890}";
const std::string foreignSettings = "{\"foreign\":1}";
const std::string newerForeignSettings = "{\"foreign\":2}";

/// Which settings there are before the operation.
enum class Before { none, plain, linked };

struct Operation {
    std::string name;
    Before before = Before::plain;
};

void PrintTo(const Operation& operation, std::ostream* stream) {
    *stream << operation.name << (operation.before == Before::none ? " without settings" : "")
            << (operation.before == Before::linked ? " through a link" : "");
}

/// Lets temporary folders lie in memory, if the machine has such a place: there are thousands of homes to
/// make.
class FoldersInMemory {
public:
    FoldersInMemory() {
        const char* before = ::getenv("TMPDIR");
        before_ = before == nullptr ? "" : before;
        if (::access("/dev/shm", W_OK) == 0) {
            ::setenv("TMPDIR", "/dev/shm", 1);
        }
    }

    FoldersInMemory(const FoldersInMemory&) = delete;
    FoldersInMemory& operator=(const FoldersInMemory&) = delete;

    ~FoldersInMemory() { before_.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", before_.c_str(), 1); }

private:
    std::string before_;
};

class FaultTest : public ::testing::TestWithParam<Operation> {
protected:
    FaultTest() {
        script_ = folder_ / "bundle/status.sh";
        writeFile(script_, "#!/bin/sh\n");
        prepare();
        const DriverRun clean = run({});
        EXPECT_EQ(clean.status, 0) << clean.message;
        calls_ = clean.calls;
        new_ = readWhole(settings_);
        EXPECT_GT(calls_, GetParam().name == "connect" ? 40 : 25);
    }

    /// The home as it is before the operation. Connected beforehand if the operation disconnects.
    void prepare() {
        std::filesystem::remove_all(home_);
        std::filesystem::remove_all(folder_ / "real");
        std::filesystem::create_directories(paths_.clientFolder());
        old_.reset();
        if (GetParam().before == Before::none) {
            return;
        }
        if (GetParam().before == Before::linked) {
            std::filesystem::create_directories(folder_ / "real");
            std::filesystem::create_symlink("../../real/settings.json", settings_);
        }
        old_ = oldSettings;
        if (GetParam().name == "disconnect") {
            old_->insert(
                1, R"("hooks":{"Stop":[{"hooks":[{"command":"~/Developer/Zorbly/hook/status.sh"}]}]},)"
            );
        }
        writeFile(settings_, *old_);
        std::filesystem::permissions(settings_, std::filesystem::perms(0600));
        hasAttribute_ = ::setxattr(settings_.c_str(), attributeName, "mine", 4, 0) == 0;
    }

    DriverRun run(const Faults& faults) { return driver_.run({home_, script_, GetParam().name, faults}); }

    bool settingsAre(const std::optional<std::string>& wanted) const {
        return std::filesystem::exists(settings_) ? readWhole(settings_) == wanted : !wanted;
    }

    /// What holds after every run that wasn't overtaken by a foreign write.
    void expectWhole(const DriverRun& run) const {
        if (run.status == 0) {
            EXPECT_EQ(readWhole(settings_), new_);
        } else if (run.status == 1) {
            EXPECT_TRUE(settingsAre(old_)) << readWhole(settings_);
            EXPECT_THAT(run.message, HasSubstr("Couldn't " + GetParam().name + ": "));
        } else {
            EXPECT_EQ(run.status, killed);
            EXPECT_TRUE(settingsAre(old_) || settingsAre(new_)) << readWhole(settings_);
        }
        if (old_ && run.status != killed) {
            EXPECT_EQ(modeOf(settings_), 0600U);
            EXPECT_EQ(::getxattr(settings_.c_str(), attributeName, nullptr, 0) >= 0, hasAttribute_);
        }
        for (const auto& name : namesWith(paths_.clientFolder(), "bak-mimkins")) {
            const std::string backup = readWhole(paths_.clientFolder() + "/" + name);
            EXPECT_TRUE(backup == old_ || run.status == killed) << backup;
        }
        EXPECT_EQ(std::filesystem::is_symlink(settings_), GetParam().before == Before::linked);
    }

    void expectTidy() const {
        const std::string real = std::filesystem::weakly_canonical(settings_).parent_path();
        EXPECT_TRUE(namesWith(real, ".tmp").empty());
        if (std::filesystem::exists(paths_.support() + "/hook")) {
            EXPECT_TRUE(namesWith(paths_.support() + "/hook", ".tmp").empty());
        }
    }

    DriverProcess driver_;
    FoldersInMemory inMemory_;
    TemporaryFolder folder_;
    std::string home_ = folder_ / "home";
    Paths paths_{home_};
    std::string settings_ = paths_.clientSettings();
    std::string script_;
    std::optional<std::string> old_;
    std::string new_;
    int calls_ = 0;
    bool hasAttribute_ = false;
};

TEST_P(FaultTest, killedBeforeEachCall) {
    int deaths = 0;
    for (int call = 1; call <= calls_; ++call) {
        SCOPED_TRACE(call);
        prepare();
        const DriverRun run = this->run({{"FAULT_KILL", std::to_string(call)}});
        deaths += run.status == killed ? 1 : 0;
        expectWhole(run);
        // What a dead one leaves is in nobody's way.
        const DriverRun again = this->run({});
        ASSERT_EQ(again.status, 0) << again.message;
        EXPECT_EQ(readWhole(settings_), new_);
    }
    EXPECT_EQ(deaths, calls_);
}

TEST_P(FaultTest, eachCallFailsOnce) {
    for (const int error : {EIO, ENOSPC, EINTR, EACCES}) {
        int failures = 0;
        for (int call = 1; call <= calls_; ++call) {
            SCOPED_TRACE(::testing::Message() << "call " << call << ": " << ::strerror(error));
            prepare();
            const DriverRun run =
                this->run({{"FAULT_FAIL", std::to_string(call)}, {"FAULT_ERRNO", std::to_string(error)}});
            ASSERT_NE(run.status, killed);
            failures += run.status == 1 ? 1 : 0;
            expectWhole(run);
            expectTidy();
        }
        EXPECT_GT(failures, error == EINTR ? 0 : 3) << ::strerror(error);
    }
}

TEST_P(FaultTest, eachWriteFallsShort) {
    int failures = 0;
    for (int call = 1; call <= calls_; ++call) {
        SCOPED_TRACE(call);
        prepare();
        const DriverRun run = this->run({{"FAULT_SHORT", std::to_string(call)}});
        failures += run.status;
        expectWhole(run);
        expectTidy();
    }
    const int scripts = GetParam().name == "connect" ? 1 : 0;
    EXPECT_EQ(failures, scripts + (GetParam().before == Before::none ? 1 : 2));
}

TEST_P(FaultTest, overtakenBeforeEachCall) {
    for (int call = 1; call <= calls_ + 1; ++call) {
        for (const int gap : {0, 1, 2, 4}) {
            SCOPED_TRACE(::testing::Message() << "call " << call << ", again " << gap << " later");
            prepare();
            writeFile(folder_ / "first", foreignSettings);
            writeFile(folder_ / "second", newerForeignSettings);
            const DriverRun run = this->run(
                {{"FAULT_FOREIGN", std::to_string(call)},
                 {"FAULT_AGAIN", gap == 0 ? "0" : std::to_string(call + gap)},
                 {"FAULT_FIRST", folder_ / "first"},
                 {"FAULT_SECOND", folder_ / "second"},
                 {"FAULT_TARGET", std::filesystem::weakly_canonical(settings_)}}
            );
            // The newest version that somebody wrote stands, with or without our entries.
            const bool second = !std::filesystem::exists(folder_ / "second");
            const bool first = !std::filesystem::exists(folder_ / "first");
            auto root = parseSettings(readWhole(settings_));
            strip(root, paths_);
            if (second || first) {
                EXPECT_EQ(
                    serialiseSettings(root), second ? "{\n  \"foreign\": 2\n}\n" : "{\n  \"foreign\": 1\n}\n"
                );
            }
            EXPECT_EQ(run.status, 0) << run.message;
            expectTidy();
        }
    }
}

TEST_P(FaultTest, worksWithoutExchange) {
    prepare();
    const DriverRun run = this->run({{"FAULT_NO_FLAGS", "1"}});
    EXPECT_EQ(run.status, 0);
    expectWhole(run);
    expectTidy();
}

INSTANTIATE_TEST_SUITE_P(
    Operations, FaultTest,
    ::testing::Values(
        Operation{"connect", Before::plain}, Operation{"connect", Before::none},
        Operation{"disconnect", Before::linked}
    )
);

class FullDiskTest : public FaultTest {};

TEST_P(FullDiskTest, atEverySize) {
    int size = 0;
    DriverRun run{1, 0, ""};
    for (; run.status != 0 && size < 20'000; ++size) {
        SCOPED_TRACE(size);
        prepare();
        run = this->run({{"FAULT_FULL", std::to_string(size)}});
        expectWhole(run);
        expectTidy();
    }
    EXPECT_GT(size, static_cast<int>(new_.size() + oldSettings.size()));
    EXPECT_LT(size, 20'000);
}

INSTANTIATE_TEST_SUITE_P(
    Operations, FullDiskTest,
    ::testing::Values(Operation{"connect", Before::plain}, Operation{"disconnect", Before::linked})
);

} // namespace

} // namespace mimkins::test
