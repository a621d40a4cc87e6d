#pragma once

#include "Background/MarkerSearch.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// Marked lines that wait to be read together. Between two marked lines the search goes through so much text
/// that the processor has forgotten all about patterns; reading many at a time, it remembers.
class LineBatch {
public:
    void add(std::string_view line, Markers markers) {
        lines_.push_back({bytes_.size(), line.size(), markers});
        bytes_.append(line);
    }

    /// True if the batch holds about as much as a processor's cache does.
    bool isFull() const { return bytes_.size() >= std::size_t{64} << 10U; }

    /// Calls `visit` with the text and the markers of each line, in the order in which they were added, and
    /// empties the batch. The text is valid during the call.
    template <typename Visit>
    void empty(Visit visit) {
        for (const auto& line : lines_) {
            visit(std::string_view(bytes_).substr(line.begin, line.length), line.markers);
        }
        clear();
    }

    /// Drops all lines, and the memory that an unusually long one took.
    void clear() {
        lines_.clear();
        bytes_.clear();
        if (bytes_.capacity() > std::size_t{1} << 20U) {
            bytes_.shrink_to_fit();
        }
    }

private:
    struct Line {
        std::size_t begin = 0;
        std::size_t length = 0;
        Markers markers;
    };

    std::string bytes_;
    std::vector<Line> lines_;
};

} // namespace mimkins
