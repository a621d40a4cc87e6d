#pragma once

#include <functional>
#include <utility>

namespace mimkins {

/// Owns something that must be ended once: a timer, a watcher, a registration. Destroying or resetting the
/// handle ends it. An empty handle is harmless.
class [[nodiscard]] Handle {
public:
    Handle() = default;

    explicit Handle(std::function<void()> end) : end_(std::move(end)) {}

    Handle(Handle&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}

    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) {
            reset();
            end_ = std::exchange(other.end_, nullptr);
        }
        return *this;
    }

    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    ~Handle() { reset(); }

    void reset() {
        if (const auto end = std::exchange(end_, nullptr)) {
            end();
        }
    }

    explicit operator bool() const { return static_cast<bool>(end_); }

private:
    std::function<void()> end_;
};

} // namespace mimkins
