#pragma once

#include "Theme/PetTheme.h"

namespace mimkins {

/// The colour of a control that is on or chosen: the first of the title's that is a colour rather than a
/// grey, else the colour of work. The theme has plain colours.
Color controlAccent(const PetTheme& theme);

/// Black or white, whichever is read better on a colour.
Color inkOn(const Color& ground);

/// How much two opaque colours differ in brightness, from 1 to 21.
double contrast(const Color& left, const Color& right);

} // namespace mimkins
