#pragma once

#include "Base/Date.h"

#include <optional>
#include <string>
#include <string_view>

/// Dates as text.
namespace mimkins::text {

/// Reads "2026-11-21T07:30:18.390Z" and the same without the fraction; an offset such as "+02:00" or "+0200"
/// may stand for "Z". The fraction may have any number of digits. Everything else gives nothing.
std::optional<Date> parseIso8601(std::string_view text);

/// "2026-11-15T19:11:06Z": UTC, whole seconds, rounded down.
std::string iso8601(Date date);

/// "2026-11-15 19:11:06 +0000": UTC, whole seconds, rounded down.
std::string description(Date date);

/// The short time of day of the user's locale and time zone, such as "14:30" or "2:30 PM".
std::string shortTime(Date date);

/// The date in its abbreviated form and the short time of day, in the user's locale, calendar and time zone.
std::string dateAndShortTime(Date date);

} // namespace mimkins::text
