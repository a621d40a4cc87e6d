#pragma once

#include "Platform/HotKeys.h"
#include "Platform/Linux/DescriptorWatcher.h"
#include "Platform/RunLoop.h"

namespace mimkins {

/// Keys taken from an X server by passive grabs.
class XcbHotKeys final : public HotKeys {
public:
    struct Loops {
        RunLoop& main;
        DescriptorWatcher& descriptors;
    };

    explicit XcbHotKeys(Loops loops) : loops_(loops) {}

    Handle registerHotKey(HotKeyRequest request) override;

private:
    Loops loops_;
};

} // namespace mimkins
