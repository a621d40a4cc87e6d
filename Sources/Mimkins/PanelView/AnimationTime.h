#pragma once

#include "Base/Date.h"
#include "Pet/PetFrame.h"

namespace mimkins {

/// The clock of all pictures that move: seconds since 1 January 2001.
inline double animationTime(Date date) {
    return date.secondsSince1970 - animationReference;
}

} // namespace mimkins
