#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <tuple>

namespace mimkins {

/// The timers of a loop: what is due when, on the monotonic clock. It is told the time and never asks for it.
class TimerTable {
public:
    using Moment = std::chrono::steady_clock::time_point;
    using Span = std::chrono::nanoseconds;

    /// Seconds as a span: nothing below 0 (nor what isn't a number), and at most 30 years, which no sum with
    /// a moment overflows.
    static Span span(double seconds);

    /// Adds a timer that is due after `delay` and then, if `period` isn't 0, again and again. Gives its
    /// number.
    std::uint64_t add(Moment now, Span delay, Span period, std::function<void()> work);

    void remove(std::uint64_t number);

    /// When the earliest timer is due.
    std::optional<Moment> earliest() const;

    /// Runs each timer that is due at `now`, in the order in which they fell due. Timers that this work adds
    /// wait for the next call; those it removes don't run. A repeating timer keeps its rhythm and leaves out
    /// what was missed.
    void runDue(Moment now);

private:
    struct Key {
        Moment due;
        std::uint64_t number = 0;

        friend bool operator<(const Key& left, const Key& right) {
            return std::tie(left.due, left.number) < std::tie(right.due, right.number);
        }
    };

    struct Timer {
        Span period;
        std::shared_ptr<std::function<void()>> work;
    };

    std::map<Key, Timer> timers_;
    std::map<std::uint64_t, Moment> dueOf_;
    std::uint64_t nextNumber_ = 0;
};

} // namespace mimkins
