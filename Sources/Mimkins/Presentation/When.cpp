#include "Presentation/When.h"

#include "Base/DateText.h"

#include <unicode/calendar.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace mimkins {

namespace {

/// A number for the day of the local calendar in which a moment lies; the day after has the next number.
std::optional<std::int32_t> dayNumber(Date date) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(status));
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    calendar->setTime(date.milliseconds(), status);
    const auto day = calendar->get(UCAL_JULIAN_DAY, status);
    return U_SUCCESS(status) ? std::optional(day) : std::nullopt;
}

} // namespace

std::string when(const ScheduledItem& item, Date now) {
    if (!item.fire) {
        return "Recurring";
    }
    const auto day = dayNumber(*item.fire);
    const auto today = dayNumber(now);
    if (day && today && *day == *today) {
        return "Today " + text::shortTime(*item.fire);
    }
    if (day && today && *day == *today + 1) {
        return "Tomorrow " + text::shortTime(*item.fire);
    }
    return text::dateAndShortTime(*item.fire);
}

} // namespace mimkins
