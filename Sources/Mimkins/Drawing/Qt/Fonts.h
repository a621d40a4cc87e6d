#pragma once

#include "Drawing/TextRun.h"

#include <QFont>
#include <QString>

namespace mimkins {

/// The family that stands for a design: the first installed of a short list, else the application's own.
QString fontFamily(FontDesign design);

/// A font of that family, of no particular size.
QFont fontOf(FontDesign design, FontWeight weight);

} // namespace mimkins
