#include "Platform/Linux/LinuxFileSystem.h"
#include "RecordedTranscript.h"
#include "Subtask/SubtaskReader.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

// The end of a transcript: at most 60 microseconds to read and parse 64 KiB.

namespace {

using namespace mimkins;

/// A folder with one transcript longer than the tail.
class Transcript {
public:
    explicit Transcript(const std::string& text) {
        std::string pattern = (std::filesystem::temp_directory_path() / "mimkins-bench-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        std::ofstream(path(), std::ios::binary) << text;
        std::ofstream(folder_ + "/agent-a1.meta.json")
            << R"({"agentType": "general-purpose", "description": "Look around", "spawnDepth": 1})";
    }

    Transcript(const Transcript&) = delete;
    Transcript& operator=(const Transcript&) = delete;

    ~Transcript() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::string path() const { return folder_ + "/agent-a1.jsonl"; }

private:
    std::string folder_;
};

std::string head(int number, const char* type) {
    return R"({"parentUuid":"44291bf6-599e-4208-8408-c134a0801371","isSidechain":true,"agentId":"a1","type":")" +
           std::string(type) + R"(","uuid":"92c9576a-2535-4dba-8159-)" + std::to_string(100'000 + number) +
           R"(","timestamp":"2026-11-21T07:30:44.681Z","cwd":"/home/kim/shop","version":"2.1.0",)" +
           R"("sessionId":"1c8daa90-88e5-4081-a7da-79023bf2a85c","message":)";
}

/// One call and its result, which is `resultLines` lines of source text that need escapes here and there.
std::string turn(int number, int resultLines, const std::string& sourceLine) {
    const std::string id = "toolu_01A09q90qw90lq917835" + std::to_string(number);
    std::string result;
    for (int line = 0; line < resultLines; ++line) {
        result += sourceLine;
    }
    return head(number, "assistant") +
           R"({"id":"msg_01","type":"message","role":"assistant","model":"claude-opus-4-8","content":[)" +
           R"({"type":"tool_use","id":")" + id +
           R"(","name":"Bash","input":{"command":"ninja -C build/debug && ctest --test-dir build/debug )" +
           R"(--output-on-failure","description":"Build and run the tests"}}],"stop_reason":"tool_use",)" +
           R"("usage":{"input_tokens":4,"cache_read_input_tokens":18123,"output_tokens":211}}})" + "\n" +
           head(number, "user") + R"({"role":"user","content":[{"tool_use_id":")" + id +
           R"(","type":"tool_result","content":")" + result + R"("}]},"toolUseResult":{"stdout":")" + result +
           R"(","stderr":"","interrupted":false}})" + "\n";
}

constexpr const char* plainLine = R"(    const auto value = read(\"name\");\n)";
constexpr const char* foreignLine = R"(    // größer als länger: 長い行 → „so“\n)";

/// A transcript of turns, longer than the tail.
std::string transcript(int resultLines, const std::string& sourceLine) {
    std::string text;
    for (int number = 0; text.size() < 2 * SubtaskReader::tailBytes; ++number) {
        text += turn(number, resultLines, sourceLine);
    }
    return text;
}

void readSubtask(benchmark::State& state, const std::string& sourceLine) {
    const Transcript file(transcript(static_cast<int>(state.range(0)), sourceLine));
    const LinuxFileSystem files;
    SubtaskReader reader(files);
    const Date now{1'795'246'300};
    for (auto _ : state) {
        benchmark::DoNotOptimize(reader.read(file.path(), now - 1, now));
    }
    state.counters["lines"] = static_cast<double>(reader.tail(file.path(), SubtaskReader::tailBytes).size());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(SubtaskReader::tailBytes));
}

void readPlain(benchmark::State& state) {
    readSubtask(state, plainLine);
}

void readForeign(benchmark::State& state) {
    readSubtask(state, foreignLine);
}

/// What the goal is about: the tail read from the file and parsed, without the metadata file.
void readAndParse(benchmark::State& state, const std::string& text) {
    const Transcript file(text);
    const LinuxFileSystem files;
    SubtaskReader reader(files);
    for (auto _ : state) {
        const auto tail = reader.tail(file.path(), SubtaskReader::tailBytes);
        benchmark::DoNotOptimize(reader.pendingTools(tail, Date()));
    }
    state.counters["lines"] = static_cast<double>(reader.tail(file.path(), SubtaskReader::tailBytes).size());
}

void readAndParseRecorded(benchmark::State& state) {
    const std::string text = recordedTranscript();
    if (text.empty()) {
        state.SkipWithError("the recorded transcript is missing");
        return;
    }
    readAndParse(state, text);
}

void readAndParseMade(benchmark::State& state) {
    readAndParse(state, transcript(static_cast<int>(state.range(0)), plainLine));
}

void readTailAlone(benchmark::State& state) {
    const Transcript file(transcript(static_cast<int>(state.range(0)), plainLine));
    const LinuxFileSystem files;
    const SubtaskReader reader(files);
    for (auto _ : state) {
        benchmark::DoNotOptimize(reader.tail(file.path(), SubtaskReader::tailBytes));
    }
}

void parseAlone(benchmark::State& state) {
    const Transcript file(transcript(static_cast<int>(state.range(0)), plainLine));
    const LinuxFileSystem files;
    const SubtaskReader reader(files);
    const auto tail = reader.tail(file.path(), SubtaskReader::tailBytes);
    json::Parser parser;
    for (auto _ : state) {
        for (std::size_t index = 0; index < tail.size(); ++index) {
            benchmark::DoNotOptimize(tail.parse(index, parser));
        }
    }
}

} // namespace

// The argument is the number of source lines in each tool result: from many short lines to few long ones.
BENCHMARK(readPlain)->Arg(1)->Arg(10)->Arg(100)->Arg(300);
BENCHMARK(readForeign)->Arg(10)->Arg(100);
BENCHMARK(readAndParseRecorded);
BENCHMARK(readAndParseMade)->Arg(1)->Arg(10)->Arg(100)->Arg(300);
BENCHMARK(readTailAlone)->Arg(10);
BENCHMARK(parseAlone)->Arg(1)->Arg(10)->Arg(100);
