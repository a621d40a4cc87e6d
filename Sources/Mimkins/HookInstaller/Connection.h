#pragma once

#include "HookInstaller/HookInstaller.h"

#include <optional>
#include <string>

namespace mimkins {

/// How connecting or disconnecting went, in the words that are shown.
struct ConnectionOutcome {
    std::string message;
    /// Read afresh afterwards, whatever happened.
    HookInstaller::Status status = HookInstaller::Status::notConnected;
    /// The path of the settings' backup, if one was made.
    std::optional<std::string> backup;
    bool failed = false;
};

/// Connects and reports; never throws an `Error`.
ConnectionOutcome connectAndReport(HookInstaller& installer);

/// Disconnects and reports; never throws an `Error`.
ConnectionOutcome disconnectAndReport(HookInstaller& installer);

} // namespace mimkins
