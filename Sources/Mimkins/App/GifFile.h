#pragma once

#include <QImage>

#include <functional>
#include <string>

namespace mimkins {

/// A moving picture, made frame by frame so that none has to be kept.
struct Film {
    int frames = 1;
    double frameSeconds = 0.05;
    /// All frames are equally large and opaque. Asked for more than once.
    std::function<QImage(int)> frame;
};

/// Writes a GIF that goes round for ever, all frames in the colours of one palette. Gives whether it was
/// written.
bool writeGif(const Film& film, const std::string& file);

} // namespace mimkins
