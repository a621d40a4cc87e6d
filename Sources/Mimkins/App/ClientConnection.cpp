#include "App/ClientConnection.h"

#include "Platform/Linux/LinuxResources.h"

#include <filesystem>
#include <system_error>

namespace mimkins {

namespace {

void removeFolder(const std::string& folder) {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

} // namespace

ClientConnection::ClientConnection(const Parts& parts)
    : installer_(parts.paths, bundledHookScript(), files_),
      guard_({parts.paths, installer_, parts.watcher, parts.loop}), service_(parts.paths, parts.program),
      login_(service_), connection_({
                            parts.paths,
                            installer_,
                            guard_,
                            login_,
                            parts.preferences,
                            parts.links,
                            parts.program,
                            removeFolder,
                            parts.quit,
                        }) {}

void ClientConnection::start() {
    guard_.repair();
    guard_.start();
    connection_.refresh();
}

} // namespace mimkins
