#pragma once

#include "Theme/PetTheme.h"

#include <QString>

namespace mimkins {

/// The style sheet of the thin scroll bars in the drawer. The theme has plain colours.
QString scrollBarStyle(const PetTheme& theme);

} // namespace mimkins
