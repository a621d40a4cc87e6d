#include "Sound/Sounds.h"

#include "Sound/Waves.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <numeric>

namespace mimkins {

namespace {

struct Recipe {
    std::string_view name;
    double length; ///< seconds
    double (*wave)(double seconds);
};

constexpr std::array<Recipe, 7> recipes{{
    {"Pop", 0.1, waves::pop},
    {"Purr", 0.4, waves::purr},
    {"Tink", 0.22, waves::tink},
    {"Glass", 0.4, waves::glass},
    {"Frog", 0.36, waves::frog},
    {"Bottle", 0.4, waves::bottle},
    {"Ping", 0.36, waves::ping},
}};

/// Seconds in which every sound comes and goes, so that no edge is heard.
constexpr double attack = 0.004;
constexpr double release = 0.03;

/// 0 at the beginning and the end, 1 between.
double edges(double seconds, double length) {
    const double nearest = std::min(seconds / attack, (length - seconds) / release);
    return 0.5 - 0.5 * std::cos(std::numbers::pi * std::clamp(nearest, 0.0, 1.0));
}

/// Takes away what would push the loudspeaker to one side throughout, and leaves the ends at 0.
void centre(std::vector<double>& wave, const std::vector<double>& window) {
    const double offset =
        std::accumulate(wave.begin(), wave.end(), 0.0) / std::accumulate(window.begin(), window.end(), 0.0);
    for (std::size_t at = 0; at < wave.size(); ++at) {
        wave[at] -= offset * window[at];
    }
}

std::vector<std::int16_t> samplesOf(const std::vector<double>& wave) {
    double highest = 0;
    for (const double value : wave) {
        highest = std::max(highest, std::abs(value));
    }
    std::vector<std::int16_t> samples;
    samples.reserve(wave.size());
    for (const double value : wave) {
        samples.push_back(static_cast<std::int16_t>(std::lround(value / highest * soundPeak)));
    }
    return samples;
}

} // namespace

std::vector<std::int16_t> soundSamples(std::string_view name) {
    const auto* recipe =
        std::find_if(recipes.begin(), recipes.end(), [&](const Recipe& one) { return one.name == name; });
    if (recipe == recipes.end()) {
        return {};
    }
    const auto count = static_cast<std::size_t>(std::lround(recipe->length * soundRate));
    std::vector<double> window(count);
    std::vector<double> wave(count);
    for (std::size_t at = 0; at < count; ++at) {
        const double seconds = static_cast<double>(at) / soundRate;
        window[at] = edges(seconds, static_cast<double>(count - 1) / soundRate);
        wave[at] = window[at] * recipe->wave(seconds);
    }
    centre(wave, window);
    return samplesOf(wave);
}

} // namespace mimkins
