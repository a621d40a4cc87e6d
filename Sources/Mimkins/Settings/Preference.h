#pragma once

#include "Platform/PreferencesStore.h"
#include "Settings/Choice.h"

#include <sigc++/sigc++.h>

#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace mimkins {

/// Reads a stored value as a preference of type T. Nothing if the stored type is another. Numbers are one
/// type as long as nothing is lost: a whole one may be stored as 30 or 30.0. An enumeration takes any string.
template <typename T>
std::optional<T> preferenceFrom(const PreferencesStore::Value& stored) {
    if constexpr (std::is_enum_v<T>) {
        const auto* word = std::get_if<std::string>(&stored);
        return word != nullptr ? std::optional(choiceNamed<T>(*word)) : std::nullopt;
    } else if (const auto* same = std::get_if<T>(&stored)) {
        return *same;
    } else if constexpr (std::is_same_v<T, double>) {
        const auto* whole = std::get_if<std::int64_t>(&stored);
        return whole != nullptr ? std::optional(static_cast<double>(*whole)) : std::nullopt;
    } else if constexpr (std::is_same_v<T, std::int64_t>) {
        constexpr double exactLimit = 9'007'199'254'740'992.0; // 2^53
        const auto* number = std::get_if<double>(&stored);
        const bool whole =
            number != nullptr && std::abs(*number) <= exactLimit && std::trunc(*number) == *number;
        return whole ? std::optional(static_cast<std::int64_t>(*number)) : std::nullopt;
    } else {
        return std::nullopt;
    }
}

/// What is stored for a preference of type T.
template <typename T>
PreferencesStore::Value storedForm(const T& value) {
    if constexpr (std::is_enum_v<T>) {
        return std::string(choiceWord(value));
    } else {
        return value;
    }
}

/// Tells the key of a preference that has changed.
using PreferenceSignal = sigc::signal<void(std::string_view key)>;

/// One preference: its value is read once, when this is made, and stored whenever it is set.
template <typename T>
class Preference {
public:
    struct Place {
        PreferencesStore& store;
        PreferenceSignal& changed;
    };

    /// `key` must live as long as the program.
    Preference(const Place& place, std::string_view key, T standard)
        : store_(place.store), anyChanged_(place.changed), key_(key), value_(std::move(standard)) {
        if (const auto stored = store_.value(std::string(key_))) {
            value_ = preferenceFrom<T>(*stored).value_or(value_);
        }
    }

    Preference(const Preference&) = delete;
    Preference& operator=(const Preference&) = delete;

    const T& operator()() const { return value_; }

    std::string_view key() const { return key_; }

    /// Stores the value, and tells of it if it is another than before.
    void set(T value) {
        const bool isNew = value != value_;
        value_ = std::move(value);
        store_.set(std::string(key_), storedForm(value_));
        if (isNew) {
            changed_.emit(value_);
            anyChanged_.emit(key_);
        }
    }

    /// Emits the new value after each change.
    sigc::signal<void(const T&)>& changed() { return changed_; }

private:
    PreferencesStore& store_;
    PreferenceSignal& anyChanged_;
    std::string_view key_;
    T value_;
    sigc::signal<void(const T&)> changed_;
};

} // namespace mimkins
