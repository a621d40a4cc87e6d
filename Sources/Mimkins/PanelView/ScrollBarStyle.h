#pragma once

#include "Theme/PetTheme.h"

#include <QString>

namespace mimkins {

/// A narrow scroll bar in the colours of a theme, as a style sheet.
QString scrollBarStyle(const PetTheme& theme);

} // namespace mimkins
