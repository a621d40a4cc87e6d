#include "Subtask/TranscriptTail.h"
#include "Base/Text.h"
#include "Subtask/TranscriptFacts.h"
#include "Support.h"

#include <algorithm>

// The end of a transcript, cut anywhere. The first byte says where the tail begins, in 255ths of the file.

namespace {

using namespace mimkins;
using fuzz::require;

constexpr Date fallback{1};

TranscriptTail tailFrom(std::string_view file, std::size_t position) {
    return TranscriptTail(FileSystem::Tail{std::string(file.substr(position)), position});
}

/// The lines as they have to be, found without any of the reader's code but the repair of the text.
std::vector<std::string> linesOf(std::string_view file) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < file.size();) {
        const std::size_t end = std::min(file.find('\n', begin), file.size());
        if (end > begin) {
            lines.push_back(text::repairUtf8(file.substr(begin, end - begin)));
        }
        begin = end + 1;
    }
    return lines;
}

/// A tail has the file's last lines and no others.
void requireLastLines(const TranscriptTail& tail, std::string_view file) {
    const auto lines = linesOf(file);
    require(tail.size() <= lines.size(), "a tail has no more lines than its file");
    for (std::size_t index = 0; index < tail.size(); ++index) {
        require(
            tail.line(index) == lines[lines.size() - tail.size() + index], "a tail has the file's last lines"
        );
    }
}

void requireSoundFacts(const TranscriptTail& tail) {
    json::Parser parser;
    const auto facts = transcriptFacts(tail, fallback, parser);
    require(transcriptFacts(tail, fallback, parser) == facts, "used memory makes no difference");
    require(
        transcriptFacts(tail, fallback, parser, LinesToParse::all) == facts,
        "lines that aren't parsed tell nothing"
    );
    require(!facts.model.model || !facts.model.model->empty(), "a model has a name");
    require(!facts.model.effort || !facts.model.effort->empty(), "an effort has a name");
    for (std::size_t index = 0; index < tail.size(); ++index) {
        const auto document = json::Document::parse(tail.line(index));
        require(tail.parse(index, parser).exists() == document.has_value(), "both parsers agree on a line");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string_view file = fuzz::asText(data, size).substr(1);
    const TranscriptTail whole = tailFrom(file, 0);
    require(whole.size() == linesOf(file).size(), "a whole file has all its lines");
    requireLastLines(whole, file);
    requireSoundFacts(whole);
    const TranscriptTail tail = tailFrom(file, file.size() * data[0] / 255);
    requireLastLines(tail, file);
    requireSoundFacts(tail);
    return 0;
}
