#include "Subtask/TranscriptTail.h"
#include "Subtask/TranscriptFacts.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

// The end of a transcript, cut anywhere. The first byte says whether the tail begins inside the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace mimkins;
    if (size == 0) {
        return 0;
    }
    const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const TranscriptTail tail(FileSystem::Tail{bytes, data[0] % 2U});
    json::Parser parser;
    const auto facts = transcriptFacts(tail, Date{1}, parser);
    // The same again with used memory, and line by line with a fresh parser.
    if (!(transcriptFacts(tail, Date{1}, parser) == facts)) {
        std::abort();
    }
    for (std::size_t index = 0; index < tail.size(); ++index) {
        const auto document = json::Document::parse(tail.line(index));
        if (tail.parse(index, parser).exists() != document.has_value()) {
            std::abort();
        }
    }
    return 0;
}
