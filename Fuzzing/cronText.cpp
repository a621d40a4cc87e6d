#include "Background/NextFire.h"

#include <array>
#include <cmath>
#include <cstdlib>

// Feeds schedules to the calendar. Whatever is in them, the outcome is a finite date or none, and none for a
// reference beyond the calendar; asked again, it is the same.

namespace {

using namespace mimkins;

const std::array<std::unique_ptr<icu::TimeZone>, 3>& zones() {
    static const std::array<std::unique_ptr<icu::TimeZone>, 3> zones{
        std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone("UTC")),
        std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone("America/New_York")),
        std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone("Australia/Lord_Howe")),
    };
    return zones;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view cron(reinterpret_cast<const char*>(data), size);
    for (const auto& zone : zones()) {
        for (const double seconds : {0.0, 1'795'248'000.0, -62'135'769'600.0, 253'402'300'799.0, 1e300}) {
            const auto fire = nextFire(cron, Date{seconds}, *zone);
            if (fire && (!std::isfinite(fire->secondsSince1970) || seconds > 1e15)) {
                std::abort();
            }
            if (fire && *fire != nextFire(cron, Date{seconds}, *zone)) {
                std::abort();
            }
        }
    }
    return 0;
}
