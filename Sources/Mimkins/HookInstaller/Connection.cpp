#include "HookInstaller/Connection.h"

#include "Base/Text.h"

#include <exception>

namespace mimkins {

ConnectionOutcome connectAndReport(HookInstaller& installer) {
    ConnectionOutcome outcome;
    try {
        outcome.backup = installer.connect();
        outcome.message = "Connected.";
        if (outcome.backup) {
            const std::string file(text::lastPathComponent(*outcome.backup));
            outcome.message = "Connected. settings.json was backed up to " + file + ".";
        }
    } catch (const std::exception& error) {
        outcome.message = std::string("Couldn't connect: ") + error.what();
        outcome.failed = true;
    }
    outcome.status = installer.status();
    return outcome;
}

ConnectionOutcome disconnectAndReport(HookInstaller& installer) {
    ConnectionOutcome outcome;
    try {
        outcome.backup = installer.disconnect();
        outcome.message = "Disconnected. Mimkins' hook entries were removed; everything else is as it was.";
    } catch (const std::exception& error) {
        outcome.message = std::string("Couldn't disconnect: ") + error.what();
        outcome.failed = true;
    }
    outcome.status = installer.status();
    return outcome;
}

} // namespace mimkins
