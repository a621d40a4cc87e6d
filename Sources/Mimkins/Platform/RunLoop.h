#pragma once

#include "Base/Handle.h"
#include "Platform/Clock.h"

#include <functional>

namespace mimkins {

/// The main thread's loop. Everything but `post` is called on the main thread, and all work runs there.
class RunLoop : public Clock {
public:
    /// Runs the work on the main thread, soon. May be called from any thread.
    virtual void post(std::function<void()> work) = 0;

    /// Runs the work once, `seconds` from now, unless the handle ends before.
    virtual Handle after(double seconds, std::function<void()> work) = 0;

    /// Runs the work each `seconds`, the first time `seconds` from now, until the handle ends. A late run
    /// does not shift those after it, and runs that were missed altogether are not made up for.
    virtual Handle every(double seconds, std::function<void()> work) = 0;
};

} // namespace mimkins
