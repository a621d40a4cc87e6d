#pragma once

#include "Base/Date.h"

#include <optional>

namespace mimkins {

/// When the machine started, in the wall clock's present reckoning, right to well below a millisecond. The
/// kernel's own figure ("btime" in /proc/stat) has whole seconds only, so the boot clock is subtracted from
/// the wall clock. Nothing if there is no boot clock.
std::optional<Date> bootTime();

} // namespace mimkins
