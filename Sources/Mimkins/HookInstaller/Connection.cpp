#include "HookInstaller/Connection.h"

#include "Base/Link.h"
#include "Base/Text.h"

#include <exception>
#include <utility>

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

Connection::Connection(Parts parts) : parts_(std::move(parts)), status_(parts_.installer.status()) {}

void Connection::set(HookInstaller::Status status, std::optional<std::string> message) {
    if (status_ == status && lastMessage_ == message) {
        return;
    }
    status_ = status;
    lastMessage_ = std::move(message);
    changed_.emit();
}

void Connection::refresh() {
    set(parts_.installer.status(), lastMessage_);
}

void Connection::connect() {
    const ConnectionOutcome outcome = connectAndReport(parts_.installer);
    if (!outcome.failed) {
        parts_.guard.start();
    }
    set(outcome.status, outcome.message);
}

void Connection::disconnect() {
    const ConnectionOutcome outcome = disconnectAndReport(parts_.installer);
    set(outcome.status, outcome.message);
}

/// Takes our entries out of the client's settings. Gives what to tell the user if any may be left.
std::optional<std::string> Connection::obstacle() {
    using Status = HookInstaller::Status;
    const std::string file = parts_.paths.clientSettings();
    try {
        parts_.installer.disconnect();
    } catch (const std::exception& error) {
        return "Uninstall stopped: couldn't remove Mimkins' hooks from " + file + " (" + error.what() +
               "). Nothing was removed. Fix that file, then try again.";
    }
    const Status status = parts_.installer.status();
    if (status != Status::notConnected && status != Status::noClaudeCode) {
        return "Uninstall stopped: Mimkins' hooks are still in " + file + ". Nothing was removed.";
    }
    return std::nullopt;
}

void Connection::uninstall() {
    if (auto message = obstacle()) {
        set(parts_.installer.status(), std::move(message));
        return;
    }
    set(parts_.installer.status(), lastMessage_);
    parts_.login.set(false);
    parts_.removeFolder(parts_.paths.support());
    parts_.preferences.removeAll();
    parts_.links.showFile(fileLink(parts_.program));
    parts_.quit();
}

} // namespace mimkins
