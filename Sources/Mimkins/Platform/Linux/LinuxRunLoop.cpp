#include "Platform/Linux/LinuxRunLoop.h"

#include "Base/Error.h"
#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/TimerTable.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace mimkins {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// A repeating timer rests at least so long, so that a period of 0 can't starve everything else.
constexpr double shortestPeriod = 0.001;

timespec timespecUntil(TimerTable::Moment moment) {
    const auto left = std::max(TimerTable::Span::zero(), TimerTable::Span(moment - SteadyClock::now()));
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    return {seconds.count(), (left - seconds).count()};
}

} // namespace

struct LinuxRunLoop::State {
    struct Watch {
        int descriptor = -1;
        std::shared_ptr<std::function<void()>> readable;
    };

    FileDescriptor wake;
    std::atomic<bool> stopping = false;
    std::mutex mutex; ///< guards `posted`
    std::deque<std::function<void()>> posted;
    TimerTable timers;
    std::map<std::uint64_t, Watch> watches;
    std::uint64_t nextWatch = 0;

    void wakeUp() const {
        const std::uint64_t one = 1;
        // A counter that is full has woken the loop already.
        [[maybe_unused]] const auto written = ::write(wake.get(), &one, sizeof one);
    }

    void runPosted() {
        std::size_t count = 0;
        {
            const std::lock_guard lock(mutex);
            count = posted.size();
        }
        // Work that these add runs in the next round, so that posting can't keep timers and events waiting.
        for (; count > 0; --count) {
            std::function<void()> work;
            {
                const std::lock_guard lock(mutex);
                work = std::move(posted.front());
                posted.pop_front();
            }
            work();
        }
    }

    bool hasPosted() {
        const std::lock_guard lock(mutex);
        return !posted.empty();
    }

    void runReadable(std::uint64_t number, short events) {
        const auto watch = watches.find(number);
        if (watch == watches.end()) {
            return;
        }
        const auto readable = watch->second.readable;
        if ((events & POLLNVAL) != 0) {
            watches.erase(watch); // closed behind our back; it would report that for ever
            return;
        }
        (*readable)();
    }

    /// Waits for events or until the deadline, then does everything that is due.
    void round(std::optional<TimerTable::Moment> deadline) {
        std::vector<pollfd> descriptors{{wake.get(), POLLIN, 0}};
        std::vector<std::uint64_t> numbers;
        for (const auto& [number, watch] : watches) {
            descriptors.push_back({watch.descriptor, POLLIN, 0});
            numbers.push_back(number);
        }
        auto until = timers.earliest();
        if (deadline && (!until || *deadline < *until)) {
            until = deadline;
        }
        if (hasPosted()) {
            until = SteadyClock::now();
        }
        const timespec patience = timespecUntil(until.value_or(TimerTable::Moment{}));
        const int ready =
            ::ppoll(descriptors.data(), descriptors.size(), until ? &patience : nullptr, nullptr);
        if (ready > 0 && descriptors[0].revents != 0) {
            std::uint64_t count = 0;
            [[maybe_unused]] const auto size = ::read(wake.get(), &count, sizeof count);
        }
        runPosted();
        timers.runDue(SteadyClock::now());
        for (std::size_t index = 0; ready > 0 && index < numbers.size(); ++index) {
            if (descriptors[index + 1].revents != 0) {
                runReadable(numbers[index], descriptors[index + 1].revents);
            }
        }
    }
};

LinuxRunLoop::LinuxRunLoop() : state_(std::make_shared<State>()) {
    state_->wake = FileDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!state_->wake) {
        throw Error::posix(errno, "Couldn't make an event descriptor");
    }
}

LinuxRunLoop::~LinuxRunLoop() = default;

Date LinuxRunLoop::now() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return {std::chrono::duration<double>(sinceEpoch).count()};
}

void LinuxRunLoop::post(std::function<void()> work) {
    {
        const std::lock_guard lock(state_->mutex);
        state_->posted.push_back(std::move(work));
    }
    state_->wakeUp();
}

Handle LinuxRunLoop::after(double seconds, std::function<void()> work) {
    const auto number = state_->timers.add(
        SteadyClock::now(), TimerTable::span(seconds), TimerTable::Span::zero(), std::move(work)
    );
    return Handle([state = std::weak_ptr(state_), number] {
        if (const auto living = state.lock()) {
            living->timers.remove(number);
        }
    });
}

Handle LinuxRunLoop::every(double seconds, std::function<void()> work) {
    const auto period = std::max(TimerTable::span(seconds), TimerTable::span(shortestPeriod));
    const auto number = state_->timers.add(SteadyClock::now(), period, period, std::move(work));
    return Handle([state = std::weak_ptr(state_), number] {
        if (const auto living = state.lock()) {
            living->timers.remove(number);
        }
    });
}

Handle LinuxRunLoop::whenReadable(int descriptor, std::function<void()> readable) {
    const auto number = state_->nextWatch++;
    state_->watches.emplace(
        number, State::Watch{descriptor, std::make_shared<std::function<void()>>(std::move(readable))}
    );
    return Handle([state = std::weak_ptr(state_), number] {
        if (const auto living = state.lock()) {
            const auto node = living->watches.extract(number);
        }
    });
}

void LinuxRunLoop::run() {
    const auto state = state_;
    while (!state->stopping.exchange(false)) {
        state->round(std::nullopt);
    }
}

bool LinuxRunLoop::runUntil(const std::function<bool()>& condition, double seconds) {
    const auto state = state_;
    const auto deadline = SteadyClock::now() + TimerTable::span(seconds);
    bool holds = condition();
    while (!holds && !state->stopping.exchange(false) && SteadyClock::now() < deadline) {
        state->round(deadline);
        holds = condition();
    }
    return holds;
}

void LinuxRunLoop::runFor(double seconds) {
    runUntil([] { return false; }, seconds);
}

void LinuxRunLoop::stop() {
    state_->stopping = true;
    state_->wakeUp();
}

} // namespace mimkins
