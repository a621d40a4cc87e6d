#pragma once

#include "Platform/HotKeys.h"
#include "Platform/RunLoop.h"

#include <QString>

#include <utility>

namespace mimkins {

/// Keys that the desktop gives out through its portal for global shortcuts. The desktop may ask the user
/// first, and may give other keys than those wished for.
class PortalHotKeys final : public HotKeys {
public:
    /// `address` is that of the bus; empty stands for the user's session bus. The loop outlives this.
    explicit PortalHotKeys(RunLoop& loop, QString address = {}) : loop_(loop), address_(std::move(address)) {}

    Handle registerHotKey(HotKeyRequest request) override;

private:
    RunLoop& loop_;
    QString address_;
};

} // namespace mimkins
