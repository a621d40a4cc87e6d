#include "Platform/Linux/ProgressNote.h"

#include <unistd.h>

#include <string_view>
#include <utility>

namespace mimkins {

namespace {

/// A note that can't be written is no loss.
void print(int descriptor, std::string_view text) {
    [[maybe_unused]] const auto written = ::write(descriptor, text.data(), text.size());
}

} // namespace

ProgressNote::ProgressNote(int descriptor, std::string words, std::chrono::milliseconds delay)
    : descriptor_(descriptor), words_(std::move(words)) {
    if (::isatty(descriptor_) == 1) {
        thread_ = std::thread([this, delay] { showAfter(delay); });
    }
}

ProgressNote::~ProgressNote() {
    if (!thread_.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
    }
    end_.notify_one();
    thread_.join();
}

void ProgressNote::showAfter(std::chrono::milliseconds delay) {
    constexpr std::string_view clearLine = "\r\033[K";
    std::unique_lock lock(mutex_);
    const auto ended = [this] { return ended_; };
    if (end_.wait_for(lock, delay, ended)) {
        return;
    }
    print(descriptor_, words_);
    end_.wait(lock, ended);
    print(descriptor_, clearLine);
}

} // namespace mimkins
