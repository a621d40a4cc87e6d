#pragma once

#include "Platform/Linux/DescriptorWatcher.h"
#include "Platform/RunLoop.h"

#include <functional>
#include <memory>

namespace mimkins {

/// A main loop without any toolkit. Its clock is the wall clock; its timers run on the monotonic one, so that
/// setting the clock neither fires nor delays them. Handles may outlive the loop.
class LinuxRunLoop final : public RunLoop, public DescriptorWatcher {
public:
    /// Throws `Error` when the process has no descriptors left.
    LinuxRunLoop();
    ~LinuxRunLoop() override;
    LinuxRunLoop(const LinuxRunLoop&) = delete;
    LinuxRunLoop& operator=(const LinuxRunLoop&) = delete;

    Date now() const override;
    void post(std::function<void()> work) override;
    Handle after(double seconds, std::function<void()> work) override;
    Handle every(double seconds, std::function<void()> work) override;
    Handle whenReadable(int descriptor, std::function<void()> readable) override;

    /// Runs until `stop`.
    void run();

    /// Runs until the condition holds, `seconds` have passed, or `stop`; gives whether the condition holds.
    /// It is asked at the beginning and after every round of work.
    bool runUntil(const std::function<bool()>& condition, double seconds);

    /// Runs for so many seconds, or until `stop`.
    void runFor(double seconds);

    /// Ends the present run after its present round of work; when nothing runs, the next run ends at once.
    /// May be called from any thread.
    void stop();

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace mimkins
