#pragma once

#include <string>

namespace mimkins {

/// A duration in its short form: "42s", "7m", "3h 5m". Whole seconds, rounded down; a negative one counts
/// as 0.
std::string elapsed(double seconds);

} // namespace mimkins
