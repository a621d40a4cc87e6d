// A real tracer kills the installer at each system call that the kernel sees, those that the C library makes
// on its own account included.

#include "HookInstaller/InstallerTest.h"
#include "HookInstaller/TracedCalls.h"

#include <csignal>

namespace mimkins::test {

namespace {

class KilledTest : public InstallerTest, public ::testing::WithParamInterface<const char*> {
protected:
    static constexpr const char* oldSettings = "{\"mine\":1}";

    void prepare() const {
        std::filesystem::remove_all(paths.clientFolder());
        std::filesystem::remove_all(folder / "Library");
        write(oldSettings);
    }

    TracedCalls traced{{MIMKINS_HOOK_DRIVER, folder.path(), bundled, GetParam()}, folder / "trace"};
};

TEST_P(KilledTest, atEachSystemCall) {
    prepare();
    const auto clean = traced.run({});
    if (clean.status != 0) {
        GTEST_SKIP() << "programs can't be traced here: " << clean.errors;
    }
    const std::string newSettings = read();
    int deaths = 0;
    const auto all = traced.calls();
    for (const auto& call : all) {
        SCOPED_TRACE(call.name + " " + std::to_string(call.ordinal));
        prepare();
        const auto run = traced.runKilledAt(call);
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
