#pragma once

#include "Presentation/SweepWords.h"
#include "Presentation/Table.h"

#include <string>

namespace mimkins {

/// The report before logging off for a terminal: the words of the all-clear or none, the sections with their
/// counts, and when it was made. Titles and details stand in two columns; each row is one line that fits the
/// width.
std::string sweepText(const SweepWords& words, const TableStyle& style);

} // namespace mimkins
