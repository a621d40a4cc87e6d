#include "Platform/Linux/ThreadQueue.h"

#include "Base/Log.h"

#include <pthread.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace mimkins {

namespace {

/// Keeps signals away from threads that are started in its lifetime, so that the main thread gets them.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before_);
    }

    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

    ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

private:
    sigset_t before_{};
};

void runGuarded(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::exception& failure) {
        log::write(log::Level::fault, "queue", failure.what());
    }
}

} // namespace

struct ThreadQueue::State {
    explicit State(Options chosen) : options(std::move(chosen)) {}

    const Options options;
    std::mutex mutex; ///< guards everything below
    std::condition_variable changed;
    std::deque<std::function<void()>> waiting;
    std::vector<std::thread> threads;
    std::size_t idle = 0;
    bool ending = false;

    void describeThread() const {
        constexpr std::size_t longestName = 15;
        ::pthread_setname_np(::pthread_self(), options.name.substr(0, longestName).c_str());
        if (options.niceness > 0) {
            // The system knows niceness by thread.
            ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), options.niceness);
        }
    }

    void serve() {
        describeThread();
        std::unique_lock lock(mutex);
        while (true) {
            ++idle;
            changed.wait(lock, [this] { return ending || !waiting.empty(); });
            --idle;
            if (ending) {
                return;
            }
            {
                const auto work = std::move(waiting.front());
                waiting.pop_front();
                lock.unlock();
                runGuarded(work);
            }
            lock.lock();
        }
    }
};

ThreadQueue::ThreadQueue(Options options) : state_(std::make_unique<State>(std::move(options))) {}

ThreadQueue::~ThreadQueue() {
    std::deque<std::function<void()>> dropped;
    {
        const std::lock_guard lock(state_->mutex);
        state_->ending = true;
        dropped.swap(state_->waiting);
    }
    state_->changed.notify_all();
    dropped.clear(); // at once: closures may hold what somebody waits to see go
    for (auto& thread : state_->threads) {
        thread.join();
    }
}

void ThreadQueue::async(std::function<void()> work) {
    {
        const std::lock_guard lock(state_->mutex);
        if (state_->ending) {
            return;
        }
        state_->waiting.push_back(std::move(work));
        const bool room = state_->threads.size() < std::max(1U, state_->options.threads);
        if (state_->waiting.size() > state_->idle && room) {
            const SignalsBlocked blocked;
            state_->threads.emplace_back([state = state_.get()] { state->serve(); });
        }
    }
    state_->changed.notify_one();
}

} // namespace mimkins
