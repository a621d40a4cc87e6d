#pragma once

#include "Platform/Linux/PulseLibrary.h"
#include "Platform/Linux/ThreadQueue.h"
#include "Platform/SoundPlayer.h"

#include <atomic>
#include <optional>
#include <string>

namespace mimkins {

/// Plays the program's own sounds through the user's sound server, one at a time, on a thread of its own. The
/// connection lasts as long as the sound. Without a library or a server there is silence, and one line in the
/// log.
class PulseSoundPlayer final : public SoundPlayer {
public:
    explicit PulseSoundPlayer(std::string library = "libpulse.so.0") : library_(std::move(library)) {}

    /// Cuts a sound off that is being played.
    ~PulseSoundPlayer() override { ending_ = true; }

    PulseSoundPlayer(const PulseSoundPlayer&) = delete;
    PulseSoundPlayer& operator=(const PulseSoundPlayer&) = delete;

    /// Returns at once. Of sounds that are asked for while one is played, the last follows.
    void play(const std::string& name) override;

private:
    void playNow(const std::string& name);
    void tellOnce(std::string_view reason);

    const std::string library_;
    std::atomic<bool> ending_ = false;
    std::atomic<unsigned> asked_ = 0;
    // These two belong to the thread.
    std::optional<PulseLibrary> pulse_;
    bool told_ = false;
    ThreadQueue queue_{{"sounds"}}; // last, so that its thread ends before what it uses
};

} // namespace mimkins
