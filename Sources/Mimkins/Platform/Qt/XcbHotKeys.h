#pragma once

#include "Platform/HotKeys.h"
#include "Platform/Linux/DescriptorWatcher.h"
#include "Platform/RunLoop.h"

#include <memory>

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

/// The way to such keys on this desktop. The X server that a Wayland desktop keeps hears keys only while one
/// of its own windows has the focus, so that it doesn't count.
std::unique_ptr<HotKeys> makeHotKeys(XcbHotKeys::Loops loops);

} // namespace mimkins
