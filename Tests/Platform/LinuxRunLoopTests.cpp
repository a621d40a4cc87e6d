#include "Platform/Linux/LinuxRunLoop.h"

#include <gtest/gtest.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

using namespace mimkins;

namespace {

constexpr double patience = 30; // seconds until a test gives up

struct Pipe {
    Pipe() { EXPECT_EQ(::pipe(ends.data()), 0); }

    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    ~Pipe() {
        ::close(ends[0]);
        ::close(ends[1]);
    }

    void write(const std::string& text) const {
        ASSERT_EQ(::write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    char read() const {
        char letter = 0;
        EXPECT_EQ(::read(ends[0], &letter, 1), 1);
        return letter;
    }

    std::array<int, 2> ends{-1, -1};
};

} // namespace

TEST(LinuxRunLoop, RunsPostedWorkInOrder) {
    LinuxRunLoop loop;
    std::string order;
    loop.post([&] {
        order += "a";
        loop.post([&] { order += "c"; });
    });
    loop.post([&] { order += "b"; });
    EXPECT_EQ(order, "");
    EXPECT_TRUE(loop.runUntil([&] { return order.size() == 3; }, patience));
    EXPECT_EQ(order, "abc");
}

TEST(LinuxRunLoop, PostFromAnotherThreadWakesTheLoop) {
    LinuxRunLoop loop;
    std::thread::id ranOn;
    std::thread other([&] {
        for (int count = 0; count < 1000; ++count) {
            loop.post([] {});
        }
        loop.post([&] {
            ranOn = std::this_thread::get_id();
            loop.stop();
        });
    });
    loop.run();
    other.join();
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST(LinuxRunLoop, StopBeforeARunEndsThatRunOnly) {
    LinuxRunLoop loop;
    loop.stop();
    loop.run();
    int runs = 0;
    loop.post([&] { ++runs; });
    EXPECT_TRUE(loop.runUntil([&] { return runs == 1; }, patience));
}

TEST(LinuxRunLoop, StopFromAnotherThreadEndsAWaitingRun) {
    LinuxRunLoop loop;
    std::thread other([&] { loop.stop(); });
    loop.run();
    other.join();
}

TEST(LinuxRunLoop, TimersRunUnlessTheirHandleEnds) {
    LinuxRunLoop loop;
    std::string order;
    const auto late = loop.after(0.02, [&] { order += "b"; });
    const auto early = loop.after(0.001, [&] { order += "a"; });
    auto ended = loop.after(0.001, [&] { order += "x"; });
    ended.reset();
    EXPECT_TRUE(loop.runUntil([&] { return order.size() >= 2; }, patience));
    EXPECT_EQ(order, "ab");
}

TEST(LinuxRunLoop, RepeatingTimerMayEndItself) {
    LinuxRunLoop loop;
    int runs = 0;
    Handle timer;
    timer = loop.every(0.001, [&] {
        if (++runs == 3) {
            timer.reset();
        }
    });
    EXPECT_TRUE(loop.runUntil([&] { return runs == 3; }, patience));
    loop.runFor(0.02);
    EXPECT_EQ(runs, 3);
}

TEST(LinuxRunLoop, PeriodOfZeroDoesNotStarvePostedWork) {
    LinuxRunLoop loop;
    bool posted = false;
    const auto timer = loop.every(0, [] {});
    loop.post([&] { posted = true; });
    EXPECT_TRUE(loop.runUntil([&] { return posted; }, patience));
}

TEST(LinuxRunLoop, RunUntilGivesUpAtItsDeadline) {
    LinuxRunLoop loop;
    EXPECT_FALSE(loop.runUntil([] { return false; }, 0.01));
    EXPECT_FALSE(loop.runUntil([] { return false; }, -1));
    EXPECT_TRUE(loop.runUntil([] { return true; }, 0));
}

TEST(LinuxRunLoop, DescriptorIsToldAsLongAsItCanBeRead) {
    LinuxRunLoop loop;
    const Pipe pipe;
    std::string read;
    const auto handle = loop.whenReadable(pipe.ends[0], [&] { read += pipe.read(); });
    loop.runFor(0.01);
    EXPECT_EQ(read, "");
    pipe.write("abc");
    EXPECT_TRUE(loop.runUntil([&] { return read == "abc"; }, patience));
}

TEST(LinuxRunLoop, DescriptorMayEndItselfAndAnother) {
    LinuxRunLoop loop;
    const Pipe one;
    const Pipe two;
    int calls = 0;
    Handle first;
    Handle second;
    const auto endBoth = [&] {
        ++calls;
        first.reset();
        second.reset();
    };
    first = loop.whenReadable(one.ends[0], endBoth);
    second = loop.whenReadable(two.ends[0], endBoth);
    one.write("x");
    two.write("x");
    EXPECT_TRUE(loop.runUntil([&] { return calls > 0; }, patience));
    loop.runFor(0.02);
    EXPECT_EQ(calls, 1);
}

TEST(LinuxRunLoop, EndOfFileCountsAsReadable) {
    LinuxRunLoop loop;
    Pipe pipe;
    bool told = false;
    const auto handle = loop.whenReadable(pipe.ends[0], [&] { told = true; });
    ::close(std::exchange(pipe.ends[1], ::eventfd(0, 0)));
    EXPECT_TRUE(loop.runUntil([&] { return told; }, patience));
}

TEST(LinuxRunLoop, DescriptorClosedTooEarlyIsForgotten) {
    LinuxRunLoop loop;
    const int closed = ::eventfd(1, 0);
    int calls = 0;
    const auto handle = loop.whenReadable(closed, [&] { ++calls; });
    ::close(closed);
    loop.runFor(0.01);
    EXPECT_EQ(calls, 0);
}

TEST(LinuxRunLoop, HandlesMayOutliveTheLoop) {
    auto loop = std::make_unique<LinuxRunLoop>();
    auto timer = loop->after(1, [] {});
    auto repeating = loop->every(1, [] {});
    auto watch = loop->whenReadable(0, [] {});
    loop.reset();
    timer.reset();
    repeating.reset();
    watch.reset();
}

TEST(LinuxRunLoop, WorkThatThrowsLeavesTheRestForTheNextRun) {
    LinuxRunLoop loop;
    int runs = 0;
    loop.post([] { throw std::runtime_error("broken"); });
    loop.post([&] { ++runs; });
    EXPECT_THROW(loop.run(), std::runtime_error);
    EXPECT_TRUE(loop.runUntil([&] { return runs == 1; }, patience));
}

TEST(LinuxRunLoop, NowIsTheWallClock) {
    const LinuxRunLoop loop;
    const auto before = std::chrono::system_clock::now().time_since_epoch();
    const double now = loop.now().secondsSince1970;
    const auto after = std::chrono::system_clock::now().time_since_epoch();
    EXPECT_LE(std::chrono::duration<double>(before).count(), now);
    EXPECT_GE(std::chrono::duration<double>(after).count(), now);
}
