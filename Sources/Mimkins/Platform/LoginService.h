#pragma once

#include <cstdint>

namespace mimkins {

/// The desktop's list of what it starts at login, as far as this application is concerned. The list is the
/// truth: others may change it at any time.
class LoginService {
public:
    /// The numbers stand in the log.
    enum class Status : std::uint8_t { notRegistered = 0, enabled = 1, disabledByUser = 2 };

    virtual ~LoginService() = default;

    /// Puts the application on the list and turns it on. Throws an `Error` if that fails.
    virtual void registerItem() = 0;
    /// Takes it off the list. Throws an `Error` if that fails; one that isn't there is no failure.
    virtual void unregisterItem() = 0;
    /// Read afresh each time.
    virtual Status status() const = 0;
};

} // namespace mimkins
