#pragma once

#include "Base/Handle.h"
#include "Platform/Linux/DescriptorWatcher.h"
#include "Platform/RunLoop.h"

#include <functional>

namespace mimkins {

struct XcbChangeWatch {
    RunLoop& timers;
    DescriptorWatcher& descriptors;
    std::function<void()> changed;
};

/// Tells when top-level windows of the X server move, come, go or change their order: once for all that
/// happens within a short moment. Listens on a connection of its own, which the handle closes.
Handle watchXcbChanges(const XcbChangeWatch& watch);

} // namespace mimkins
