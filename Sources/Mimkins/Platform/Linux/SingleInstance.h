#pragma once

#include "Base/Handle.h"
#include "Platform/Linux/DescriptorWatcher.h"
#include "Platform/Linux/FileDescriptor.h"

#include <functional>
#include <memory>
#include <string>

namespace mimkins {

/// Lets one process of a user's home run at a time, and lets a second one speak to the first. The first holds
/// a lock that ends with the process, however that ends, and listens on a socket beside it; both lie in the
/// application's own folder.
class SingleInstance {
public:
    /// The folder is made when it is missing.
    explicit SingleInstance(std::string folder);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// True if this process is the one: it took the lock, or nothing can be locked there at all. False if
    /// another process holds it.
    bool claim();

    /// Calls `received` on the main thread with each message from another process, until the handle ends. For
    /// the process that claimed.
    Handle listen(DescriptorWatcher& loop, std::function<void(const std::string&)> received);

    /// Sends a message to the process that holds the lock, if need be after waiting up to 2 seconds until it
    /// listens. True if it was handed over.
    bool send(const std::string& message) const;

private:
    struct Listener;

    bool isClaimed() const;
    FileDescriptor connect() const;

    std::string folder_;
    FileDescriptor folderDescriptor_;
    FileDescriptor lock_;
};

} // namespace mimkins
