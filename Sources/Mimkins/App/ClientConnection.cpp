#include "App/ClientConnection.h"

#include "Platform/Linux/LinuxResources.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace mimkins {

namespace {

void removeFolder(const std::string& folder) {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

/// Removes the folders that were made for a path below the home, as far as nothing is left in them.
void removeEmptyFoldersAbove(const std::filesystem::path& path, const std::filesystem::path& home) {
    for (auto folder = path.parent_path(); folder != home && folder != folder.parent_path();
         folder = folder.parent_path()) {
        if (::rmdir(folder.c_str()) != 0) {
            return;
        }
    }
}

void removeEmptyFolders(const Paths& paths) {
    for (const auto& path : {paths.support(), paths.autostartEntry(), paths.preferencesFolder()}) {
        removeEmptyFoldersAbove(path, paths.home());
    }
}

} // namespace

ClientConnection::ClientConnection(const Parts& parts)
    : paths_(parts.paths), installer_(parts.paths, bundledHookScript(), files_),
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
                            [this, quit = parts.quit] {
                                removeEmptyFolders(paths_);
                                quit();
                            },
                        }) {}

void ClientConnection::start() {
    guard_.repair();
    guard_.start();
    connection_.refresh();
}

} // namespace mimkins
