#pragma once

#include <cstddef>
#include <random>
#include <string>

namespace mimkins::test {

/// A small file put together from lines, pieces of lines, stray markers, broken UTF-8 and newlines.
std::string randomTranscript(std::mt19937& random, std::size_t pieces);

} // namespace mimkins::test
