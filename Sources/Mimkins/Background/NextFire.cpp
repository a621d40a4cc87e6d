#include "Background/NextFire.h"

#include "Base/Text.h"

#include <unicode/basictz.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace mimkins {

namespace {

constexpr std::int64_t minutesPerDay = 1'440;

/// Dates further than this from 1970 (over five million years) lie outside the calendar.
constexpr double calendarLimit = 1.8e14; // seconds

struct Schedule {
    std::int64_t minute = 0;
    std::int64_t hour = 0;
    std::int64_t day = 0;
    std::int64_t month = 0;
};

/// A decimal number of 64 bits with an optional sign; nothing if any other character stands in the text.
std::optional<std::int64_t> wholeNumber(std::string_view text) {
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) {
            return std::nullopt;
        }
    }
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || rest != end) {
        return std::nullopt;
    }
    return value;
}

std::optional<Schedule> readSchedule(std::string_view cron) {
    const auto pieces = text::splitDroppingEmpty(cron, ' ');
    std::array<std::int64_t, 4> numbers{};
    if (pieces.size() < numbers.size()) {
        return std::nullopt;
    }
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        const auto number = wholeNumber(pieces[index]);
        if (!number) {
            return std::nullopt;
        }
        numbers.at(index) = *number;
    }
    return Schedule{numbers[0], numbers[1], numbers[2], numbers[3]};
}

constexpr std::int64_t floorDivide(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

/// The year in which a day lies, both counted in the Gregorian calendar, the day from 1 January 1970.
std::int64_t yearOfDay(std::int64_t day) {
    constexpr std::int64_t daysPerEra = 146'097; // 400 years
    const std::int64_t shifted = day + 719'468;  // from 1 March of the year 0
    const std::int64_t era = floorDivide(shifted, daysPerEra);
    const std::int64_t dayOfEra = shifted - era * daysPerEra;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1'460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    constexpr std::int64_t firstOfJanuary = 306; // counted from 1 March
    return era * 400 + yearOfEra + (dayOfYear >= firstOfJanuary ? 1 : 0);
}

/// The day, counted from 1 January 1970, on which a month begins. `month` is 0 for January and at most 11.
std::int64_t firstDayOfMonth(std::int64_t year, std::int64_t month) {
    const std::int64_t monthFromMarch = (month + 10) % 12;
    const std::int64_t yearFromMarch = month < 2 ? year - 1 : year;
    const std::int64_t era = floorDivide(yearFromMarch, 400);
    const std::int64_t yearOfEra = yearFromMarch - era * 400;
    const std::int64_t dayOfYear = (153 * monthFromMarch + 2) / 5;
    return era * 146'097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719'468;
}

/// Local minutes since 1 January 1970, 00:00. Nothing on overflow.
std::optional<std::int64_t> localMinutes(std::int64_t year, const Schedule& schedule) {
    std::int64_t months = 0;
    if (__builtin_sub_overflow(schedule.month, 1, &months)) {
        return std::nullopt;
    }
    const std::int64_t years = floorDivide(months, 12);
    constexpr std::int64_t yearLimit = 6'000'000;
    if (years < -yearLimit || years > yearLimit) {
        return std::nullopt;
    }
    std::int64_t minutes = 0;
    std::int64_t hourMinutes = 0;
    const std::int64_t monthDay = firstDayOfMonth(year + years, months - years * 12);
    if (__builtin_add_overflow(schedule.day, monthDay - 1, &minutes) ||
        __builtin_mul_overflow(minutes, minutesPerDay, &minutes) ||
        __builtin_mul_overflow(schedule.hour, 60, &hourMinutes) ||
        __builtin_add_overflow(minutes, hourMinutes, &minutes) ||
        __builtin_add_overflow(minutes, schedule.minute, &minutes)) {
        return std::nullopt;
    }
    return minutes;
}

std::optional<Date> compose(std::int64_t year, const Schedule& schedule, const icu::TimeZone& zone) {
    const auto minutes = localMinutes(year, schedule);
    if (!minutes) {
        return std::nullopt;
    }
    const double local = static_cast<double>(*minutes) * 60.0;
    if (std::fabs(local) > calendarLimit) {
        return std::nullopt;
    }
    std::int32_t raw = 0;
    std::int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    if (const auto* basic = dynamic_cast<const icu::BasicTimeZone*>(&zone)) {
        basic->getOffsetFromLocal(
            local * 1000.0, UCAL_TZ_LOCAL_FORMER, UCAL_TZ_LOCAL_FORMER, raw, saving, status
        );
    } else {
        zone.getOffset(local * 1000.0, 1, raw, saving, status);
    }
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    return Date{local - (raw + saving) / 1000.0};
}

/// The year of a moment in a zone.
std::optional<std::int64_t> yearOf(Date date, const icu::TimeZone& zone) {
    if (!(std::fabs(date.secondsSince1970) <= calendarLimit)) {
        return std::nullopt;
    }
    std::int32_t raw = 0;
    std::int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    zone.getOffset(date.milliseconds(), 0, raw, saving, status);
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    constexpr double secondsPerDay = 86'400;
    const double local = date.secondsSince1970 + (raw + saving) / 1000.0;
    return yearOfDay(static_cast<std::int64_t>(std::floor(local / secondsPerDay)));
}

} // namespace

std::optional<Date> nextFire(std::string_view cron, Date after, const icu::TimeZone& zone) {
    const auto schedule = readSchedule(cron);
    const auto year = schedule ? yearOf(after, zone) : std::nullopt;
    const auto first = year ? compose(*year, *schedule, zone) : std::nullopt;
    // A schedule aimed at the current minute is announced a few seconds into it and still is this year's.
    constexpr double grace = 60;
    if (!first || !(*first < after - grace)) {
        return first;
    }
    const auto second = compose(*year + 1, *schedule, zone);
    return second ? second : first;
}

std::unique_ptr<icu::TimeZone> currentTimeZone() {
    return std::unique_ptr<icu::TimeZone>(icu::TimeZone::detectHostTimeZone());
}

} // namespace mimkins
