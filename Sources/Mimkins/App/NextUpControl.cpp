#include "App/NextUpControl.h"

#include "NextUp/OpenSession.h"

#include <utility>

namespace mimkins {

NextUpControl::NextUpControl(Parts parts) : parts_(std::move(parts)) {}

void NextUpControl::nextUp() {
    const Date now = parts_.loop.now();
    const auto press = NextUp::press(memory_, parts_.store.sessions(), now);
    memory_ = press.memory;
    if (press.kind == NextUp::Press::Kind::open) {
        parts_.drawer.setHighlightedId(std::nullopt);
        openLink(press.session->jumpURL(), parts_.links);
    } else if (press.kind == NextUp::Press::Kind::show) {
        parts_.drawer.setMode(DrawerMode::pets);
        parts_.bringForward();
        pointAt(press.session->id);
    }
    parts_.show(notice(press, now));
}

void NextUpControl::pointAt(const std::string& id) {
    parts_.drawer.setHighlightedId(id);
    const auto key = nextHighlight_++;
    highlightEnds_[key] = parts_.loop.after(NextUp::highlightSpan, [this, key, id = id] {
        if (parts_.drawer.highlightedId() == id) {
            parts_.drawer.setHighlightedId(std::nullopt);
        }
        highlightEnds_.erase(key);
    });
}

void NextUpControl::openWrapUp() {
    parts_.drawer.setMode(DrawerMode::sweep);
    parts_.bringForward();
}

} // namespace mimkins
