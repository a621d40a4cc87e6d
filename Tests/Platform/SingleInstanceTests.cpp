#include "Platform/Linux/LinuxRunLoop.h"
#include "Platform/Linux/SingleInstance.h"

#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace mimkins::test {

namespace {

using testing::ElementsAre;

TEST(SingleInstance, SecondOneIsRefusedUntilTheFirstEnds) {
    const TemporaryFolder folder;
    {
        SingleInstance first(folder / "support");
        EXPECT_TRUE(first.claim());
        SingleInstance second(folder / "support");
        EXPECT_FALSE(second.claim());
    }
    SingleInstance third(folder / "support");
    EXPECT_TRUE(third.claim());
}

void expectMessageArrives(const std::string& folder) {
    LinuxRunLoop loop;
    SingleInstance first(folder);
    ASSERT_TRUE(first.claim());
    std::vector<std::string> received;
    const Handle listening =
        first.listen(loop, [&](const std::string& message) { received.push_back(message); });
    bool told = false;
    std::thread sender([&] { told = SingleInstance(folder).send("open"); });
    EXPECT_TRUE(loop.runUntil([&] { return !received.empty(); }, 10));
    sender.join();
    EXPECT_TRUE(told);
    EXPECT_THAT(received, ElementsAre("open"));
}

TEST(SingleInstance, MessageReachesTheFirst) {
    const TemporaryFolder folder;
    expectMessageArrives(folder / "support");
    expectMessageArrives(folder / "support"); // over the socket that the one before left behind
}

TEST(SingleInstance, HomeMayBeLongerThanASocketsAddress) {
    const TemporaryFolder folder;
    expectMessageArrives(folder / (std::string(100, 'a') + "/" + std::string(100, 'b')));
}

TEST(SingleInstance, MessageWaitsForAFirstThatHasYetToListen) {
    const TemporaryFolder folder;
    SingleInstance first(folder / "support");
    ASSERT_TRUE(first.claim());
    bool told = false;
    std::atomic<bool> began = false;
    std::thread sender([&] {
        began = true;
        told = SingleInstance(folder / "support").send("open");
    });
    while (!began) {
        std::this_thread::yield();
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100)); // some attempts fail
    LinuxRunLoop loop;
    std::vector<std::string> received;
    const Handle listening =
        first.listen(loop, [&](const std::string& message) { received.push_back(message); });
    EXPECT_TRUE(loop.runUntil([&] { return !received.empty(); }, 10));
    sender.join();
    EXPECT_TRUE(told);
}

TEST(SingleInstance, FirstThatNeverListensIsGivenUp) {
    const TemporaryFolder folder;
    SingleInstance first(folder / "support");
    ASSERT_TRUE(first.claim());
    EXPECT_FALSE(SingleInstance(folder / "support").send("open"));
}

TEST(SingleInstance, NobodyListens) {
    const TemporaryFolder folder;
    EXPECT_FALSE(SingleInstance(folder / "support").send("open"));
}

} // namespace

} // namespace mimkins::test
