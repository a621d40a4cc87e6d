#pragma once

#include "Presentation/Table.h"

namespace mimkins {

/// True if standard output is a terminal.
bool outputIsTerminal();

/// The layout for standard output: its width and, on a terminal without NO_COLOR, colour. No limit elsewhere.
TableStyle outputStyle();

} // namespace mimkins
