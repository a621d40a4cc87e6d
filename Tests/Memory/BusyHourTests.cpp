#include "Platform/Linux/LinuxFileSystem.h"
#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "SessionStore/SessionStore.h"
#include "Support/FakeProcesses.h"
#include "Support/ManualFolderWatcher.h"
#include "Support/ManualRunLoop.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

// An hour of ten busy sessions leaves the memory of the store and its readers where it was.

using namespace mimkins;
using namespace mimkins::test;

namespace {

constexpr int sessions = 10;
constexpr int warmUpSeconds = 300;
constexpr int seconds = 3'600;
/// Every few seconds one session writes a turn of so many lines.
constexpr int secondsPerTurn = 4;
constexpr int linesPerTurn = 1'120;
static_assert(seconds / secondsPerTurn * linesPerTurn >= 1'000'000);

/// A repository that is clean but for its first few looks: who has made changes is looked for in all
/// transcripts, which takes long once they have grown. It keeps no record of what it is asked.
class ChangedRepository final : public GitRunner {
public:
    std::optional<std::string>
    run(const std::vector<std::string>& arguments, const std::string&, GitFailure) const override {
        const auto has = [&](const char* word) {
            return std::find(arguments.begin(), arguments.end(), word) != arguments.end();
        };
        if (has("--shortstat")) {
            return ++looks_ <= changedLooks ? " 1 file changed, 2 insertions(+)" : "";
        }
        if (has("--name-only") && has("-z")) {
            return looks_ <= changedLooks ? std::string("Sources/main.cpp\0", 17) : "";
        }
        return has("symbolic-ref") ? "main\n" : "";
    }

private:
    static constexpr int changedLooks = 4;
    mutable int looks_ = 0;
};

/// Bytes of this process in memory, after giving back what is free.
std::int64_t residentBytes() {
    ::malloc_trim(0);
    std::ifstream file("/proc/self/statm");
    std::int64_t all = 0;
    std::int64_t resident = 0;
    file >> all >> resident;
    return resident * ::sysconf(_SC_PAGESIZE);
}

/// Ten sessions that work by turns, as their clients write it down.
class BusyHour {
public:
    BusyHour() {
        for (int session = 0; session < sessions; ++session) {
            const int pid = 100 + session;
            processes.processes[pid] = {1, loop.now(), "client", std::nullopt, false};
            processes.processes[200 + session] = {pid, loop.now(), "sleep", std::nullopt, true};
            writeFile(
                paths.clientRegistry() + "/" + std::to_string(pid) + ".json",
                R"({"pid":)" + std::to_string(pid) + R"(,"sessionId":")" + id(session) +
                    R"(","status":"idle","cwd":"/home/kim/shop","startedAt":)" + milliseconds() +
                    R"(,"statusUpdatedAt":)" + milliseconds() + "}"
            );
            turn(session);
        }
        store = std::make_unique<SessionStore>(
            paths, SessionStoreServices{loop, files, watcher, processes, git, transcripts, checks, scans}
        );
        store->sessionsChanged().connect([this] { ++publications; });
    }

    /// A second, in some of which a session writes a turn and its hook the new state.
    void second(int number) {
        if (number % secondsPerTurn == 0) {
            turn(number / secondsPerTurn % sessions);
            watcher.change(paths.sessions());
        }
        loop.advance(1);
        checks.run();
        scans.run();
        loop.drain();
        backgroundResults += static_cast<int>(store->background().size());
        if (number % 600 == 200) {
            store->runSweep();
        }
    }

    static std::string id(int session) {
        return "1c8daa90-88e5-4081-a7da-00000000000" + std::to_string(session);
    }

    int publications = 0;
    /// Sessions with work in the background, added up over the seconds.
    int backgroundResults = 0;
    std::int64_t lines = 0;

private:
    std::string milliseconds() const {
        return std::to_string(static_cast<std::int64_t>(loop.now().milliseconds()));
    }

    std::string folder(int session) const {
        return paths.clientProjects() + "/-home-kim-shop/" + id(session);
    }

    /// Gives a file the time of the hand-cranked clock.
    void stamp(const std::string& path) const {
        const double whole = std::floor(loop.now().milliseconds() / 1'000);
        const timespec time{static_cast<time_t>(whole), 0};
        const std::array<timespec, 2> times{time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times.data(), 0), 0);
    }

    std::string line(const char* type, const std::string& content, const char* end) const {
        return R"({"type":")" + std::string(type) +
               R"(","timestamp":"2026-11-21T07:30:44.681Z","message":{)" + R"("model":"claude-opus-4-8",)" +
               end + R"("content":[)" + content + "]}}\n";
    }

    std::string call(const std::string& id, const char* end) const {
        return line(
            "assistant",
            R"({"type":"tool_use","id":"toolu_)" + id + R"(","name":"Bash","input":{"command":"make"}})", end
        );
    }

    std::string result(const std::string& id, const std::string& words) const {
        return line(
            "user",
            R"({"type":"tool_result","tool_use_id":"toolu_)" + id + R"(","content":")" + words + "\"}", ""
        );
    }

    /// Half of the sessions have subagents at work; the others rest after every other turn, and a command of
    /// theirs goes on in the background.
    static bool hasSubagents(int session) { return session % 2 == 0; }

    void turn(int session) {
        const int number = ++turns_;
        const auto task = "b" + std::to_string(session) + "x" + std::to_string(number);
        std::string text;
        const auto add = [&](const std::string& written) {
            text += written;
            ++lines;
        };
        // Now and then a command goes to the background, and the one before it ends.
        if (number / sessions % 3 == 0) {
            add(line(
                "user",
                R"({"type":"text","text":"<task-id>)" + lastTask_.at(static_cast<std::size_t>(session)) +
                    R"(</task-id> <status>completed</status>"})",
                ""
            ));
            add(result(task, "Command running in background with ID: " + task + ". Output"));
            lastTask_.at(static_cast<std::size_t>(session)) = task;
        }
        for (int index = 0; 2 * index < linesPerTurn; ++index) {
            const auto name = task + "n" + std::to_string(index);
            add(call(name, ""));
            add(result(name, "All tests passed"));
        }
        add(line("assistant", R"({"type":"text","text":"Done."})", R"("stop_reason":"end_turn",)"));
        const auto transcript = folder(session) + ".jsonl";
        std::filesystem::create_directories(folder(session) + "/subagents");
        std::ofstream(transcript, std::ios::binary | std::ios::app) << text;
        stamp(transcript);
        if (hasSubagents(session)) {
            subagent(session, number);
        }
        status(session, number);
    }

    /// Every few minutes another subagent works for the session, and the one before is gone.
    void subagent(int session, int number) {
        const int generation = number / (10 * sessions);
        const auto stem = folder(session) + "/subagents/agent-" + std::to_string(generation);
        std::error_code ignored;
        std::filesystem::remove(
            folder(session) + "/subagents/agent-" + std::to_string(generation - 2) + ".jsonl", ignored
        );
        std::filesystem::remove(
            folder(session) + "/subagents/agent-" + std::to_string(generation - 2) + ".meta.json", ignored
        );
        writeFile(stem + ".meta.json", R"({"agentType":"general-purpose","description":"Look around"})");
        std::ofstream(stem + ".jsonl", std::ios::binary | std::ios::app)
            << call("s" + std::to_string(number), "");
        stamp(stem + ".jsonl");
    }

    void status(int session, int number) {
        const auto hidden = paths.sessions() + "/." + id(session);
        writeFile(
            hidden, R"({"state":")" + std::string(number / sessions % 2 == 0 ? "working" : "done") +
                        R"(","since":)" + milliseconds() + R"(,"ts":)" + milliseconds() + R"(,"id":")" +
                        id(session) +
                        R"(","event":"Stop","cwd":"/home/kim/shop","project":"shop","detail":"turn )" +
                        std::to_string(number) + R"(","transcript":")" + folder(session) + ".jsonl\"}"
        );
        std::filesystem::rename(hidden, paths.sessions() + "/" + id(session) + ".json");
    }

    TemporaryFolder home_;
    int turns_ = 0;
    std::array<std::string, sessions> lastTask_;

    Paths paths{home_.path()};
    ManualRunLoop loop;
    LinuxFileSystem files;
    LinuxRandomAccessFiles transcripts;
    FakeProcesses processes;
    ChangedRepository git;
    ManualFolderWatcher watcher;
    ManualWorkQueue checks;
    ManualWorkQueue scans;

public:
    std::unique_ptr<SessionStore> store;
};

} // namespace

TEST(Memory, ABusyHourGrowsItByLessThanAMebibyte) {
    BusyHour hour;
    int number = 0;
    while (number < warmUpSeconds) {
        hour.second(++number);
    }
    const auto before = residentBytes();
    const auto linesBefore = hour.lines;
    while (number < warmUpSeconds + seconds) {
        hour.second(++number);
    }
    const auto growth = residentBytes() - before;
    RecordProperty("growth", std::to_string(growth));

    // The hour was busy, and all of it was seen.
    EXPECT_GE(hour.lines - linesBefore, 1'000'000);
    EXPECT_GE(hour.publications, seconds / secondsPerTurn / 2);
    EXPECT_EQ(hour.store->sessions().size(), std::size_t{sessions});
    EXPECT_EQ(hour.store->subtasks().size(), std::size_t{sessions / 2});
    EXPECT_GE(hour.backgroundResults, seconds / secondsPerTurn / sessions);
    EXPECT_TRUE(hour.store->sweep());

    EXPECT_LT(growth, 1 << 20);
}
