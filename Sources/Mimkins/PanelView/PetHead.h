#pragma once

#include "Session/Mood.h"
#include "Theme/PetTheme.h"

#include <QRectF>

#include <cstdint>

class QPainter;

namespace mimkins {

/// A pet's head: round and coloured by its seed, with a face for its mood.
struct PetHead {
    std::uint64_t seed = 0;
    std::uint64_t shuffle = 0;
    Mood mood = Mood::idle;
    bool eyesShut = false;

    void draw(QPainter& painter, const QRectF& square, const PetTheme& theme) const;
};

} // namespace mimkins
