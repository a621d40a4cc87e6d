// A real tracer kills the installer at each system call that the kernel sees, those that the C library makes
// on its own account included.

#include "HookInstaller/InstallerTest.h"
#include "Support/RunProgram.h"

#include <csignal>
#include <map>
#include <sstream>

namespace mimkins::test {

namespace {

struct SystemCall {
    std::string name;
    /// The how-manieth of its name since the program started.
    int ordinal = 0;
};

class KilledTest : public InstallerTest, public ::testing::WithParamInterface<const char*> {
protected:
    static constexpr const char* oldSettings = "{\"mine\":1}";

    ProgramResult trace(std::vector<std::string> options) const {
        std::vector<std::string> words{"strace", "-o", folder / "trace"};
        words.insert(words.end(), options.begin(), options.end());
        words.insert(words.end(), {MIMKINS_HOOK_DRIVER, folder.path(), bundled, GetParam()});
        return runProgram({words, {}, "", ""});
    }

    void prepare() const {
        std::filesystem::remove_all(paths.clientFolder());
        std::filesystem::remove_all(folder / "Library");
        write(oldSettings);
    }

    /// The system calls of the operation itself, from a whole run.
    std::vector<SystemCall> calls() const {
        std::istringstream lines(readWhole(folder / "trace"));
        std::map<std::string, int> counts;
        std::vector<SystemCall> result;
        bool begun = false;
        for (std::string line; std::getline(lines, line);) {
            const std::string name = line.substr(0, line.find('('));
            if (name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_") != std::string::npos) {
                continue;
            }
            const int ordinal = ++counts[name];
            if (begun && name != "exit_group") {
                result.push_back({name, ordinal});
            }
            begun = begun || line.find("operation-begins") != std::string::npos;
        }
        return result;
    }
};

TEST_P(KilledTest, atEachSystemCall) {
    prepare();
    const auto clean = trace({});
    if (clean.status != 0) {
        GTEST_SKIP() << "programs can't be traced here: " << clean.errors;
    }
    const std::string newSettings = read();
    int deaths = 0;
    const auto all = calls();
    for (const auto& call : all) {
        SCOPED_TRACE(call.name + " " + std::to_string(call.ordinal));
        prepare();
        const auto run = trace(
            {"-e", "trace=" + call.name, "-e",
             "inject=" + call.name + ":signal=SIGKILL:when=" + std::to_string(call.ordinal)}
        );
        deaths += run.status == 128 + SIGKILL ? 1 : 0;
        const std::string text = read();
        EXPECT_TRUE(text == oldSettings || text == newSettings) << text;
        for (const auto& name : backups()) {
            const std::string backup = readWhole(paths.clientFolder() + "/" + name);
            EXPECT_TRUE(backup == oldSettings || text == oldSettings) << backup;
        }
    }
    EXPECT_GT(all.size(), 30U);
    EXPECT_EQ(deaths, static_cast<int>(all.size()));
}

INSTANTIATE_TEST_SUITE_P(Operations, KilledTest, ::testing::Values("connect", "disconnect"));

} // namespace

} // namespace mimkins::test
