#pragma once

#include "Base/Date.h"
#include "NextUp/NextUpPress.h"

#include <cstdint>
#include <string>

namespace mimkins {

/// What a short notice at the top of the screen says, and whose head stands beside it.
struct Notice {
    std::string title;
    std::string subtitle;
    std::uint64_t seed = 0; ///< of the pet

    friend bool operator==(const Notice&, const Notice&) = default;
};

/// The notice that answers a press of the shortcut at `now`.
Notice notice(const NextUp::Press& press, Date now);

} // namespace mimkins
