#pragma once

#include "Background/MarkerSearch.h"
#include "Platform/RandomAccessFile.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// Longer lines are passed over: no client writes them, and the text of a marked line is held in memory
/// whole.
inline constexpr std::size_t longestLine = std::size_t{256} << 20U; // bytes

/// Finds the lines of a growing file that hold a marker. It reads in blocks of one size; a line that holds no
/// marker is never kept, however long it is.
class MarkedLines {
public:
    using Visit = std::function<void(std::string_view line, Markers markers)>;

    /// A part of a file.
    struct Range {
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
        /// True if `begin` lies inside a line, which is then passed over.
        bool startsMidLine = false;
    };

    MarkedLines(std::size_t blockSize, MarkerSearch search) : blockSize_(blockSize), search_(search) {}

    /// Calls `visit` for each complete line of the range that holds a marker, in the file's order, without
    /// its newline. Gives the position after the range's last newline, which is the range's begin if it has
    /// none; nothing if reading failed, in which case some lines may have been visited already.
    std::optional<std::uint64_t> read(const RandomAccessFile& file, const Range& range, const Visit& visit);

private:
    struct Pass;

    /// The kernel copies whole pages to the beginning of a page about twice as fast as to any other place.
    struct alignas(4'096) Page {
        char bytes[4'096];
    };

    std::size_t blockSize_;
    MarkerSearch search_;
    /// The end of the block before, at the end of the first page, and the block.
    std::vector<Page> buffer_;
    std::vector<MarkerHit> hits_;
};

} // namespace mimkins
