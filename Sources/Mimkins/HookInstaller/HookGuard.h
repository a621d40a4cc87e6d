#pragma once

#include "Base/Handle.h"
#include "HookInstaller/HookInstaller.h"
#include "Platform/FolderWatcher.h"
#include "Platform/RunLoop.h"

#include <vector>

namespace mimkins {

/// Keeps the installed hook script healthy without asking: whatever happens to it or its folder while the
/// user is connected, it is compared with the bundled one and put back. It never touches the client's
/// settings. All failures are silent; the next event or start tries again.
class HookGuard {
public:
    struct Parts {
        const Paths& paths;
        HookInstaller& installer;
        FolderWatcher& watcher;
        RunLoop& loop;
    };

    /// The parts outlive this.
    explicit HookGuard(const Parts& parts) : parts_(parts) {}

    HookGuard(const HookGuard&) = delete;
    HookGuard& operator=(const HookGuard&) = delete;

    /// Watches the script's folder and the script, those of them that exist. Replaces all former watches, and
    /// may be called at any time.
    void start();

    /// Puts the script back if the user is connected and it differs.
    void repair();

    std::size_t sourceCount() const { return sources_.size(); }

private:
    void changed();
    void check();

    Parts parts_;
    std::vector<Handle> sources_;
    bool pending_ = false;
    Handle timer_;
};

} // namespace mimkins
