#pragma once

#include "Base/Date.h"
#include "Platform/FileSystem.h"

#include <optional>
#include <utility>

namespace mimkins {

/// What was read of a file or folder, kept for as long as reading it again would give the same. Only what
/// doesn't depend on the present time belongs here.
template <typename Value>
class KeptReading {
public:
    /// True if the value is what a reading would give now. `stamp` is the file's present one.
    bool holdsFor(const std::optional<FileStamp>& stamp) const { return stamp && stamp_ == stamp; }

    /// Takes a new value. `stamp` was taken before it was read, or is nothing if the reading failed, and
    /// `now` isn't later than that.
    void take(Value value, const std::optional<FileStamp>& stamp, Date now) {
        value_ = std::move(value);
        stamp_ = stamp && isSettled(*stamp, now) ? stamp : std::nullopt;
    }

    const Value& value() const { return value_; }

private:
    Value value_{};
    std::optional<FileStamp> stamp_;
};

} // namespace mimkins
