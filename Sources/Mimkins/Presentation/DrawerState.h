#pragma once

#include <sigc++/signal.h>

#include <optional>
#include <string>
#include <utility>

namespace mimkins {

/// Which screen the drawer shows.
enum class DrawerMode { pets, settings, sweep, setup };

/// What the drawer is doing. Everything that wants to open a screen or point at a session goes through this.
/// `changed` is emitted only when a value differs from before.
class DrawerState {
public:
    /// The drawer is out.
    bool isOpen() const { return isOpen_; }

    void setOpen(bool open) { set(isOpen_, open); }

    DrawerMode mode() const { return mode_; }

    void setMode(DrawerMode mode) { set(mode_, mode); }

    /// The session to point at.
    const std::optional<std::string>& highlightedId() const { return highlightedId_; }

    void setHighlightedId(std::optional<std::string> id) { set(highlightedId_, std::move(id)); }

    /// Other windows hide the drawer.
    bool covered() const { return covered_; }

    void setCovered(bool covered) { set(covered_, covered); }

    /// True unless somebody can see the drawer: every animated view asks this.
    bool animationsPaused() const { return !isOpen_ || covered_; }

    sigc::signal<void()>& changed() { return changed_; }

private:
    template <typename Value>
    void set(Value& field, Value value) {
        if (field == value) {
            return;
        }
        field = std::move(value);
        changed_.emit();
    }

    bool isOpen_ = true;
    DrawerMode mode_ = DrawerMode::pets;
    std::optional<std::string> highlightedId_;
    bool covered_ = false;
    sigc::signal<void()> changed_;
};

} // namespace mimkins
