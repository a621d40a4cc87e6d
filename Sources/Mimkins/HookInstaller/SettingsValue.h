#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

namespace mimkins {

struct SettingsValue;

/// A number as it is written. It is never calculated with, so that every digit of the user's stays.
struct SettingsNumber {
    std::string text;

    friend bool operator==(const SettingsNumber&, const SettingsNumber&) = default;
};

using SettingsArray = std::vector<SettingsValue>;
/// Keys in ascending order of their bytes.
using SettingsObject = std::map<std::string, SettingsValue, std::less<>>;

/// Any JSON value of the client's settings.
struct SettingsValue {
    std::variant<std::nullptr_t, bool, SettingsNumber, std::string, SettingsArray, SettingsObject> content;

    /// The array, object or text; null if the value is of another type.
    const SettingsArray* array() const { return std::get_if<SettingsArray>(&content); }

    SettingsArray* array() { return std::get_if<SettingsArray>(&content); }

    const SettingsObject* object() const { return std::get_if<SettingsObject>(&content); }

    SettingsObject* object() { return std::get_if<SettingsObject>(&content); }

    const std::string* string() const { return std::get_if<std::string>(&content); }

    friend bool operator==(const SettingsValue& left, const SettingsValue& right) {
        return left.content == right.content;
    }
};

} // namespace mimkins
