#pragma once

#include "HookInstaller/HookGuard.h"
#include "HookInstaller/HookInstaller.h"
#include "Platform/LinkOpener.h"
#include "Platform/PreferencesStore.h"
#include "Settings/LoginItem.h"

#include <sigc++/signal.h>

#include <functional>
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

/// The state that the screens show: whether the client is connected, and how the last action went. Emits only
/// what changed. Main thread only.
class Connection {
public:
    struct Parts {
        const Paths& paths;
        HookInstaller& installer;
        HookGuard& guard;
        LoginItem& login;
        PreferencesStore& preferences;
        LinkOpener& links;
        std::string program;                                  ///< path of the application, shown at the end
        std::function<void(const std::string&)> removeFolder; ///< with all in it; failures don't count
        std::function<void()> quit;
    };

    /// The parts outlive this.
    explicit Connection(Parts parts);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    HookInstaller::Status status() const { return status_; }

    /// Of the last action; nothing before the first.
    const std::optional<std::string>& lastMessage() const { return lastMessage_; }

    /// The sentence that is shown before the user agrees to connect.
    std::string changeSummary() const { return parts_.installer.changeSummary(); }

    sigc::signal<void()>& changed() { return changed_; }

    /// Reads the status afresh.
    void refresh();
    void connect();
    void disconnect();
    /// Takes out our entries first; if that fails, says so and removes nothing. Then removes everything of
    /// ours but the program itself, shows that to the user, and quits.
    void uninstall();

private:
    void set(HookInstaller::Status status, std::optional<std::string> message);
    std::optional<std::string> obstacle();

    Parts parts_;
    HookInstaller::Status status_;
    std::optional<std::string> lastMessage_;
    sigc::signal<void()> changed_;
};

} // namespace mimkins
