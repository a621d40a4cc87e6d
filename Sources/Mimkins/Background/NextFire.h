#pragma once

#include "Base/Date.h"

#include <unicode/timezone.h>

#include <memory>
#include <optional>
#include <string_view>

namespace mimkins {

/// The moment at which a schedule ("minute hour day month", whatever follows) fires, in the zone's local time
/// and the year of `after`, or in the next year if that lies more than 60 seconds before `after`. Nothing for
/// a schedule that isn't pinned to one calendar moment by four whole numbers, and for one beyond the
/// calendar.
///
/// The calendar is lenient: month 13 is next year's January, day 0 the last of the month before. A local time
/// that a change of the clocks leaves out counts on from before the change; of one that comes twice, the
/// first is meant.
std::optional<Date> nextFire(std::string_view cron, Date after, const icu::TimeZone& zone);

/// The user's time zone as the system has it set at this moment.
std::unique_ptr<icu::TimeZone> currentTimeZone();

} // namespace mimkins
