#pragma once

#include <string>

namespace mimkins {

/// Plays the short sounds that come with the program.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    /// Plays the sound of this name once, such as "Pop". An unknown name plays nothing.
    virtual void play(const std::string& name) = 0;
};

} // namespace mimkins
