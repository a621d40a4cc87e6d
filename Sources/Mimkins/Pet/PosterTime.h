#pragma once

#include "Pet/Routine.h"

namespace mimkins {

/// The moment of a routine that tells most, for pictures that show it standing still: the clock of the
/// animation in seconds, and the phase of a routine that has one.
double posterTime(Routine routine);

/// True for routines that are told how many seconds they have been going on.
bool takesPhase(Routine routine);

} // namespace mimkins
