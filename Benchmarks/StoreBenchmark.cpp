#include "RunningStore.h"
#include "SessionStore/StatusReader.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

using namespace mimkins;

namespace {

/// A throw-away home with so many sessions at work.
class Home {
public:
    explicit Home(int sessions) {
        std::string pattern = (std::filesystem::temp_directory_path() / "mimkins-bench-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        std::filesystem::create_directories(paths().sessions());
        for (int number = 0; number < sessions; ++number) {
            write(number, "working");
        }
    }

    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

    ~Home() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    Paths paths() const { return Paths(folder_); }

    /// Writes a session's status file as the hook does: hidden first, then renamed.
    void write(int number, const std::string& state) const {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        const auto ts = std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
        const auto id = "3f2b8c1e-session-" + std::to_string(number);
        const auto hidden = paths().sessions() + "/." + id;
        std::ofstream(hidden
        ) << R"({"state":")"
          << state << R"(","since":)" << ts << R"(,"id":")" << id
          << R"(","event":"PreToolUse","tool":"Bash","detail":"make test","cwd":"/home/kim/shop","project":"shop",)"
          << R"("transcript":"/home/kim/.claude/projects/-home-kim-shop/)" << id
          << R"(.jsonl","effort":"high",)"
          << R"("model":"claude-opus-4-8","ts":)" << ts << "}\n";
        std::filesystem::rename(hidden, paths().sessions() + "/" + id + ".json");
    }

private:
    std::string folder_;
};

/// The reference for reading: the same files, only opened and read.
void readFilesAlone(benchmark::State& state) {
    const Home home(static_cast<int>(state.range(0)));
    const LinuxFileSystem files;
    const auto folder = home.paths().sessions();
    for (auto _ : state) {
        for (const auto& name : files.list(folder)) {
            benchmark::DoNotOptimize(files.readFile(folder + "/" + name, 1 << 20));
        }
    }
}

void readAndParse(benchmark::State& state) {
    const Home home(static_cast<int>(state.range(0)));
    const LinuxFileSystem files;
    for (auto _ : state) {
        benchmark::DoNotOptimize(readStatusRecords(files, {home.paths().sessions()}));
    }
}

void readDeriveAndPublish(benchmark::State& state) {
    const Home home(static_cast<int>(state.range(0)));
    RunningStore running(home.paths());
    for (auto _ : state) {
        running.store.reloadRecords();
    }
    state.counters["sessions"] = static_cast<double>(running.store.sessions().size());
}

void rebuildAlone(benchmark::State& state) {
    const Home home(static_cast<int>(state.range(0)));
    RunningStore running(home.paths());
    for (auto _ : state) {
        running.store.rebuild(false);
    }
}

void tick(benchmark::State& state) {
    const Home home(static_cast<int>(state.range(0)));
    RunningStore running(home.paths());
    for (auto _ : state) {
        running.store.tick();
    }
}

/// From the rename of a status file to the published list, through the real watcher. The store waits a tenth
/// of a second by design, so that a burst costs one reading; what is above that is ours.
void eventToPublishedList(benchmark::State& state) {
    const Home home(static_cast<int>(state.range(0)));
    RunningStore running(home.paths());
    bool published = false;
    running.store.sessionsChanged().connect([&published] { published = true; });
    bool waiting = false;
    for (auto _ : state) {
        waiting = !waiting;
        published = false;
        const auto begin = std::chrono::steady_clock::now();
        home.write(0, waiting ? "waiting" : "working");
        running.loop.runUntil([&published] { return published; }, 5);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
        state.SetIterationTime(taken.count());
    }
}

} // namespace

BENCHMARK(readFilesAlone)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(readAndParse)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(readDeriveAndPublish)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(rebuildAlone)->Arg(50)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(tick)->Arg(50)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(eventToPublishedList)
    ->Arg(10)
    ->Arg(1000)
    ->UseManualTime()
    ->Iterations(30)
    ->Unit(benchmark::kMillisecond);
