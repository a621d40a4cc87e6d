#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace mimkins {

/// A persistent, typed key-value store for one domain of preferences. A missing key differs from every value,
/// and a value keeps its type. Keys that this version doesn't know survive every write.
class PreferencesStore {
public:
    /// A whole number is kept as such and isn't a boolean.
    using Value = std::variant<bool, std::int64_t, double, std::string>;

    virtual ~PreferencesStore() = default;

    /// Nothing if the key is missing, or holds something that is none of the four types.
    virtual std::optional<Value> value(const std::string& key) const = 0;
    /// Writes at once. A failure to write is logged; the value still holds for this process.
    virtual void set(const std::string& key, const Value& value) = 0;
    virtual void remove(const std::string& key) = 0;
    /// Removes the whole domain.
    virtual void removeAll() = 0;
};

} // namespace mimkins
