#pragma once

#include "Platform/RunLoop.h"
#include "Platform/WorkQueue.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <utility>

namespace mimkins::test {

/// A loop whose clock stands still until it is cranked.
class ManualRunLoop final : public RunLoop {
public:
    explicit ManualRunLoop(Date start = Date{1'795'246'096.0}) : now_(start) {}

    Date now() const override { return now_; }

    void post(std::function<void()> work) override { posted_.push_back(std::move(work)); }

    Handle after(double seconds, std::function<void()> work) override {
        return schedule({now_ + seconds, 0, std::move(work)});
    }

    Handle every(double seconds, std::function<void()> work) override {
        return schedule({now_ + seconds, seconds, std::move(work)});
    }

    /// Runs what was posted, and what that posts, without moving the clock.
    void drain() {
        while (!posted_.empty()) {
            const auto work = std::move(posted_.front());
            posted_.pop_front();
            work();
        }
    }

    /// Moves the clock on, stopping at each timer that falls due on the way.
    void advance(double seconds) {
        const Date end = now_ + seconds;
        drain();
        for (auto next = earliest(); next != timers_.end() && next->second.due <= end; next = earliest()) {
            now_ = next->second.due;
            const auto work = next->second.work;
            if (next->second.period > 0) {
                next->second.due = next->second.due + next->second.period;
            } else {
                timers_.erase(next);
            }
            work();
            drain();
        }
        now_ = end;
    }

    void set(Date date) { now_ = date; }

    std::size_t timers() const { return timers_.size(); }

private:
    struct Timer {
        Date due;
        double period = 0;
        std::function<void()> work;
    };

    Handle schedule(Timer timer) {
        const auto key = nextKey_++;
        timers_.emplace(key, std::move(timer));
        return Handle([this, key] { timers_.erase(key); });
    }

    std::map<std::uint64_t, Timer>::iterator earliest() {
        auto best = timers_.begin();
        for (auto timer = timers_.begin(); timer != timers_.end(); ++timer) {
            if (timer->second.due < best->second.due) {
                best = timer;
            }
        }
        return best;
    }

    Date now_;
    std::deque<std::function<void()>> posted_;
    std::map<std::uint64_t, Timer> timers_;
    std::uint64_t nextKey_ = 0;
};

/// A queue whose work runs when the test says so.
class ManualWorkQueue final : public WorkQueue {
public:
    void async(std::function<void()> work) override { waiting_.push_back(std::move(work)); }

    void run() {
        while (!waiting_.empty()) {
            const auto work = std::move(waiting_.front());
            waiting_.pop_front();
            work();
        }
    }

    std::size_t waiting() const { return waiting_.size(); }

private:
    std::deque<std::function<void()>> waiting_;
};

} // namespace mimkins::test
