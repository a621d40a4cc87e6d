#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

namespace mimkins {

/// The one clock behind all movement of a window. It ticks only while something moves.
class FrameClock {
public:
    /// `step` moves everything on by so many seconds and gives whether something still moves.
    explicit FrameClock(std::function<bool(double)> step);

    /// Begins to tick, unless it does already.
    void start();
    void stop();

    bool isRunning() const { return timer_.isActive(); }

private:
    void tick();

    std::function<bool(double)> step_;
    QTimer timer_;
    QElapsedTimer since_;
};

} // namespace mimkins
