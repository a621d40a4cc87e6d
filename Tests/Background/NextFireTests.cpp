#include "Background/NextFire.h"
#include "Base/DateText.h"

#include <gtest/gtest.h>
#include <unicode/gregocal.h>

#include <cstdlib>
#include <limits>
#include <random>

using namespace mimkins;

namespace {

std::unique_ptr<icu::TimeZone> zone(const char* name) {
    return std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone(icu::UnicodeString(name)));
}

/// The outcome as text in UTC, or "none".
std::string fire(std::string_view cron, const char* after, const char* zoneName = "Europe/Berlin") {
    const auto date = nextFire(cron, text::parseIso8601(after).value(), *zone(zoneName));
    return date ? text::iso8601(*date) : "none";
}

} // namespace

TEST(NextFire, NeedsFourWholeNumbers) {
    const char* after = "2026-06-01T00:00:00Z";
    EXPECT_EQ(fire("0 9 * * 1", after), "none");
    EXPECT_EQ(fire("* * * * *", after), "none");
    for (const char* piece :
         {"*", "*/5", "1-5", "1,15", "+", "-", "+-5", "-+5", "++5", "5.0", "0x5", "five",
          "9223372036854775808", "-9223372036854775809", "5\t", "\xd9\xa5", "5\n"}) {
        const std::string text = piece;
        EXPECT_EQ(fire(text + " 14 2 11 *", after), "none") << text;
        EXPECT_EQ(fire("30 " + text + " 2 11 *", after), "none") << text;
        EXPECT_EQ(fire("30 14 " + text + " 11 *", after), "none") << text;
        EXPECT_EQ(fire("30 14 2 " + text + " *", after), "none") << text;
    }
    EXPECT_EQ(fire("", after), "none");
    EXPECT_EQ(fire("    ", after), "none");
    EXPECT_EQ(fire("30 14 2", after), "none");
    EXPECT_EQ(fire("30\t14\t2\t11", after), "none");
    EXPECT_EQ(fire("Every Monday at 9:00 AM", after), "none");
}

TEST(NextFire, IgnoresEverythingAfterTheMonth) {
    const char* after = "2026-06-01T00:00:00Z";
    EXPECT_EQ(fire("30 14 2 11", after), "2026-11-02T13:30:00Z");
    EXPECT_EQ(fire("30 14 2 11 *", after), "2026-11-02T13:30:00Z");
    EXPECT_EQ(fire("30 14 2 11 3 and more", after), "2026-11-02T13:30:00Z");
}

TEST(NextFire, RunsOfBlanksSeparateAndSignsAreAllowed) {
    const char* after = "2026-06-01T00:00:00Z";
    EXPECT_EQ(fire("  30   14 2    11 * ", after), "2026-11-02T13:30:00Z");
    EXPECT_EQ(fire("+30 +14 +2 +11 *", after), "2026-11-02T13:30:00Z");
    EXPECT_EQ(fire("0030 014 02 11 *", after), "2026-11-02T13:30:00Z");
    EXPECT_EQ(fire("-0 14 2 11 *", after), "2026-11-02T13:00:00Z");
}

TEST(NextFire, AllowsTheCurrentMinute) {
    EXPECT_EQ(fire("30 14 2 11 *", "2026-11-02T13:30:20Z"), "2026-11-02T13:30:00Z");
    EXPECT_EQ(fire("30 14 2 11 *", "2026-11-02T13:31:00Z"), "2026-11-02T13:30:00Z");
    EXPECT_EQ(fire("30 14 2 11 *", "2026-11-02T13:31:00.001Z"), "2027-11-02T13:30:00Z");
    EXPECT_EQ(fire("30 14 2 11 *", "2026-11-02T13:31:01Z"), "2027-11-02T13:30:00Z");
}

TEST(NextFire, TakesTheYearInTheZone) {
    // New Year comes first in Auckland and last in Los Angeles.
    EXPECT_EQ(fire("0 12 15 6 *", "2026-12-31T12:00:00Z", "Pacific/Auckland"), "2027-06-15T00:00:00Z");
    EXPECT_EQ(fire("0 12 31 12 *", "2027-01-01T07:00:00Z", "America/Los_Angeles"), "2027-12-31T20:00:00Z");
    EXPECT_EQ(fire("30 23 31 12 *", "2027-01-01T07:00:00Z", "America/Los_Angeles"), "2027-01-01T07:30:00Z");
}

TEST(NextFire, RollsOutOfRangeValuesOver) {
    const char* after = "2026-01-01T00:00:00Z";
    EXPECT_EQ(fire("0 0 1 13 *", after, "UTC"), "2027-01-01T00:00:00Z");
    EXPECT_EQ(fire("0 0 32 1 *", after, "UTC"), "2026-02-01T00:00:00Z");
    EXPECT_EQ(fire("0 0 29 2 *", after, "UTC"), "2026-03-01T00:00:00Z");
    EXPECT_EQ(fire("0 0 29 2 *", "2028-01-01T00:00:00Z", "UTC"), "2028-02-29T00:00:00Z");
    EXPECT_EQ(fire("90 25 1 6 *", after, "UTC"), "2026-06-02T02:30:00Z");
    EXPECT_EQ(fire("0 0 0 3 *", after, "UTC"), "2026-02-28T00:00:00Z");
    EXPECT_EQ(fire("-1 0 1 6 *", after, "UTC"), "2026-05-31T23:59:00Z");
    EXPECT_EQ(fire("0 0 1 25 *", after, "UTC"), "2028-01-01T00:00:00Z");
    // A month before January lies in the past, and so does the same month of the next year's calendar.
    EXPECT_EQ(fire("0 0 1 0 *", after, "UTC"), "2026-12-01T00:00:00Z");
    EXPECT_EQ(fire("0 0 1 -11 *", after, "UTC"), "2026-01-01T00:00:00Z");
}

TEST(NextFire, GivesNothingBeyondTheCalendar) {
    const char* after = "2026-01-01T00:00:00Z";
    for (const char* far : {"9223372036854775807", "-9223372036854775808", "9000000000000000"}) {
        const std::string text = far;
        EXPECT_EQ(fire(text + " 0 1 1", after), "none");
        EXPECT_EQ(fire("0 " + text + " 1 1", after), "none");
        EXPECT_EQ(fire("0 0 " + text + " 1", after), "none");
        EXPECT_EQ(fire("0 0 1 " + text, after), "none");
        EXPECT_EQ(fire(text + " " + text + " " + text + " " + text, after), "none");
    }
    const auto utc = zone("UTC");
    EXPECT_FALSE(nextFire("0 0 1 1", Date{1e300}, *utc));
    EXPECT_FALSE(nextFire("0 0 1 1", Date{std::numeric_limits<double>::quiet_NaN()}, *utc));
}

TEST(NextFire, CountsOnOverALeftOutHour) {
    // Clocks go from 2:00 to 3:00, in Sydney in October.
    EXPECT_EQ(fire("30 2 29 3 *", "2026-01-01T00:00:00Z", "Europe/Berlin"), "2026-03-29T01:30:00Z");
    EXPECT_EQ(fire("30 2 8 3 *", "2026-01-01T12:00:00Z", "America/New_York"), "2026-03-08T07:30:00Z");
    EXPECT_EQ(fire("30 2 4 10 *", "2026-01-01T12:00:00Z", "Australia/Sydney"), "2026-10-03T16:30:00Z");
    EXPECT_EQ(fire("0 3 29 3 *", "2026-01-01T00:00:00Z", "Europe/Berlin"), "2026-03-29T01:00:00Z");
    EXPECT_EQ(fire("59 1 29 3 *", "2026-01-01T00:00:00Z", "Europe/Berlin"), "2026-03-29T00:59:00Z");
}

TEST(NextFire, TakesTheFirstOfTwoHours) {
    EXPECT_EQ(fire("30 2 25 10 *", "2026-01-01T00:00:00Z", "Europe/Berlin"), "2026-10-25T00:30:00Z");
    EXPECT_EQ(fire("30 1 1 11 *", "2026-01-01T12:00:00Z", "America/New_York"), "2026-11-01T05:30:00Z");
    EXPECT_EQ(fire("30 2 5 4 *", "2026-01-01T12:00:00Z", "Australia/Sydney"), "2026-04-04T15:30:00Z");
    EXPECT_EQ(fire("0 3 25 10 *", "2026-01-01T00:00:00Z", "Europe/Berlin"), "2026-10-25T02:00:00Z");
}

TEST(NextFire, AgreesWithALenientCalendar) {
    std::mt19937 random(11);
    const auto number = [&](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    for (const char* name : {"UTC", "Europe/Berlin", "America/Los_Angeles", "Asia/Kathmandu"}) {
        const auto local = zone(name);
        UErrorCode status = U_ZERO_ERROR;
        icu::GregorianCalendar calendar(*local, status);
        calendar.setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
        for (int round = 0; round < 5'000; ++round) {
            const Date after{1.7e9 + number(0, 100'000'000)};
            const int minute = number(-200, 200);
            const int hour = number(-60, 60);
            const int day = number(-60, 90);
            const int month = number(-20, 36);
            const auto compose = [&](int year) {
                calendar.clear();
                calendar.set(year, month - 1, day, hour, minute, 0);
                return Date::fromMilliseconds(calendar.getTime(status));
            };
            calendar.setTime(after.milliseconds(), status);
            const int year = calendar.get(UCAL_YEAR, status);
            Date expected = compose(year);
            if (expected < after - 60) {
                expected = compose(year + 1);
            }
            const std::string cron = std::to_string(minute) + " " + std::to_string(hour) + " " +
                                     std::to_string(day) + " " + std::to_string(month) + " *";
            const auto date = nextFire(cron, after, *local);
            ASSERT_TRUE(date) << cron;
            ASSERT_EQ(text::iso8601(*date), text::iso8601(expected))
                << cron << " after " << text::iso8601(after) << " in " << name;
        }
    }
}

TEST(NextFire, TheSystemsZoneIsTheOneOfTheMoment) {
    const char* before = std::getenv("TZ");
    const std::string saved = before != nullptr ? before : "";
    for (const char* name : {"Asia/Tokyo", "America/New_York"}) {
        ::setenv("TZ", name, 1);
        EXPECT_EQ(currentTimeZone()->getRawOffset(), zone(name)->getRawOffset()) << name;
    }
    before != nullptr ? ::setenv("TZ", saved.c_str(), 1) : ::unsetenv("TZ");
}
