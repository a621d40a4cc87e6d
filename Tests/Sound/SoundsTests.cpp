#include "Sound/Sounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <numbers>
#include <numeric>
#include <string>

using namespace mimkins;

namespace {

/// Where the energy of a sound lies on average, in hertz: the mean of the frequencies up to 12 kHz, each
/// counted by its power.
double centroidOf(const std::vector<std::int16_t>& samples) {
    constexpr double step = 20;
    constexpr double highest = 12'000;
    double power = 0;
    double weighed = 0;
    for (double frequency = step; frequency < highest; frequency += step) {
        const double turn = 2 * std::numbers::pi * frequency / soundRate;
        double real = 0;
        double imaginary = 0;
        for (std::size_t at = 0; at < samples.size(); ++at) {
            real += samples[at] * std::cos(turn * static_cast<double>(at));
            imaginary += samples[at] * std::sin(turn * static_cast<double>(at));
        }
        const double here = real * real + imaginary * imaginary;
        power += here;
        weighed += here * frequency;
    }
    return weighed / power;
}

class EverySound : public testing::TestWithParam<const char*> {
protected:
    std::vector<std::int16_t> samples = soundSamples(GetParam());
};

TEST_P(EverySound, IsShort) {
    EXPECT_GE(samples.size(), soundRate * 80U / 1000);
    EXPECT_LE(samples.size(), soundRate * 400U / 1000);
}

TEST_P(EverySound, ReachesThePeakAndNoMore) {
    int highest = 0;
    for (const auto sample : samples) {
        highest = std::max(highest, std::abs(static_cast<int>(sample)));
    }
    EXPECT_EQ(highest, soundPeak);
    EXPECT_NEAR(20 * std::log10(soundPeak / 32'768.0), -9, 0.01);
}

TEST_P(EverySound, HasItsMiddleAtZero) {
    const double mean =
        std::accumulate(samples.begin(), samples.end(), 0.0) / static_cast<double>(samples.size());
    EXPECT_LT(std::abs(mean), 1);
}

TEST_P(EverySound, BeginsAndEndsInSilence) {
    constexpr std::size_t edge = 12; // a quarter of a millisecond
    constexpr int hardlyHeard = soundPeak / 50;
    EXPECT_EQ(samples.front(), 0);
    EXPECT_EQ(samples.back(), 0);
    for (std::size_t at = 0; at < edge; ++at) {
        EXPECT_LT(std::abs(static_cast<int>(samples[at])), hardlyHeard);
        EXPECT_LT(std::abs(static_cast<int>(samples[samples.size() - 1 - at])), hardlyHeard);
    }
}

TEST_P(EverySound, IsTheSameEachTime) {
    EXPECT_EQ(soundSamples(GetParam()), samples);
}

INSTANTIATE_TEST_SUITE_P(
    Names, EverySound, testing::Values("Pop", "Purr", "Tink", "Glass", "Frog", "Bottle", "Ping"),
    [](const auto& sound) { return std::string(sound.param); }
);

TEST(Sounds, NoTwoLieTogether) {
    std::map<double, std::string> byCentroid;
    for (const auto* name : {"Pop", "Purr", "Tink", "Glass", "Frog", "Bottle", "Ping"}) {
        byCentroid[centroidOf(soundSamples(name))] = name;
    }
    ASSERT_EQ(byCentroid.size(), 7U);
    for (auto lower = byCentroid.begin(), higher = std::next(lower); higher != byCentroid.end();
         lower = higher++) {
        // A minor third lies between neighbours at the least.
        EXPECT_GT(higher->first, 1.19 * lower->first) << lower->second << " " << higher->second;
    }
    EXPECT_EQ(byCentroid.begin()->second, "Purr");
    EXPECT_EQ(byCentroid.rbegin()->second, "Tink");
}

TEST(Sounds, UnknownNamesAreSilent) {
    for (const auto* name : {"", "pop", "Pop ", "Basso"}) {
        EXPECT_TRUE(soundSamples(name).empty()) << name;
    }
}

} // namespace
