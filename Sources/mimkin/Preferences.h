#pragma once

#include "Base/Paths.h"
#include "Session/Session.h"

#include <cstdint>

namespace mimkins {

/// What a listing needs of the user's preferences.
struct ListPreferences {
    SessionRules rules;
    std::uint64_t shuffle = 0;
};

ListPreferences readPreferences(const Paths& paths);

} // namespace mimkins
