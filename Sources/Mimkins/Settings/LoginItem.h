#pragma once

#include "Platform/LoginService.h"
#include "Platform/PreferencesStore.h"

namespace mimkins {

/// Makes the application start at login. Failures are logged and otherwise dropped.
class LoginItem {
public:
    /// The service outlives this.
    explicit LoginItem(LoginService& service) : service_(service) {}

    void set(bool on);

    bool isOn() const { return service_.status() == LoginService::Status::enabled; }

    /// Turns the item on once in the life of the preferences. What the user turns off later stays off.
    void enableOnFirstRun(PreferencesStore& preferences);

private:
    LoginService& service_;
};

} // namespace mimkins
