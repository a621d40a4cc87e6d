#include "Base/DateText.h"

#include <unicode/datefmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <utility>

namespace mimkins::text {

namespace {

/// Takes pieces off the front of a text; stays failed after the first piece that doesn't fit.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    int digits(std::size_t count) {
        int value = 0;
        if (rest_.size() < count) {
            failed_ = true;
            return 0;
        }
        for (const char character : rest_.substr(0, count)) {
            if (character < '0' || character > '9') {
                failed_ = true;
                return 0;
            }
            value = value * 10 + (character - '0');
        }
        rest_.remove_prefix(count);
        return value;
    }

    bool accept(char expected) {
        if (rest_.empty() || rest_.front() != expected) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    void expect(char expected) { failed_ = !accept(expected) || failed_; }

    double fraction() {
        double value = 0;
        double scale = 0.1;
        bool any = false;
        while (!rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9') {
            value += scale * (rest_.front() - '0');
            scale /= 10;
            any = true;
            rest_.remove_prefix(1);
        }
        failed_ = failed_ || !any;
        return value;
    }

    bool succeeded() const { return !failed_ && rest_.empty(); }

private:
    std::string_view rest_;
    bool failed_ = false;
};

/// The zone designator at the end, as seconds east of UTC.
double zoneOffset(Scanner& scanner) {
    if (scanner.accept('Z')) {
        return 0;
    }
    const bool west = scanner.accept('-');
    if (!west) {
        scanner.expect('+');
    }
    const int hours = scanner.digits(2);
    scanner.accept(':');
    const int minutes = scanner.digits(2);
    const double seconds = hours * 3600.0 + minutes * 60.0;
    return west ? -seconds : seconds;
}

/// ICU opens its data to make a format, which costs a thousand times what using it does. So a format is kept
/// for as long as the language and the time zone stay what they are.
class KeptFormat {
public:
    using Make = icu::DateFormat* (*)(const icu::Locale& locale);

    explicit KeptFormat(Make make) : make_(make) {}

    /// Empty if there is no format.
    std::string text(Date date) {
        const icu::Locale& locale = icu::Locale::getDefault();
        std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createDefault());
        if (!format_ || locale_ != locale || !(*zone_ == *zone)) {
            locale_ = locale;
            zone_ = std::move(zone);
            format_.reset(make_(locale));
        }
        std::string result;
        if (format_) {
            icu::UnicodeString words;
            format_->format(date.milliseconds(), words);
            words.toUTF8String(result);
        }
        return result;
    }

private:
    Make make_;
    icu::Locale locale_;
    std::unique_ptr<icu::TimeZone> zone_;
    std::unique_ptr<icu::DateFormat> format_;
};

} // namespace

std::optional<Date> parseIso8601(std::string_view text) {
    Scanner scanner(text);
    const int year = scanner.digits(4);
    scanner.expect('-');
    const int month = scanner.digits(2);
    scanner.expect('-');
    const int day = scanner.digits(2);
    scanner.expect('T');
    const int hour = scanner.digits(2);
    scanner.expect(':');
    const int minute = scanner.digits(2);
    scanner.expect(':');
    const int second = scanner.digits(2);
    const double fraction = scanner.accept('.') ? scanner.fraction() : 0;
    const double offset = zoneOffset(scanner);
    const std::chrono::year_month_day date(
        std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
        std::chrono::day(static_cast<unsigned>(day))
    );
    if (!scanner.succeeded() || !date.ok() || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    const auto days = std::chrono::sys_days(date).time_since_epoch().count();
    const double whole = static_cast<double>(days) * 86'400.0 + hour * 3600.0 + minute * 60.0 + second;
    return Date{whole - offset + fraction};
}

std::string iso8601(Date date) {
    const auto whole = static_cast<std::int64_t>(std::floor(date.secondsSince1970));
    const std::chrono::sys_seconds seconds{std::chrono::seconds(whole)};
    const auto day = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day calendar(day);
    const std::chrono::hh_mm_ss time(seconds - day);
    std::array<char, 48> buffer{};
    std::snprintf(
        buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(calendar.year()),
        static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
        static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
        static_cast<int>(time.seconds().count())
    );
    return buffer.data();
}

std::string description(Date date) {
    std::string words = iso8601(date);
    words.back() = ' ';
    words += "+0000";
    words[words.find('T')] = ' ';
    return words;
}

std::string shortTime(Date date) {
    thread_local KeptFormat format([](const icu::Locale& locale) {
        return icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, locale);
    });
    return format.text(date);
}

std::string dateAndShortTime(Date date) {
    thread_local KeptFormat format([](const icu::Locale& locale) {
        return icu::DateFormat::createDateTimeInstance(
            icu::DateFormat::kMedium, icu::DateFormat::kShort, locale
        );
    });
    return format.text(date);
}

} // namespace mimkins::text
