#pragma once

#include "Base/Handle.h"
#include "Platform/Linux/DescriptorWatcher.h"
#include "Platform/Linux/FileDescriptor.h"

#include <functional>

namespace mimkins {

/// Hears of the signals that ask the program to end, as long as the object lives. The program has one thread.
class StopSignals {
public:
    StopSignals(DescriptorWatcher& loop, std::function<void()> stop);

private:
    FileDescriptor signals_;
    Handle watch_;
};

} // namespace mimkins
