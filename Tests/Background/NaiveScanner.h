#pragma once

#include "Background/Tally.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace mimkins::test {

/// The plain reading of transcripts that the scanner must agree with: everything new at once, and every
/// pattern on every line, marker or not.
class NaiveScanner {
public:
    explicit NaiveScanner(std::uint64_t firstReadingLimit = 6'000'000)
        : firstReadingLimit_(firstReadingLimit) {}

    void read(const std::string& file, Date now, Tally& tally) const;

private:
    std::uint64_t firstReadingLimit_;
};

/// What a whole file says to a reader that starts at its beginning.
Tally naiveTally(const std::string& file, Date now);

} // namespace mimkins::test
