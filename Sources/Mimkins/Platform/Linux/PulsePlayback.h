#pragma once

#include "Platform/Linux/PulseLibrary.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

namespace mimkins {

/// One sound on its way through the sound server (PulseAudio, or PipeWire in its place). The connection lasts
/// as long as the object.
class PulsePlayback {
public:
    /// `stopped` is asked several times a second, and true ends every wait.
    PulsePlayback(const PulseLibrary& pulse, std::function<bool()> stopped);
    ~PulsePlayback();
    PulsePlayback(const PulsePlayback&) = delete;
    PulsePlayback& operator=(const PulsePlayback&) = delete;

    /// Plays one channel and returns when the last sample has been heard, or nothing more is to be waited
    /// for. False if there is no server or it refuses.
    bool play(const std::vector<std::int16_t>& samples, std::uint32_t rate);

private:
    bool connect();
    bool openStream(std::uint32_t rate);
    bool drain();
    /// Serves the connection until the condition holds. False when stopped, broken or too late.
    bool waitUntil(const std::function<bool()>& condition);
    bool serve();

    const PulseLibrary& pulse_;
    std::function<bool()> stopped_;
    std::chrono::steady_clock::time_point latest_;
    pa_mainloop* loop_ = nullptr;
    pa_context* context_ = nullptr;
    pa_stream* stream_ = nullptr;
};

} // namespace mimkins
