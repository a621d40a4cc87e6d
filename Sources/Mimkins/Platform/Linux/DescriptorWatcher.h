#pragma once

#include "Base/Handle.h"

#include <functional>

namespace mimkins {

/// Tells when a file descriptor can be read. Each kind of main loop has its own; whatever waits for the
/// kernel's events is written against this.
class DescriptorWatcher {
public:
    virtual ~DescriptorWatcher() = default;

    /// Calls `readable` on the main thread as long as the descriptor has something to read, is at its end, or
    /// has failed. The descriptor stays the caller's, who ends the handle before closing it.
    virtual Handle whenReadable(int descriptor, std::function<void()> readable) = 0;
};

} // namespace mimkins
