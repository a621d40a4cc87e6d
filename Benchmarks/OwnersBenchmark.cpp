#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "Sweep/RepositoryOwners.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <vector>

// Who changed 50 files, from ten transcripts of 50 MB: at most 2 seconds.

namespace {

using namespace mimkins;

constexpr std::size_t fileCount = 50;
constexpr std::size_t transcriptCount = 10;
constexpr std::size_t transcriptSize = 50'000'000;

std::string fileName(std::size_t number) {
    constexpr const char* words[] = {"Reader", "Store", "index", "session-card", "README"};
    constexpr const char* endings[] = {".cpp", ".h", ".ts", ".md", ".py"};
    return words[number % 5] + std::to_string(number) + endings[number / 5 % 5];
}

std::vector<std::string> changedFiles() {
    std::vector<std::string> files;
    for (std::size_t number = 0; number < fileCount; ++number) {
        files.push_back("source/unit/" + fileName(number));
    }
    return files;
}

enum class Mentions { none, reads, changes };

std::string line(const char* type, const std::string& content) {
    return R"({"parentUuid":"44291bf6-599e-4208-8408-c134a0801371","type":")" + std::string(type) +
           R"(","uuid":"92c9576a-2535-4dba-8159-1c8daa9088e5","timestamp":"2026-11-21T07:30:44.681Z",)" +
           R"("cwd":"/home/kim/shop","version":"2.1.0","message":{"role":"x","content":[)" + content +
           "]}}\n";
}

/// A call on one of the files and its result: two kilobytes of source text.
std::string turn(std::size_t number, Mentions mentions) {
    const std::string name = mentions == Mentions::none ? "unrelated.txt" : fileName(number % fileCount);
    const char* tool = mentions == Mentions::changes ? "Edit" : "Read";
    std::string result;
    while (result.size() < 2'000) {
        result += R"(    const auto value = read(\"name\"); // see header.hpp and app.component.ts\n)";
    }
    const std::string input = R"("input":{"file_path":"/home/kim/shop/source/unit/)" + name + R"("}})";
    return line(
               "assistant",
               R"({"type":"tool_use","id":"toolu_01","name":")" + std::string(tool) + "\"," + input
           ) +
           line("user", R"({"type":"tool_result","tool_use_id":"toolu_01","content":")" + result + "\"}");
}

/// Ten transcripts on the disk.
class Transcripts {
public:
    explicit Transcripts(Mentions mentions) {
        std::string pattern = (std::filesystem::temp_directory_path() / "mimkins-bench-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        std::string text;
        for (std::size_t number = 0; text.size() < transcriptSize; ++number) {
            text += turn(number, mentions);
        }
        for (std::size_t number = 0; number < transcriptCount; ++number) {
            sessions_.push_back(
                {"s" + std::to_string(number), {folder_ + "/" + std::to_string(number) + ".jsonl"}}
            );
            std::ofstream(sessions_.back().paths.front(), std::ios::binary) << text;
        }
    }

    Transcripts(const Transcripts&) = delete;
    Transcripts& operator=(const Transcripts&) = delete;

    ~Transcripts() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    const std::vector<SessionTranscripts>& sessions() const { return sessions_; }

private:
    std::string folder_;
    std::vector<SessionTranscripts> sessions_;
};

void findOwners(benchmark::State& state, Mentions mentions) {
    const Transcripts transcripts(mentions);
    const LinuxRandomAccessFiles opener;
    const auto files = changedFiles();
    std::size_t owned = 0;
    for (auto _ : state) {
        owned = owners(files, transcripts.sessions(), Date{0}, opener).size();
    }
    state.counters["owned"] = static_cast<double>(owned);
}

/// The reference: what it takes to have all bytes of the transcripts in memory once, block by block.
void readAlone(benchmark::State& state) {
    const Transcripts transcripts(Mentions::none);
    const LinuxRandomAccessFiles opener;
    std::string block(262'144, '\0');
    for (auto _ : state) {
        for (const auto& session : transcripts.sessions()) {
            const auto file = opener.open(session.paths.front());
            for (std::uint64_t position = 0; position < file->identity().size; position += block.size()) {
                benchmark::DoNotOptimize(file->read(position, block));
            }
        }
    }
}

} // namespace

BENCHMARK(readAlone)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(findOwners, neverMentioned, Mentions::none)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(findOwners, onlyRead, Mentions::reads)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(findOwners, changed, Mentions::changes)->Unit(benchmark::kMillisecond);
