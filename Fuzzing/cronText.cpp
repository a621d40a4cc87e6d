#include "Background/NextFire.h"
#include "Support.h"

#include <array>
#include <chrono>
#include <cmath>
#include <memory>
#include <string>

// Feeds schedules to the calendar. Whatever is in them, the outcome is a finite date or none, and none for a
// reference beyond the calendar; asked again, it is the same. A schedule that a person would write, made of
// the input's first bytes, comes next at just that minute.

namespace {

using namespace mimkins;
using fuzz::require;

constexpr std::size_t fields = 4;

const std::array<std::unique_ptr<icu::TimeZone>, 3>& zones() {
    static const std::array<std::unique_ptr<icu::TimeZone>, 3> zones{
        std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone("UTC")),
        std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone("America/New_York")),
        std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone("Australia/Lord_Howe")),
    };
    return zones;
}

struct Sane {
    int minute;
    int hour;
    int day;
    int month;

    std::string text() const {
        return std::to_string(minute) + " " + std::to_string(hour) + " " + std::to_string(day) + " " +
               std::to_string(month) + " *";
    }
};

/// The seconds by which the moment misses the schedule, on the clock of the zone.
double missedBy(const Sane& schedule, Date fire, const icu::TimeZone& zone) {
    std::int32_t raw = 0;
    std::int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    zone.getOffset(fire.milliseconds(), 0, raw, saving, status);
    const double local = fire.secondsSince1970 + (raw + saving) / 1000.0;
    const auto today = std::chrono::floor<std::chrono::days>(
        std::chrono::sys_seconds(std::chrono::seconds(static_cast<std::int64_t>(local)))
    );
    const std::chrono::year_month_day wanted(
        std::chrono::year_month_day(today).year(), std::chrono::month(static_cast<unsigned>(schedule.month)),
        std::chrono::day(static_cast<unsigned>(schedule.day))
    );
    const auto due = std::chrono::sys_days(wanted) + std::chrono::hours(schedule.hour) +
                     std::chrono::minutes(schedule.minute);
    return std::fabs(static_cast<double>(due.time_since_epoch() / std::chrono::minutes(1)) * 60 - local);
}

void requireTheMinute(const Sane& schedule, Date after, const icu::TimeZone& zone) {
    const auto fire = nextFire(schedule.text(), after, zone);
    require(fire.has_value(), "a schedule within the calendar has a next time");
    require(*fire >= after - 60 && *fire - after <= 366 * 86'400.0, "the next time is within a year");
    // Clocks that are put forward pass over the minute, by an hour at most.
    const double leeway = zone.useDaylightTime() != 0 ? 3600 : 0;
    require(missedBy(schedule, *fire, zone) <= leeway, "the next time is the schedule's");
}

void requireSaneOutcome(std::string_view cron, Date after, const icu::TimeZone& zone) {
    const auto fire = nextFire(cron, after, zone);
    require(!fire || std::isfinite(fire->secondsSince1970), "a time is finite");
    require(
        !fire || std::fabs(after.secondsSince1970) <= 1e15, "nothing comes after the end of the calendar"
    );
    require(fire == nextFire(cron, after, zone), "asked again, the answer is the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const auto& zone : zones()) {
        for (const double seconds : {0.0, 1'795'248'000.0, -62'135'769'600.0, 253'402'300'799.0, 1e300}) {
            requireSaneOutcome(fuzz::asText(data, size), Date{seconds}, *zone);
        }
        if (size >= fields) {
            const Sane schedule{data[0] % 60, data[1] % 24, 1 + data[2] % 28, 1 + data[3] % 12};
            const double afterBegin = size > fields ? data[fields] * 86'400.0 * 1.5 : 0;
            requireTheMinute(schedule, fuzz::now + afterBegin, *zone);
        }
    }
    return 0;
}
