#pragma once

#include <functional>

namespace mimkins {

/// Work off the main thread. Values go in with the closure; the result comes back through `RunLoop::post`.
class WorkQueue {
public:
    virtual ~WorkQueue() = default;
    virtual void async(std::function<void()> work) = 0;
};

} // namespace mimkins
