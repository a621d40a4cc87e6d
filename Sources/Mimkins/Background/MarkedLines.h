#pragma once

#include "Background/BlockBuffer.h"
#include "Background/MarkerSearch.h"
#include "Platform/RandomAccessFile.h"
#include "Platform/WorkQueue.h"

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

/// When reading a file is shared with another thread.
struct SharedReading {
    /// Has the other thread; null to share nothing. It outlives every reading.
    WorkQueue* queue = nullptr;
    /// Less than so many bytes aren't worth another thread.
    std::uint64_t least = std::uint64_t{32} << 20U;
};

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

    MarkedLines(std::size_t blockSize, MarkerSearch search, const SharedReading& shared = {})
        : blockSize_(blockSize), search_(search), shared_(shared), buffer_(blockSize) {}

    /// Calls `visit` for each complete line of the range that holds a marker, in the file's order, without
    /// its newline. Gives the position after the range's last newline, which is the range's begin if it has
    /// none; nothing if reading failed, in which case some lines may have been visited already.
    std::optional<std::uint64_t> read(const RandomAccessFile& file, const Range& range, const Visit& visit);

private:
    struct Pass;

    /// Takes blocks that two threads read, up to the first one that isn't whole. False if reading failed.
    bool takeShared(Pass& pass, std::uint64_t end);
    /// Reads block after block. False if reading failed.
    bool takeAlone(Pass& pass, std::uint64_t end);

    std::size_t blockSize_;
    MarkerSearch search_;
    SharedReading shared_;
    BlockBuffer buffer_;
    std::vector<MarkerHit> hits_;
};

} // namespace mimkins
