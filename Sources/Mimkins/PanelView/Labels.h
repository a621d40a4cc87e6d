#pragma once

#include "Drawing/Color.h"

#include <QFont>
#include <QLabel>

namespace mimkins {

/// Gives a label its font and its colour.
void dress(QLabel& label, const QFont& font, const Color& color);

} // namespace mimkins
