#include "Background/SearchedBlocks.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>
#include <string_view>
#include <thread>

namespace mimkins {

namespace {

/// So many blocks are in memory, so that neither thread waits long for the other.
constexpr std::size_t blocksAtOnce = 4;

} // namespace

/// A block is begun by one thread, which has it to itself until it is done. Then it is the caller's until it
/// is used up and its memory serves the next block but three.
struct SearchedBlocks::State {
    struct Slot {
        SearchedBlock block;
        bool isDone = false;
    };

    explicit State(const Part& chosen)
        : part(chosen), firstBlock(chosen.begin / chosen.blockSize),
          total(chosen.begin < chosen.end ? (chosen.end - 1) / chosen.blockSize - firstBlock + 1 : 0),
          slots(blocksAtOnce, Slot{SearchedBlock(chosen.blockSize)}) {}

    const Part part;
    const std::uint64_t firstBlock; ///< counted from the file's beginning
    const std::uint64_t total;      ///< of blocks
    const std::thread::id caller = std::this_thread::get_id();
    std::mutex mutex; ///< guards everything below
    std::condition_variable changed;
    std::uint64_t begun = 0;
    std::uint64_t usedUp = 0;
    bool isLent = false;   ///< the caller has the block behind those that are used up
    bool isHelped = false; ///< the queue's thread is in a block
    bool isOver = false;
    std::vector<Slot> slots;

    Slot& slotOf(std::uint64_t index) { return slots[static_cast<std::size_t>(index % slots.size())]; }

    /// The block to begin; nothing while there is no memory for one.
    std::optional<std::uint64_t> begin() {
        const auto end = std::min<std::uint64_t>(total, usedUp + slots.size());
        return !isOver && begun < end ? std::optional(begun++) : std::nullopt;
    }

    void fill(std::uint64_t index, SearchedBlock& block) const {
        const auto begin = std::max(part.begin, (firstBlock + index) * part.blockSize);
        const auto end = std::min(part.end, (firstBlock + index + 1) * part.blockSize);
        block.wanted = static_cast<std::size_t>(end - begin);
        block.count = 0;
        block.hits.clear();
        char* const bytes = block.buffer.block();
        const auto count = part.file.read(begin, {bytes, block.wanted});
        part.search(std::string_view(bytes, count.value_or(0)), block.hits);
        block.count = count;
    }

    void finish(std::uint64_t index) {
        slotOf(index).isDone = true;
        changed.notify_all();
    }

    /// What the queue's thread does.
    void help() {
        std::unique_lock lock(mutex);
        while (!isOver && begun < total) {
            const auto index = begin();
            if (!index) {
                changed.wait(lock);
                continue;
            }
            isHelped = true;
            lock.unlock();
            try {
                fill(*index, slotOf(*index).block);
            } catch (...) {
                // Nothing counts as read, and the caller's own attempt shows why.
                slotOf(*index).block.hits.clear();
            }
            lock.lock();
            isHelped = false;
            finish(*index);
        }
    }
};

SearchedBlocks::SearchedBlocks(const Part& part, WorkQueue& queue) : state_(std::make_shared<State>(part)) {
    queue.async([state = state_] {
        // A queue that works at once would have the caller wait for itself.
        if (std::this_thread::get_id() != state->caller) {
            state->help();
        }
    });
}

SearchedBlocks::~SearchedBlocks() {
    std::unique_lock lock(state_->mutex);
    state_->isOver = true;
    state_->changed.notify_all();
    state_->changed.wait(lock, [this] { return !state_->isHelped; });
}

SearchedBlock* SearchedBlocks::next() {
    State& state = *state_;
    std::unique_lock lock(state.mutex);
    if (state.isLent) {
        state.slotOf(state.usedUp).isDone = false;
        state.isLent = false;
        ++state.usedUp;
        state.changed.notify_all();
    }
    while (state.usedUp < state.total) {
        auto& slot = state.slotOf(state.usedUp);
        if (slot.isDone) {
            state.isLent = true;
            return &slot.block;
        }
        const auto index = state.begin();
        if (!index) {
            state.changed.wait(lock);
            continue;
        }
        lock.unlock();
        state.fill(*index, state.slotOf(*index).block);
        lock.lock();
        state.finish(*index);
    }
    return nullptr;
}

} // namespace mimkins
