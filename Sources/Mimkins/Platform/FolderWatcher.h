#pragma once

#include "Base/Handle.h"

#include <functional>
#include <string>

namespace mimkins {

/// Tells when entries of a folder come, go or change their name, and when a file changes.
class FolderWatcher {
public:
    virtual ~FolderWatcher() = default;

    /// Calls `changed` on the main thread after an entry was created, renamed or removed in the folder, or
    /// when events were lost. Nothing if the folder can't be watched. The watch ends with the handle.
    virtual Handle watch(const std::string& folder, std::function<void()> changed) = 0;

    /// Calls `changed` on the main thread after a file's contents or attributes changed, or it was removed or
    /// renamed; of a file that takes its place nothing is told. Nothing if the file can't be watched.
    virtual Handle watchFile(const std::string& file, std::function<void()> changed) = 0;
};

} // namespace mimkins
