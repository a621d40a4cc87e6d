#pragma once

#include "Drawing/Color.h"

namespace mimkins {

/// How well an ink can be read on an opaque ground, from 1 (not at all) to 21 (black on white); an ink that
/// is seen through counts as what is seen. Small words need 4.5. Both colours are plain.
double contrast(const Color& ink, const Color& ground);

/// Black at this opacity, as most grounds take it; white where the ground is so dark that white is read
/// better.
Color inkOn(const Color& ground, double opacity);

/// What a colour has to be read on.
struct Readability {
    Color ground;
    Color towards; ///< a darker or lighter colour that can be read there
    double contrast = 3;
};

/// The colour, mixed with as much of the other one as it takes; the other one itself if nothing less does.
Color readable(const Color& color, const Readability& wanted);

} // namespace mimkins
