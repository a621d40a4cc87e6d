#include "Background/NaiveScanner.h"
#include "Background/RandomTranscript.h"
#include "Background/ScannerFixture.h"
#include "Background/SearchedBlocks.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;

namespace {

/// Keeps work until it is told to do it.
class LateQueue final : public WorkQueue {
public:
    void async(std::function<void()> work) override { waiting_.push_back(std::move(work)); }

    std::size_t waiting() const { return waiting_.size(); }

    void run() {
        for (const auto& work : std::exchange(waiting_, {})) {
            std::thread(work).join();
        }
    }

private:
    std::vector<std::function<void()>> waiting_;
};

/// Does work at once, where it was asked for.
class ImmediateQueue final : public WorkQueue {
public:
    void async(std::function<void()> work) override { work(); }
};

/// A transcript, and the tally that a scanner makes of it.
class TwoThreads : public testing::Test {
protected:
    void SetUp() override {
        ::setenv("TZ", "UTC", 1);
        std::mt19937 random(4);
        files.write(path, randomTranscript(random, 150) + "\n");
        options.blockSize = 100;
        options = sharing(options);
    }

    std::size_t size() { return files.bytes(path).size(); }

    Tally read() const {
        Tally tally;
        BackgroundScanner(files, options).read(path, now, tally);
        return tally;
    }

    /// What one thread makes of it.
    Tally readAlone() const {
        auto alone = options;
        alone.shared = {};
        Tally tally;
        BackgroundScanner(files, alone).read(path, now, tally);
        return tally;
    }

    MemoryFiles files;
    BackgroundScanner::Options options;
};

using SharedBlocks = TwoThreads;

} // namespace

TEST_F(TwoThreads, GiveTheTallyOfOne) {
    std::mt19937 random(5);
    for (int round = 0; round < 1'500; ++round) {
        std::string bytes = randomTranscript(random, random() % 200);
        bytes.resize(bytes.size() - std::min<std::size_t>(bytes.size(), random() % 40));
        files.write(path, bytes);
        options.blockSize = 1 + random() % (random() % 2 == 0 ? 40 : 3'000);
        options.firstReadingLimit = random() % 4 == 0 ? 1 + random() % (bytes.size() + 1) : 6'000'000;
        Tally expected;
        NaiveScanner(options.firstReadingLimit).read(bytes, now, expected);
        ASSERT_EQ(read(), expected) << bytes;
        ASSERT_EQ(readAlone(), expected) << bytes;
    }
}

TEST_F(TwoThreads, AFailureInAnyBlockLeavesTheTallyAsItWas) {
    const Tally whole = readAlone();
    ASSERT_GT(size(), 10 * options.blockSize);
    for (std::size_t broken = 0; broken < size(); broken += options.blockSize) {
        files.brokenFrom = broken;
        ASSERT_EQ(read(), Tally{}) << broken;
        files.brokenFrom.reset();
        ASSERT_EQ(read(), whole) << broken;
    }
}

TEST_F(TwoThreads, AFileThatShrankToAnySizeGivesWhatIsThere) {
    for (std::size_t end = 0; end <= size(); end += 1 + end % 13) {
        files.shrunkTo = end;
        ASSERT_EQ(read(), readAlone()) << end;
    }
}

TEST_F(TwoThreads, AShortReadIsReadOn) {
    const Tally whole = readAlone();
    for (std::size_t place = 0; place < size(); place += options.blockSize) {
        bool wasShort = false;
        files.beforeRead = [&](std::uint64_t position) {
            // One read finds the file's end in its block, and the next one that there is more.
            files.shrunkTo.reset();
            if (position == place && !wasShort) {
                files.shrunkTo = place + 10;
                wasShort = true;
            }
        };
        ASSERT_EQ(read(), whole) << place;
        ASSERT_TRUE(wasShort);
    }
}

TEST_F(TwoThreads, WhatTheHelperFailsAtIsTriedAgain) {
    const Tally whole = readAlone();
    const auto caller = std::this_thread::get_id();
    std::atomic<int> thrown = 0;
    files.beforeRead = [&](std::uint64_t) {
        if (std::this_thread::get_id() != caller) {
            ++thrown;
            throw std::bad_alloc();
        }
    };
    for (int round = 0; round < 1'000 && thrown == 0; ++round) {
        ASSERT_EQ(read(), whole);
    }
    EXPECT_GT(thrown, 0);
}

TEST_F(TwoThreads, ExceptionsOfTheCallersThreadPassThrough) {
    for (int nth = 1; nth < 10; ++nth) {
        int reads = 0;
        files.beforeRead = [&](std::uint64_t) {
            if (++reads >= nth) {
                throw std::runtime_error("no more");
            }
        };
        EXPECT_THROW(read(), std::runtime_error);
    }
    files.beforeRead = nullptr;
    MarkedLines lines(100, &findMarkersPortably, options.shared);
    const auto file = files.open(path);
    const auto refuse = [](std::string_view, Markers) { throw std::runtime_error("no lines"); };
    EXPECT_THROW(lines.read(*file, {0, size()}, refuse), std::runtime_error);
}

TEST_F(TwoThreads, BeginWhereThereIsEnoughToRead) {
    LateQueue queue;
    options.shared = {&queue, size() + 1};
    read();
    EXPECT_EQ(queue.waiting(), 0U);
    options.shared.least = size();
    read();
    EXPECT_EQ(queue.waiting(), 1U);
    EXPECT_GE(SharedReading().least, 30'000'000U);
}

TEST_F(TwoThreads, DoNotNeedTheQueueToWork) {
    const Tally whole = readAlone();
    LateQueue late;
    options.shared.queue = &late;
    EXPECT_EQ(read(), whole);
    const int reads = files.counts().reads;
    late.run(); // long after the reading
    EXPECT_EQ(files.counts().reads, reads);
    ImmediateQueue immediate;
    options.shared.queue = &immediate;
    EXPECT_EQ(read(), whole);
}

TEST_F(SharedBlocks, ComeInOrderWithTheirMarkers) {
    const auto file = files.open(path);
    const std::string bytes = files.bytes(path);
    for (const std::size_t begin : {std::size_t{0}, std::size_t{1}, std::size_t{99}, size() - 1, size()}) {
        SearchedBlocks blocks({*file, begin, size(), 100, &findMarkersPortably}, helperQueue());
        std::size_t position = begin;
        while (auto* block = blocks.next()) {
            const auto expected = std::string_view(bytes).substr(position, 100 - position % 100);
            ASSERT_EQ(block->wanted, expected.size());
            ASSERT_EQ(block->count, expected.size());
            ASSERT_EQ(std::string_view(block->buffer.block(), *block->count), expected);
            std::vector<MarkerHit> hits;
            findMarkersPortably(expected, hits);
            ASSERT_EQ(block->hits, hits);
            position += expected.size();
        }
        EXPECT_EQ(position, size());
        EXPECT_EQ(blocks.next(), nullptr);
    }
}

TEST_F(SharedBlocks, AreReadAFewAhead) {
    const auto file = files.open(path);
    std::atomic<int> reads = 0;
    files.beforeRead = [&](std::uint64_t) { ++reads; };
    {
        const SearchedBlocks blocks({*file, 0, size(), 100, &findMarkersPortably}, helperQueue());
        while (reads < 4) {
            std::this_thread::yield();
        }
    }
    EXPECT_EQ(reads, 4); // The memory of four blocks, none of which was taken.
}
