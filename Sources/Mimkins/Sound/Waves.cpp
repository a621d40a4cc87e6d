#include "Sound/Waves.h"

#include "Sound/Sounds.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace mimkins::waves {

namespace {

struct Partial {
    double frequency; ///< hertz
    double height;
    double lasting; ///< seconds in which it falls to about a third
};

double sine(double frequency, double seconds) {
    return std::sin(2 * std::numbers::pi * frequency * seconds);
}

double falling(double seconds, double lasting) {
    return std::exp(-seconds / lasting);
}

/// 0 at the beginning, 1 after `length` seconds.
double rising(double seconds, double length) {
    return seconds < length ? 0.5 - 0.5 * std::cos(std::numbers::pi * seconds / length) : 1;
}

template <std::size_t count>
double struck(const std::array<Partial, count>& partials, double seconds) {
    double sum = 0;
    for (const auto& partial : partials) {
        sum += partial.height * sine(partial.frequency, seconds) * falling(seconds, partial.lasting);
    }
    return sum;
}

/// A value from -1 to 1 that looks like chance and is always the same for the same number.
double scattered(std::int64_t number) {
    auto bits = static_cast<std::uint64_t>(number) * 0x9e3779b97f4a7c15U;
    bits = (bits ^ (bits >> 30U)) * 0xbf58476d1ce4e5b9U;
    bits = (bits ^ (bits >> 27U)) * 0x94d049bb133111ebU;
    return static_cast<double>((bits >> 32U) & 0xffffU) / 32'767.5 - 1;
}

/// Noise that changes so many times a second, with soft ways between its values.
double air(double frequency, double seconds) {
    const double place = frequency * seconds;
    const auto step = static_cast<std::int64_t>(std::floor(place));
    const double part = rising(place - static_cast<double>(step), 1);
    return scattered(step) * (1 - part) + scattered(step + 1) * part;
}

double croak(double seconds, double length) {
    if (seconds < 0 || seconds > length) {
        return 0;
    }
    constexpr double pulses = 62;
    const double sincePulse = std::fmod(seconds, 1 / pulses);
    const double ring = sine(620, sincePulse) * falling(sincePulse, 0.005) +
                        0.5 * sine(1'150, sincePulse) * falling(sincePulse, 0.003);
    const double swell = std::sin(std::numbers::pi * seconds / length);
    return ring * swell;
}

} // namespace

double pop(double seconds) {
    constexpr double lowest = 360;
    constexpr double growth = 16;
    const double turns = lowest * (std::exp(growth * seconds) - 1) / growth;
    return std::sin(2 * std::numbers::pi * turns) * falling(seconds, 0.03);
}

double purr(double seconds) {
    constexpr double pulses = 23;
    const double pulse = std::pow(0.5 + 0.5 * std::sin(2 * std::numbers::pi * pulses * seconds), 2);
    const double hum = sine(92, seconds) + 0.5 * sine(138, seconds) + 0.25 * sine(184, seconds);
    return (hum + 0.25 * air(400, seconds)) * pulse * rising(seconds, 0.08) * rising(0.4 - seconds, 0.12);
}

double tink(double seconds) {
    return struck(
        std::array<Partial, 4>{
            {{3'140, 0.6, 0.06}, {4'730, 1, 0.05}, {6'910, 0.6, 0.03}, {9'350, 0.3, 0.015}}},
        seconds
    );
}

double glass(double seconds) {
    return struck(
        std::array<Partial, 4>{{{988, 1, 0.13}, {2'292, 0.8, 0.1}, {4'199, 0.35, 0.06}, {6'550, 0.1, 0.03}}},
        seconds
    );
}

double frog(double seconds) {
    return croak(seconds, 0.13) + 1.2 * croak(seconds - 0.16, 0.18);
}

double bottle(double seconds) {
    const double tone = sine(233, seconds) + 0.12 * sine(466, seconds) + 0.05 * sine(699, seconds);
    return (tone + 0.07 * air(1'500, seconds)) * rising(seconds, 0.07) * rising(0.4 - seconds, 0.2);
}

double ping(double seconds) {
    return struck(std::array<Partial, 2>{{{1'319, 1, 0.11}, {2'638, 0.08, 0.05}}}, seconds);
}

} // namespace mimkins::waves
