#pragma once

#include "Platform/LinkOpener.h"
#include "Platform/SoundPlayer.h"

namespace mimkins {

/// Opens nothing, for pictures.
class NoLinks final : public LinkOpener {
public:
    void openLink(const std::string&) override {}

    void showFile(const std::string&) override {}

    void showFolder(const std::string&) override {}
};

/// Plays nothing, for pictures.
class NoSounds final : public SoundPlayer {
public:
    void play(const std::string&) override {}
};

} // namespace mimkins
