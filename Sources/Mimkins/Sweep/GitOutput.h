#pragma once

#include "Base/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reading of what git prints.
namespace mimkins::gitOutput {

/// True if a list of "scope name" lines has a setting that is neither the user's nor the system's, and so
/// belongs to the repository.
bool namesOwnSetting(std::string_view scopedNames);

struct LineCounts {
    std::int64_t added = 0;
    std::int64_t removed = 0;

    friend bool operator==(const LineCounts&, const LineCounts&) = default;
};

/// The counts of a short statistic such as " 2 files changed, 3 insertions(+), 1 deletion(-)". A part that is
/// missing, or a number that doesn't fit, counts as 0.
LineCounts lineCounts(std::string_view shortStatistic);

/// The pieces between NUL bytes, empty ones dropped.
std::vector<std::string> nulSeparated(std::string_view names);

/// The name in one line of text; nothing if it is empty but for white space.
std::optional<std::string> branchName(std::string_view line);

/// The time in one line that holds seconds since 1970; 1970 itself if it holds no finite number.
Date commitTime(std::string_view line);

} // namespace mimkins::gitOutput
