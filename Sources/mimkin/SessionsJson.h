#pragma once

#include "SessionStore/SessionStore.h"

#include <nlohmann/json.hpp>

#include <string>

namespace mimkins {

enum class JsonLayout { pretty, oneLine };

/// The document as text. Text from outside that isn't valid UTF-8 is repaired.
std::string jsonText(const nlohmann::ordered_json& json, JsonLayout layout);

/// A date as milliseconds since 1970: a whole number wherever it is one.
nlohmann::ordered_json jsonMilliseconds(Date date);

/// What `mimkin sessions --json` prints: the list in display order with everything that is known, absent
/// values as null, times in milliseconds.
nlohmann::ordered_json sessionsJson(const SessionStore& store, Date at, std::uint64_t shuffle);

} // namespace mimkins
