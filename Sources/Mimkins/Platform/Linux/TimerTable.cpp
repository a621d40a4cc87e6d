#include "Platform/Linux/TimerTable.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace mimkins {

TimerTable::Span TimerTable::span(double seconds) {
    constexpr double longest = 30.0 * 365.0 * 86'400.0;
    const double bounded = seconds > 0 ? std::min(seconds, longest) : 0;
    return std::chrono::duration_cast<Span>(std::chrono::duration<double>(bounded));
}

std::uint64_t TimerTable::add(Moment now, Span delay, Span period, std::function<void()> work) {
    const auto number = nextNumber_++;
    timers_.emplace(
        Key{now + delay, number}, Timer{period, std::make_shared<std::function<void()>>(std::move(work))}
    );
    dueOf_.emplace(number, now + delay);
    return number;
}

void TimerTable::remove(std::uint64_t number) {
    if (const auto due = dueOf_.find(number); due != dueOf_.end()) {
        // The work may hold the last reference to whatever owns this table's handles, so it goes last.
        const auto node = timers_.extract(Key{due->second, number});
        dueOf_.erase(due);
    }
}

std::optional<TimerTable::Moment> TimerTable::earliest() const {
    if (timers_.empty()) {
        return std::nullopt;
    }
    return timers_.begin()->first.due;
}

void TimerTable::runDue(Moment now) {
    std::vector<Key> due;
    for (auto timer = timers_.begin(); timer != timers_.end() && timer->first.due <= now; ++timer) {
        due.push_back(timer->first);
    }
    for (const Key& key : due) {
        auto node = timers_.extract(key);
        if (node.empty()) {
            continue;
        }
        const auto work = node.mapped().work;
        if (const Span period = node.mapped().period; period > Span::zero()) {
            node.key().due += period * ((now - key.due) / period + 1);
            dueOf_[key.number] = node.key().due;
            timers_.insert(std::move(node));
        } else {
            dueOf_.erase(key.number);
        }
        (*work)();
    }
}

} // namespace mimkins
