#pragma once

#include "Background/BackgroundScanner.h"
#include "Platform/Linux/ThreadQueue.h"

namespace mimkins::test {

/// A queue with a thread that serves all tests.
inline WorkQueue& helperQueue() {
    static SerialQueue queue("test helper");
    return queue;
}

/// Shares the reading of even the smallest files with the helper.
inline BackgroundScanner::Options sharing(BackgroundScanner::Options options = {}) {
    options.shared = {&helperQueue(), 0};
    return options;
}

} // namespace mimkins::test
