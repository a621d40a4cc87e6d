#pragma once

#include "Base/Json.h"
#include "Platform/FileSystem.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// The last complete lines of a transcript, as valid UTF-8 and without empty ones.
class TranscriptTail {
public:
    TranscriptTail() = default;

    /// Splits bytes read from the end of a file. With `position` above 0 they begin inside the file, and the
    /// first line is dropped as a fragment.
    explicit TranscriptTail(FileSystem::Tail tail);

    TranscriptTail(TranscriptTail&&) = default;
    TranscriptTail& operator=(TranscriptTail&&) = default;
    TranscriptTail(const TranscriptTail&) = delete;
    TranscriptTail& operator=(const TranscriptTail&) = delete;
    ~TranscriptTail() = default;

    std::size_t size() const { return lines_.size(); }

    /// A line without its line end, valid while the tail lives at the same place.
    std::string_view line(std::size_t index) const;

    /// A line as JSON, valid until the parser's next text; a missing value if it isn't JSON.
    json::Value parse(std::size_t index, json::Parser& parser) const;

private:
    struct Range {
        std::size_t begin = 0;
        std::size_t length = 0;
    };

    void split(std::size_t begin);

    std::string bytes_;
    std::vector<Range> lines_;
};

} // namespace mimkins
