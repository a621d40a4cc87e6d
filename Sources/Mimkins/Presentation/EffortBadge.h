#pragma once

#include "Drawing/Shading.h"
#include "Drawing/Symbols.h"

#include <string>

namespace mimkins {

/// The badge of a session that is told to think hard.
struct EffortBadge {
    Symbol symbol = Symbol::flame;
    std::string word;
    Gradient gradient; ///< from the leading edge to the trailing one
    std::string toolTip;

    friend bool operator==(const EffortBadge&, const EffortBadge&) = default;
};

/// `boost` 2 is the highest effort; anything else counts as the one below.
EffortBadge effortBadge(int boost);

} // namespace mimkins
