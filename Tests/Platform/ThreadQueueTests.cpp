#include "Platform/Linux/ThreadQueue.h"

#include "Base/Log.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace mimkins;
using namespace std::chrono_literals;

namespace {

constexpr auto patience = 30s;

std::ptrdiff_t threadsOfThisProcess() {
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}

/// Returns when the queue has done all it was given so far, provided that it is serial.
void waitFor(WorkQueue& queue) {
    std::promise<void> done;
    queue.async([&] { done.set_value(); });
    ASSERT_EQ(done.get_future().wait_for(patience), std::future_status::ready);
}

} // namespace

TEST(SerialQueue, RunsWorkInOrderOnOneOtherThread) {
    SerialQueue queue("test");
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    for (int number = 0; number < 200; ++number) {
        queue.async([&, number] {
            order.push_back(number);
            threads.push_back(std::this_thread::get_id());
        });
    }
    waitFor(queue);
    ASSERT_EQ(order.size(), 200);
    for (int number = 0; number < 200; ++number) {
        EXPECT_EQ(order[static_cast<std::size_t>(number)], number);
        EXPECT_EQ(threads[static_cast<std::size_t>(number)], threads.front());
    }
    EXPECT_NE(threads.front(), std::this_thread::get_id());
}

TEST(SerialQueue, DestructionDropsWaitingWorkAndWaitsForTheWorkUnderWay) {
    auto queue = std::make_unique<SerialQueue>("test");
    std::promise<void> begun;
    std::promise<void> goOn;
    std::atomic<int> ran = 0;
    const auto dropped = std::make_shared<int>(1);
    queue->async([&] {
        begun.set_value();
        goOn.get_future().wait();
        std::this_thread::sleep_for(20ms); // so that the destruction is really waiting
        ++ran;
    });
    queue->async([&ran, dropped] { ran += 100; });
    ASSERT_EQ(begun.get_future().wait_for(patience), std::future_status::ready);
    EXPECT_EQ(dropped.use_count(), 2);
    goOn.set_value();
    queue.reset();
    // The second may begin before the destruction does, but must then have ended too.
    EXPECT_TRUE(ran == 1 || ran == 101) << ran;
    EXPECT_EQ(dropped.use_count(), 1);
}

TEST(SerialQueue, NeverBegunWorkIsDroppedWithItsClosure) {
    std::promise<void> begun;
    std::promise<void> goOn;
    auto released = goOn.get_future().share();
    std::atomic<bool> second = false;
    auto queue = std::make_unique<SerialQueue>("test");
    queue->async([&] {
        begun.set_value();
        released.wait();
    });
    ASSERT_EQ(begun.get_future().wait_for(patience), std::future_status::ready);
    queue->async([&] { second = true; });
    const auto closure = std::make_shared<int>(1);
    queue->async([closure] {});
    std::thread destroyer([&] { queue.reset(); });
    while (closure.use_count() > 1) { // the closures go before the queue waits for its thread
        std::this_thread::yield();
    }
    goOn.set_value();
    destroyer.join();
    EXPECT_FALSE(second);
}

TEST(SerialQueue, StartsNoThreadWithoutWork) {
    const auto before = threadsOfThisProcess();
    SerialQueue queue("test");
    EXPECT_EQ(threadsOfThisProcess(), before);
    waitFor(queue);
    EXPECT_EQ(threadsOfThisProcess(), before + 1);
}

TEST(SerialQueue, WorkThatThrowsIsLoggedAndCostsItselfOnly) {
    std::string logged;
    log::setSink([&](const log::Line& line) { logged += line.text; });
    {
        SerialQueue queue("test");
        queue.async([] { throw std::runtime_error("broken"); });
        waitFor(queue);
    }
    log::setSink(nullptr);
    EXPECT_EQ(logged, "broken");
}

TEST(ConcurrentQueue, RunsAFewPiecesAtTheSameTimeButNotMore) {
    std::atomic<int> atOnce = 0;
    std::atomic<int> most = 0;
    std::atomic<int> done = 0;
    std::atomic<bool> met = false;
    ConcurrentQueue queue("test", 3);
    std::promise<void> allThree;
    auto meeting = allThree.get_future().share();
    for (int number = 0; number < 30; ++number) {
        queue.async([&] {
            const int present = ++atOnce;
            int seen = most;
            while (present > seen && !most.compare_exchange_weak(seen, present)) {
            }
            if (present == 3 && !met.exchange(true)) {
                allThree.set_value();
            }
            meeting.wait_for(patience); // the first three only meet if they run at the same time
            --atOnce;
            ++done;
        });
    }
    const auto end = std::chrono::steady_clock::now() + patience;
    while (done < 30 && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(1ms);
    }
    EXPECT_EQ(done, 30);
    EXPECT_EQ(most, 3);
}
