#include "Subtask/TranscriptTail.h"

#include "Base/Text.h"

#include <algorithm>
#include <utility>

namespace mimkins {

TranscriptTail::TranscriptTail(FileSystem::Tail tail) : bytes_(std::move(tail.bytes)) {
    std::size_t begin = 0;
    if (tail.position > 0) {
        // The fragment goes before the bytes are looked at as text: it may begin inside a character. Empty
        // lines don't count, so a tail that begins with line ends loses the first line behind them.
        begin = std::min(bytes_.find_first_not_of('\n'), bytes_.size());
        begin = std::min(bytes_.find('\n', begin), bytes_.size());
    }
    if (!text::isValidUtf8(std::string_view(bytes_).substr(begin))) {
        bytes_ = text::repairUtf8(std::string_view(bytes_).substr(begin));
        begin = 0;
    }
    split(begin);
}

void TranscriptTail::split(std::size_t begin) {
    while (begin < bytes_.size()) {
        const std::size_t end = std::min(bytes_.find('\n', begin), bytes_.size());
        if (end > begin) {
            lines_.push_back({begin, end - begin});
        }
        begin = end + 1;
    }
}

std::string_view TranscriptTail::line(std::size_t index) const {
    const Range& range = lines_.at(index);
    return std::string_view(bytes_).substr(range.begin, range.length);
}

json::Value TranscriptTail::parse(std::size_t index, json::Parser& parser) const {
    const Range& range = lines_.at(index);
    return parser.parse(line(index), bytes_.size() - range.begin - range.length);
}

} // namespace mimkins
