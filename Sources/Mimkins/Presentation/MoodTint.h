#pragma once

#include "Session/Mood.h"
#include "Theme/PetTheme.h"

namespace mimkins {

/// The colour of the theme in which a session of this mood is shown.
const Color& tint(const PetTheme& theme, Mood mood);

} // namespace mimkins
