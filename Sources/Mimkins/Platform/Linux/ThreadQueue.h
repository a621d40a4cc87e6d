#pragma once

#include "Platform/WorkQueue.h"

#include <memory>
#include <string>
#include <utility>

namespace mimkins {

/// Work on threads of its own, begun in the order in which it came. Threads start when there is work and end
/// with the queue. Work that throws is logged and costs itself only.
class ThreadQueue : public WorkQueue {
public:
    struct Options {
        std::string name;     ///< the threads' name, of which the system shows 15 bytes
        unsigned threads = 1; ///< at most so many at a time
        int niceness = 0;     ///< 0 to 19: how far the work gives way to everything else on the machine
    };

    explicit ThreadQueue(Options options);
    /// Drops the work that waits and returns when the work under way is done. Not to be called by that work.
    ~ThreadQueue() override;
    ThreadQueue(const ThreadQueue&) = delete;
    ThreadQueue& operator=(const ThreadQueue&) = delete;

    /// May be called from any thread.
    void async(std::function<void()> work) override;

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// The niceness of work that nobody waits for.
inline constexpr int utilityNiceness = 5;

/// One piece of work at a time, in order.
class SerialQueue final : public ThreadQueue {
public:
    explicit SerialQueue(std::string name) : ThreadQueue({std::move(name), 1, utilityNiceness}) {}
};

/// A few pieces of work at the same time.
class ConcurrentQueue final : public ThreadQueue {
public:
    static constexpr unsigned usualThreads = 3;

    explicit ConcurrentQueue(std::string name, unsigned threads = usualThreads)
        : ThreadQueue({std::move(name), threads, utilityNiceness}) {}
};

} // namespace mimkins
