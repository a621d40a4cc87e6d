#include "Platform/Linux/PulseSoundPlayer.h"

#include "Base/Log.h"
#include "Platform/Linux/PulsePlayback.h"
#include "Sound/Sounds.h"

namespace mimkins {

void PulseSoundPlayer::play(const std::string& name) {
    const unsigned number = ++asked_;
    queue_.async([this, name, number] {
        if (number == asked_ && !ending_) {
            playNow(name);
        }
    });
}

void PulseSoundPlayer::playNow(const std::string& name) {
    const auto samples = soundSamples(name);
    if (samples.empty()) {
        return;
    }
    if (!pulse_) {
        pulse_ = loadPulseLibrary(library_);
    }
    if (!pulse_) {
        tellOnce("no library for sounds: " + library_);
        return;
    }
    PulsePlayback playback(*pulse_, [this] { return ending_.load(); });
    if (!playback.play(samples, soundRate) && !ending_) {
        tellOnce("no sound server takes sounds");
    }
}

void PulseSoundPlayer::tellOnce(std::string_view reason) {
    if (!told_) {
        log::write(log::Level::standard, "sounds", reason);
    }
    told_ = true;
}

} // namespace mimkins
