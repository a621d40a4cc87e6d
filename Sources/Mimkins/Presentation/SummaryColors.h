#pragma once

#include "Presentation/Summary.h"
#include "Theme/PetTheme.h"

namespace mimkins {

/// The colour of the summary's text, and of the capsule behind it.
Color summaryInk(const PetTheme& theme, SummaryKind kind);
Color summaryFill(const PetTheme& theme, SummaryKind kind);

} // namespace mimkins
