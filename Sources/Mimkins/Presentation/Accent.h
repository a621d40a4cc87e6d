#pragma once

#include "Theme/PetTheme.h"

namespace mimkins {

/// The theme's leading colour: the first of its title's, else that of work.
Color accent(const PetTheme& theme);

/// The colour of a control that is on or chosen: the first of the title's that is a colour rather than a
/// grey, else the colour of work. The theme has plain colours.
Color controlAccent(const PetTheme& theme);

} // namespace mimkins
