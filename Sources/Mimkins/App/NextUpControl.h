#pragma once

#include "NextUp/NextUpPress.h"
#include "Platform/LinkOpener.h"
#include "Platform/RunLoop.h"
#include "Presentation/DrawerState.h"
#include "Presentation/Notice.h"
#include "SessionStore/SessionStore.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace mimkins {

/// What the shortcut and the menu do: walk through the sessions that wait, and open the wrap-up.
class NextUpControl {
public:
    struct Parts {
        SessionStore& store;
        DrawerState& drawer;
        RunLoop& loop;
        LinkOpener& links;
        std::function<void()> bringForward; ///< opens the drawer, or brings an open one to the front
        std::function<void(const Notice&)> show;
    };

    /// What it is given outlives this.
    explicit NextUpControl(Parts parts);

    /// Points at the next session that waits; soon after another press, opens the one pointed at.
    void nextUp();
    /// Shows what is left before the user logs off.
    void openWrapUp();

    const NextUp::Memory& memory() const { return memory_; }

private:
    void pointAt(const std::string& id);

    Parts parts_;
    NextUp::Memory memory_;
    std::map<std::uint64_t, Handle> highlightEnds_;
    std::uint64_t nextHighlight_ = 0;
};

} // namespace mimkins
