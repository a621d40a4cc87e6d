#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace mimkins {

/// Samples of a sound in one second.
inline constexpr int soundRate = 48'000;

/// The highest magnitude of a sample: 9 dB below the most that 16 bits hold.
inline constexpr std::int16_t soundPeak = 11'626;

/// The samples of the short sound of this name, one channel, `soundRate` a second: "Pop", "Purr", "Tink",
/// "Glass", "Frog", "Bottle" or "Ping". They begin and end in silence. Empty for any other name.
std::vector<std::int16_t> soundSamples(std::string_view name);

} // namespace mimkins
