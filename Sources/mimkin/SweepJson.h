#pragma once

#include "Sweep/SweepReport.h"

#include <nlohmann/json.hpp>

namespace mimkins {

/// What `mimkin wrapup --json` prints: the report's four lists, times in milliseconds, absent values as null.
nlohmann::ordered_json sweepJson(const SweepReport& report, bool allClear);

} // namespace mimkins
