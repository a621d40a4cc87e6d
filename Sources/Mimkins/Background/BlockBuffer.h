#pragma once

#include <cstddef>
#include <vector>

namespace mimkins {

/// Memory for a block of a file, with room in front of it for the end of the block before.
class BlockBuffer {
public:
    /// `size` is that of the block, in bytes.
    explicit BlockBuffer(std::size_t size) : count_(1 + (size + sizeof(Page) - 1) / sizeof(Page)) {}

    /// Where the block begins. Of the bytes in front, as many as a page has may be used. The memory is there
    /// from the first call on.
    char* block() {
        pages_.resize(count_);
        return pages_.front().bytes + sizeof(Page);
    }

private:
    /// The kernel copies whole pages to the beginning of a page about twice as fast as to any other place.
    struct alignas(4'096) Page {
        char bytes[4'096];
    };

    std::size_t count_;
    std::vector<Page> pages_;
};

} // namespace mimkins
