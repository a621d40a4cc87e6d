#pragma once

#include "Drawing/Color.h"

namespace mimkins {

/// Whether the desktop is light or dark, by the colours that it gives to windows.
ColorScheme systemScheme();

} // namespace mimkins
