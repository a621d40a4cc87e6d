#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace mimkins {

/// Tells whoever waits at a terminal that work goes on: the words stand there from the end of the delay until
/// the note ends, and leave nothing behind. Anything but a terminal is left alone.
class ProgressNote {
public:
    /// `descriptor` stays the caller's and open; nobody else writes to it while the note lives.
    ProgressNote(int descriptor, std::string words, std::chrono::milliseconds delay);
    ~ProgressNote();

    ProgressNote(const ProgressNote&) = delete;
    ProgressNote& operator=(const ProgressNote&) = delete;

private:
    void showAfter(std::chrono::milliseconds delay);

    int descriptor_;
    std::string words_;
    std::mutex mutex_;
    std::condition_variable end_;
    bool ended_ = false;
    std::thread thread_;
};

} // namespace mimkins
