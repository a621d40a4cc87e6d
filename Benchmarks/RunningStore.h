#pragma once

#include "Platform/Linux/InotifyFolderWatcher.h"
#include "Platform/Linux/LinuxFileSystem.h"
#include "Platform/Linux/LinuxGitRunner.h"
#include "Platform/Linux/LinuxProcesses.h"
#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "Platform/Linux/LinuxRunLoop.h"
#include "Platform/Linux/ThreadQueue.h"
#include "SessionStore/SessionStore.h"

namespace mimkins {

/// The store as the application runs it.
struct RunningStore {
    explicit RunningStore(const Paths& paths)
        : watcher(loop), store(paths, {loop, files, watcher, processes, git, transcripts, queue, scanQueue}) {
    }

    LinuxRunLoop loop;
    LinuxFileSystem files;
    LinuxProcesses processes;
    LinuxGitRunner git;
    LinuxRandomAccessFiles transcripts;
    InotifyFolderWatcher watcher;
    ConcurrentQueue queue{"bench-git"};
    SerialQueue scanQueue{"bench-scan"};
    SessionStore store;
};

} // namespace mimkins
