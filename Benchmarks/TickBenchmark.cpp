#include "RecordedTranscript.h"
#include "RunningStore.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

// A busy user's tick: 50 sessions, 100 running subtasks and 5 repositories take at most 8 ms of the main
// thread's processor time. Files, processes and repositories are real.

using namespace mimkins;

namespace {

constexpr int sessionCount = 50;
constexpr int repositoryCount = 5;

/// Every fifth session is at rest; the others work.
constexpr bool rests(int session) {
    return session % 5 == 0;
}

/// Two or three for a session at work, which makes a hundred in all.
constexpr int subtasksOf(int session) {
    return rests(session) ? 0 : session % 5 < 3 ? 2 : 3;
}

/// A process that does nothing until the object goes.
class Sleeper {
public:
    Sleeper() {
        std::string program = "sleep";
        std::string seconds = "3600";
        const std::array<char*, 3> arguments{program.data(), seconds.data(), nullptr};
        if (::posix_spawnp(&pid_, "sleep", nullptr, nullptr, arguments.data(), environ) != 0) {
            std::abort();
        }
    }

    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;

    ~Sleeper() {
        ::kill(pid_, SIGTERM);
        ::waitpid(pid_, nullptr, 0);
    }

    pid_t pid() const { return pid_; }

private:
    pid_t pid_ = 0;
};

std::string milliseconds() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void touch(const std::string& path) {
    ::utimensat(AT_FDCWD, path.c_str(), nullptr, 0);
}

/// A throw-away home of a user with that much going on.
class BusyHome {
public:
    BusyHome() : sleepers_(sessionCount) {
        std::string pattern = (std::filesystem::temp_directory_path() / "mimkins-bench-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        const std::string transcript = recordedTranscript();
        std::filesystem::create_directories(paths().sessions());
        std::filesystem::create_directories(paths().clientRegistry());
        for (int number = 0; number < repositoryCount; ++number) {
            makeRepository(repository(number));
        }
        for (int number = 0; number < sessionCount; ++number) {
            std::filesystem::create_directories(subagents(number));
            std::ofstream(ownTranscript(number), std::ios::binary) << transcript;
            for (int subtask = 0; subtask < subtasksOf(number); ++subtask) {
                const auto stem = subagents(number) + "/agent-a" + std::to_string(subtask);
                std::ofstream(stem + ".meta.json")
                    << R"({"agentType":"general-purpose","description":"Look around"})";
                std::ofstream(stem + ".jsonl", std::ios::binary) << transcript;
            }
            writeStatus(number);
            writeRegistry(number);
        }
    }

    BusyHome(const BusyHome&) = delete;
    BusyHome& operator=(const BusyHome&) = delete;

    ~BusyHome() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    Paths paths() const { return Paths(folder_); }

    /// What clients do in a second: one session in ten writes to its transcript.
    void work(int second) const {
        for (int number = second % 10; number < sessionCount; number += 10) {
            touch(ownTranscript(number));
        }
    }

private:
    static std::string id(int number) { return "3f2b8c1e-session-" + std::to_string(number); }

    std::string repository(int number) const { return folder_ + "/shop-" + std::to_string(number); }

    /// Sessions at rest stand in each repository, so that all of them are looked at.
    std::string workingFolder(int number) const { return repository(number / 5 % repositoryCount); }

    std::string project(int number) const {
        return folder_ + "/.claude/projects/-shop-" + std::to_string(number / 5 % repositoryCount);
    }

    std::string ownTranscript(int number) const { return project(number) + "/" + id(number) + ".jsonl"; }

    std::string subagents(int number) const { return project(number) + "/" + id(number) + "/subagents"; }

    void makeRepository(const std::string& path) const {
        std::filesystem::create_directories(path);
        const std::string command =
            "cd '" + path +
            "' && git init -q && echo one >file && git add file && git -c user.name=kim "
            "-c user.email=kim@localhost commit -q -m one && echo two >file";
        if (std::system(command.c_str()) !=
            0) { // NOLINT(cert-env33-c): a fixed command in a throw-away folder
            std::abort();
        }
    }

    void writeStatus(int number) const {
        std::ofstream(paths().sessions() + "/" + id(number) + ".json")
            << R"({"state":")" << (rests(number) ? "done" : "working") << R"(","since":)" << milliseconds()
            << R"(,"ts":)" << milliseconds() << R"(,"id":")" << id(number) << R"(","event":"PreToolUse",)"
            << R"("tool":"Bash","detail":"make test","project":"shop","cwd":")" << workingFolder(number)
            << R"(","transcript":")" << ownTranscript(number) << "\"}\n";
    }

    void writeRegistry(int number) const {
        const auto pid = std::to_string(sleepers_[static_cast<std::size_t>(number)].pid());
        std::ofstream(paths().clientRegistry() + "/" + pid + ".json")
            << R"({"pid":)" << pid << R"(,"sessionId":")" << id(number) << R"(","status":")"
            << (rests(number) ? "idle" : "busy") << R"(","cwd":")" << workingFolder(number)
            << R"(","startedAt":)" << milliseconds() << R"(,"statusUpdatedAt":)" << milliseconds() << "}";
    }

    std::string folder_;
    std::vector<Sleeper> sleepers_;
};

double processorMilliseconds() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
}

double median(std::vector<double>& values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

/// Each source has its own pace, so ticks differ: after 30 they repeat. Beside the mean of all, the counters
/// give the median of those that look at everything but the desktop's metadata, which is every sixth.
void busyTick(benchmark::State& state) {
    static const BusyHome home;
    RunningStore running(home.paths());
    running.store.refreshAll();
    running.loop.runUntil(
        [&] { return running.store.repositories().repoChanges.size() == repositoryCount; }, 10
    );
    std::vector<double> full;
    int second = 0;
    for (auto _ : state) {
        home.work(++second);
        const double begin = processorMilliseconds();
        running.store.tick();
        const double taken = processorMilliseconds() - begin;
        state.SetIterationTime(taken / 1e3);
        if (second % 6 == 0) {
            full.push_back(taken);
        }
        running.loop.runFor(0); // Results come back from the queues, as they would between two ticks.
    }
    std::size_t subtasks = 0;
    for (const auto& [id, list] : running.store.subtasks()) {
        subtasks += static_cast<std::size_t>(std::count_if(list.begin(), list.end(), [](const Subtask& task) {
            return task.running;
        }));
    }
    state.counters["sessions"] = static_cast<double>(running.store.sessions().size());
    state.counters["running_subtasks"] = static_cast<double>(subtasks);
    state.counters["repositories"] = static_cast<double>(running.store.repositories().repoChanges.size());
    state.counters["full_tick_ms"] = median(full);
    state.counters["longest_ms"] = full.empty() ? 0 : full.back();
}

} // namespace

BENCHMARK(busyTick)->UseManualTime()->Unit(benchmark::kMillisecond);
