#pragma once

#include "HookInstaller/Connection.h"
#include "Platform/Linux/AutostartService.h"
#include "Platform/Linux/LinuxSettingsFiles.h"

#include <functional>
#include <string>

namespace mimkins {

/// Everything that this program keeps outside of itself: the client's hook entries and script, and the login
/// item.
class ClientConnection {
public:
    struct Parts {
        const Paths& paths;
        PreferencesStore& preferences;
        FolderWatcher& watcher;
        RunLoop& loop;
        LinkOpener& links;
        std::string program; ///< path of the application
        std::function<void()> quit;
    };

    /// The parts outlive this.
    explicit ClientConnection(const Parts& parts);

    LoginItem& login() { return login_; }

    Connection& connection() { return connection_; }

    const Paths& paths() const { return paths_; }

    /// Brings an already connected user's script up to date, and keeps it so from now on. Nobody is ever
    /// connected here.
    void start();

private:
    const Paths& paths_;
    LinuxSettingsFiles files_;
    HookInstaller installer_;
    HookGuard guard_;
    AutostartService service_;
    LoginItem login_;
    Connection connection_;
};

} // namespace mimkins
