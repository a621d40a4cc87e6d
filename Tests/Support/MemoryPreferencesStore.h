#pragma once

#include "Platform/PreferencesStore.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace mimkins::test {

/// Preferences in memory, which remember the keys that were written, in order.
class MemoryPreferencesStore final : public PreferencesStore {
public:
    MemoryPreferencesStore() = default;

    explicit MemoryPreferencesStore(std::map<std::string, Value> start) : values(std::move(start)) {}

    std::optional<Value> value(const std::string& key) const override {
        const auto entry = values.find(key);
        return entry == values.end() ? std::nullopt : std::optional(entry->second);
    }

    void set(const std::string& key, const Value& value) override {
        values[key] = value;
        written.push_back(key);
    }

    void remove(const std::string& key) override {
        values.erase(key);
        written.push_back(key);
    }

    void removeAll() override {
        values.clear();
        ++removals;
    }

    std::map<std::string, Value> values;
    std::vector<std::string> written; ///< keys that were set or removed
    int removals = 0;                 ///< how often the whole domain was removed
};

} // namespace mimkins::test
