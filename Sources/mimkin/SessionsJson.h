#pragma once

#include "SessionStore/SessionStore.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace mimkins {

enum class JsonLayout { pretty, oneLine };

/// The document as text. Text from outside that isn't valid UTF-8 is repaired.
std::string jsonText(const nlohmann::ordered_json& json, JsonLayout layout);

/// A date as milliseconds since 1970: a whole number wherever it is one.
nlohmann::ordered_json jsonMilliseconds(Date date);

/// The value, or null if it is absent.
nlohmann::ordered_json orNull(const std::optional<std::string>& text);
nlohmann::ordered_json dateOrNull(const std::optional<Date>& date);

/// A scheduled task: its id, when it fires, whether it recurs, and its prompt.
nlohmann::ordered_json scheduledItemJson(const ScheduledItem& item);

/// What `mimkin sessions --json` prints: the list in display order with everything that is known, absent
/// values as null, times in milliseconds.
nlohmann::ordered_json sessionsJson(const SessionStore& store, Date at, std::uint64_t shuffle);

} // namespace mimkins
