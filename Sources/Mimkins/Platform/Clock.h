#pragma once

#include "Base/Date.h"

namespace mimkins {

/// The present. Rules never ask it: they take a date as an argument.
class Clock {
public:
    virtual ~Clock() = default;
    virtual Date now() const = 0;
};

} // namespace mimkins
