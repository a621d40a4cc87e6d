#pragma once

#include "Background/BlockBuffer.h"
#include "Background/MarkerSearch.h"
#include "Platform/RandomAccessFile.h"
#include "Platform/WorkQueue.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace mimkins {

/// A block of a file, and the markers that lie in it whole.
struct SearchedBlock {
    explicit SearchedBlock(std::size_t size) : buffer(size) {}

    BlockBuffer buffer;
    std::size_t wanted = 0; ///< how many bytes were to be read
    /// How many bytes were read; nothing if reading failed. Fewer than wanted where the file ends, or if
    /// something went wrong that the next attempt at reading on will tell.
    std::optional<std::size_t> count;
    std::vector<MarkerHit> hits; ///< by their positions in the block
};

/// The blocks of a part of a file, each of which is read and searched by whoever is free: the thread that
/// asks for them or one of a work queue. A few blocks are in memory at a time. The reading never waits for
/// the queue to begin, only for a block that the queue's thread has begun.
class SearchedBlocks {
public:
    struct Part {
        const RandomAccessFile& file;
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
        /// After the first one, every block begins at a multiple of it.
        std::size_t blockSize = 1;
        MarkerSearch search = nullptr;
    };

    /// What the part names outlives the object.
    SearchedBlocks(const Part& part, WorkQueue& queue);
    /// Returns when the queue's thread uses nothing of the part any more.
    ~SearchedBlocks();
    SearchedBlocks(const SearchedBlocks&) = delete;
    SearchedBlocks& operator=(const SearchedBlocks&) = delete;

    /// The next block in the file's order, valid until the next call; null behind the last one. All of them
    /// are handed out, whether their reading failed or not.
    SearchedBlock* next();

private:
    struct State;
    /// Shared with the queue, which may come to its work when the reading is long over.
    std::shared_ptr<State> state_;
};

} // namespace mimkins
