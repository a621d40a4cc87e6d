#pragma once

#include <cstdint>
#include <string_view>

namespace mimkins {

/// The seed that gives a session, repository or task its stable pet: 64-bit FNV-1a over the UTF-8 bytes,
/// followed by the finishing steps of splitmix64. The same text gives the same seed on every machine.
std::uint64_t stableSeed(std::string_view text);

} // namespace mimkins
