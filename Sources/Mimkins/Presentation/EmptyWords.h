#pragma once

#include <string_view>

namespace mimkins {

/// What the drawer says while no session is out.
inline constexpr std::string_view noPetsOut = "No pets out";

} // namespace mimkins
