#include "Background/BackgroundScanner.h"
#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "Platform/Linux/ThreadQueue.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <string>
#include <thread>
#include <vector>

// Reading what a transcript has grown by: at least 5 GB/s warm with AVX2 and 1 GB/s without, and never behind
// ripgrep counting the lines with a marker. Benchmarks/scan prints the figures of one run side by side.
//
// Each benchmark gives two speeds. "bytes_per_second" is by processor time of all threads, so that others on
// the machine lengthen none of them; "wall" is by the clock, which is what two threads can shorten.
//
// The transcript is made afresh in a folder that goes away. MIMKINS_BENCH_MEGABYTES sets its size.

namespace {

using namespace mimkins;

/// Source text as tool results quote it, escaped for JSON.
const std::vector<std::string>& quotedSources() {
    static const std::vector<std::string> sources = [] {
        std::vector<std::string> result;
        const std::filesystem::path folder = MIMKINS_SOURCE_DIR "/Sources";
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            const auto extension = entry.path().extension();
            // The sources of this very search are full of its markers, as no other project's are.
            if ((extension != ".cpp" && extension != ".h") ||
                entry.path().parent_path().filename() == "Background") {
                continue;
            }
            std::string quoted;
            std::ifstream file(entry.path(), std::ios::binary);
            for (char character = 0; file.get(character);) {
                if (character == '\n') {
                    quoted += "\\n";
                } else if (character == '"' || character == '\\') {
                    quoted += std::string{'\\', character};
                } else {
                    quoted += character;
                }
            }
            result.push_back(quoted);
        }
        return result;
    }();
    return sources;
}

std::string record(const std::string& type, const std::string& content, std::size_t number) {
    return R"({"parentUuid":"44291bf6-599e-4208-8408-c134a0801371","isSidechain":false,"type":")" + type +
           R"(","message":{"role":")" + type + R"(","content":[)" + content +
           R"(]},"uuid":"92c9576a-2535-4dba-8159-)" + std::to_string(100'000'000 + number) +
           R"(","timestamp":"2026-11-21T07:30:44.681Z","cwd":"/home/kim/shop","version":"2.1.0",)" +
           R"("sessionId":"1c8daa90-88e5-4081-a7da-79023bf2a85c"})" + "\n";
}

std::string toolCall(const std::string& name, const std::string& input, std::size_t number) {
    return record(
        "assistant",
        R"({"type":"tool_use","id":"toolu_01A09q90qw90lq)" + std::to_string(number) + R"(","name":")" + name +
            R"(","input":{)" + input + "}}",
        number
    );
}

std::string toolResult(const std::string& content, std::size_t number) {
    return record(
        "user",
        R"({"tool_use_id":"toolu_01A09q90qw90lq)" + std::to_string(number) +
            R"(","type":"tool_result","content":")" + content + R"("})",
        number
    );
}

/// One turn: words, a command, a file that is read; every 20th sends a command to the background or schedules
/// a task, and later hears of its end.
std::string turn(std::size_t number) {
    const auto& sources = quotedSources();
    const std::string id = "b" + std::to_string(number);
    std::string lines =
        record(
            "assistant", R"({"type":"text","text":"Let me look at how the session store is built."})", number
        ) +
        toolCall(
            "Bash", R"("command":"ninja -C build && ctest","description":"Build and run the tests")", number
        ) +
        toolResult("[12/12] Linking CXX executable test_Session\\n100% tests passed", number) +
        toolCall("Read", R"("file_path":"/home/kim/shop/Sources/Session.cpp")", number) +
        toolResult(sources[number % sources.size()], number);
    switch (number % 100) {
    case 0:
        lines += toolResult(
            "Command running in background with ID: " + id + ". Output is being written to: /tmp", number
        );
        break;
    case 20:
        lines += toolCall(
            "CronCreate", R"("cron":"30 14 2 12 *","prompt":"Check the build","recurring":false)", number
        );
        break;
    case 40:
        lines += toolResult("Scheduled one-shot task dd7039ef (30 14 2 12 *). Session-only", number);
        break;
    case 60:
        lines += record(
            "user", "\"<task-notification>\\n<task-id>" + id + "</task-id>\\n<status>completed</status>\"",
            number
        );
        break;
    case 80:
        lines += toolCall("KillShell", R"("shell_id":")" + id + "\"", number);
        break;
    default:
        break;
    }
    return lines;
}

/// A transcript that has grown: its first line was read before.
class Transcript {
public:
    Transcript() {
        std::string pattern = (std::filesystem::temp_directory_path() / "mimkins-bench-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        const char* wanted = std::getenv("MIMKINS_BENCH_MEGABYTES");
        const std::size_t size = (wanted != nullptr ? std::stoul(wanted) : 300) * 1'000'000;
        std::ofstream file(path(), std::ios::binary);
        file << first();
        grown_ = 0;
        for (std::size_t number = 0; grown_ < size; ++number) {
            const std::string lines = turn(number);
            file << lines;
            grown_ += lines.size();
        }
    }

    Transcript(const Transcript&) = delete;
    Transcript& operator=(const Transcript&) = delete;

    ~Transcript() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    static const Transcript& shared() {
        static const Transcript transcript;
        return transcript;
    }

    static std::string first() { return "{\"type\":\"summary\"}\n"; }

    std::string path() const { return folder_ + "/transcript.jsonl"; }

    /// Bytes behind the first line.
    std::size_t grown() const { return grown_; }

private:
    std::string folder_;
    std::size_t grown_ = 0;
};

double seconds(const timespec& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// A moment by two clocks, in seconds.
struct Moment {
    double processor = 0; ///< the time that all threads of this process have taken so far
    double wall = 0;

    static Moment now() {
        timespec processor{};
        timespec wall{};
        ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &processor);
        ::clock_gettime(CLOCK_MONOTONIC, &wall);
        return {seconds(processor), seconds(wall)};
    }
};

/// The speeds at which a benchmark goes through the transcript.
class Speeds {
public:
    explicit Speeds(benchmark::State& state) : state_(state) {}

    Speeds(const Speeds&) = delete;
    Speeds& operator=(const Speeds&) = delete;

    ~Speeds() {
        const auto bytes = state_.iterations() * static_cast<std::int64_t>(Transcript::shared().grown());
        state_.SetBytesProcessed(bytes);
        state_.counters["wall"] = wall_ > 0 ? static_cast<double>(bytes) / wall_ : 0; // bytes per second
    }

    void add(double processor, double wall) {
        state_.SetIterationTime(processor);
        wall_ += wall;
    }

    /// An iteration that began then and ends now.
    void addSince(const Moment& begin) {
        const auto end = Moment::now();
        add(end.processor - begin.processor, end.wall - begin.wall);
    }

private:
    benchmark::State& state_;
    double wall_ = 0; ///< seconds of all iterations
};

void scan(benchmark::State& state, const BackgroundScanner::Options& options) {
    const auto& transcript = Transcript::shared();
    const LinuxRandomAccessFiles files;
    BackgroundScanner scanner(files, options);
    Speeds speeds(state);
    for (auto _ : state) {
        Tally tally;
        tally.offset = Transcript::first().size();
        const auto begin = Moment::now();
        scanner.read(transcript.path(), Date{1'795'248'000}, tally);
        speeds.addSince(begin);
        if (tally.started.empty() || tally.offset != Transcript::first().size() + transcript.grown()) {
            state.SkipWithError("the transcript was not read");
        }
    }
}

/// By one thread.
void scanAlone(benchmark::State& state, MarkerSearch search) {
    BackgroundScanner::Options options;
    options.search = search;
    scan(state, options);
}

/// As in the application, which shares the reading on a machine with several processors.
void scanShared(benchmark::State& state) {
    SerialQueue helper("scan helper");
    BackgroundScanner::Options options;
    options.shared.queue = std::thread::hardware_concurrency() > 1 ? &helper : nullptr;
    scan(state, options);
}

void scanWithAvx2(benchmark::State& state) {
    if (!processorHasAvx2()) {
        state.SkipWithError("this processor has no AVX2");
        return;
    }
    scanAlone(state, &findMarkersWithAvx2);
}

void scanPortably(benchmark::State& state) {
    scanAlone(state, &findMarkersPortably);
}

constexpr std::size_t pageSize = 4'096;

/// The part of some memory that begins with a page, as that of the scanner does.
std::span<char> wholePages(std::vector<char>& memory) {
    void* begin = memory.data();
    std::size_t size = memory.size();
    std::align(pageSize, memory.size() - pageSize, begin, size);
    return {static_cast<char*>(begin), memory.size() - pageSize};
}

/// The same reads, and nothing but newlines looked for.
void countNewlines(benchmark::State& state) {
    const auto& transcript = Transcript::shared();
    const LinuxRandomAccessFiles files;
    std::vector<char> memory(BackgroundScanner::Options{}.blockSize + pageSize);
    const auto buffer = wholePages(memory);
    Speeds speeds(state);
    for (auto _ : state) {
        const auto begin = Moment::now();
        const auto file = files.open(transcript.path());
        std::size_t newlines = 0;
        std::uint64_t position = Transcript::first().size();
        while (const auto count = file->read(position, buffer).value_or(0)) {
            const char* end = buffer.data() + count;
            for (const char* from = buffer.data(); from != end; ++newlines) {
                const void* found = std::memchr(from, '\n', static_cast<std::size_t>(end - from));
                if (found == nullptr) {
                    break;
                }
                from = static_cast<const char*>(found) + 1;
            }
            position += count;
        }
        benchmark::DoNotOptimize(newlines);
        speeds.addSince(begin);
    }
}

/// The same reads alone.
void readOnly(benchmark::State& state) {
    const auto& transcript = Transcript::shared();
    const LinuxRandomAccessFiles files;
    std::vector<char> memory(BackgroundScanner::Options{}.blockSize + pageSize);
    const auto buffer = wholePages(memory);
    Speeds speeds(state);
    for (auto _ : state) {
        const auto begin = Moment::now();
        const auto file = files.open(transcript.path());
        std::uint64_t position = Transcript::first().size();
        while (const auto count = file->read(position, buffer).value_or(0)) {
            position += count;
        }
        benchmark::DoNotOptimize(position);
        speeds.addSince(begin);
    }
}

/// The words of `rg -c -F` with the eight markers.
std::vector<std::string> ripgrepWords(const char* mode) {
    std::vector<std::string> words{"rg", "-c", "-F", "--no-config", mode};
    for (const auto marker : markerBytes) {
        words.insert(words.end(), {"-e", std::string(marker)});
    }
    words.push_back(Transcript::shared().path());
    return words;
}

/// From the start of the program to its end.
void ripgrep(benchmark::State& state, const char* mode) {
    auto words = ripgrepWords(mode);
    std::vector<char*> arguments;
    for (auto& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    Speeds speeds(state);
    for (auto _ : state) {
        pid_t child = 0;
        int status = -1;
        rusage usage{};
        const double begin = Moment::now().wall;
        if (::posix_spawnp(&child, "rg", &actions, nullptr, arguments.data(), environ) != 0 ||
            ::wait4(child, &status, 0, &usage) != child || status != 0) {
            state.SkipWithError("rg could not be run");
            break;
        }
        speeds.add(seconds(usage.ru_utime) + seconds(usage.ru_stime), Moment::now().wall - begin);
    }
    ::posix_spawn_file_actions_destroy(&actions);
}

void ripgrepMapping(benchmark::State& state) {
    ripgrep(state, "--mmap");
}

void ripgrepReading(benchmark::State& state) {
    ripgrep(state, "--no-mmap");
}

/// A transcript that hasn't changed.
void rescan(benchmark::State& state) {
    const auto& transcript = Transcript::shared();
    const LinuxRandomAccessFiles files;
    BackgroundScanner scanner(files);
    scanner.scan(transcript.path(), Date{0}, Date{1});
    for (auto _ : state) {
        benchmark::DoNotOptimize(scanner.scan(transcript.path(), Date{0}, Date{1}));
    }
}

} // namespace

BENCHMARK(scanShared)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(scanWithAvx2)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(scanPortably)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(readOnly)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(countNewlines)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ripgrepMapping)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ripgrepReading)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(rescan)->Unit(benchmark::kMicrosecond);
