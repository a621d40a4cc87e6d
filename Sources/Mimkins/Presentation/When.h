#pragma once

#include "Base/Date.h"
#include "Session/Facts.h"

#include <string>

namespace mimkins {

/// When a scheduled task is due, in the user's locale, calendar and time zone: "Today 14:30",
/// "Tomorrow 08:00", else the date and the time; "Recurring" for a task without a date.
std::string when(const ScheduledItem& item, Date now);

} // namespace mimkins
