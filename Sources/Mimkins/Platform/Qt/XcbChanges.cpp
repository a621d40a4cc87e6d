#include "Platform/Qt/XcbChanges.h"

#include "Platform/Qt/XcbProperties.h"

#include <memory>
#include <utility>

namespace mimkins {

namespace {

/// A window that is dragged about makes hundreds of events; they cost one look each in this span.
constexpr double gatherSeconds = 0.15;

struct Listener {
    explicit Listener(XcbChangeWatch parts) : watch(std::move(parts)) {}

    ~Listener() {
        readable.reset();
        xcb_disconnect(connection);
    }

    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    bool start() {
        if (xcb_connection_has_error(connection) != 0) {
            return false;
        }
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(connection);
        const int descriptor = xcb_get_file_descriptor(connection);
        readable = watch.descriptors.whenReadable(descriptor, [this] { drain(); });
        return true;
    }

    void drain() {
        bool any = false;
        while (XcbReply<xcb_generic_event_t>(xcb_poll_for_event(connection))) {
            any = true;
        }
        if (xcb_connection_has_error(connection) != 0) {
            readable.reset();
            return;
        }
        if (any && !pending) {
            pending = watch.timers.after(gatherSeconds, [this] {
                pending.reset();
                const auto changed = watch.changed;
                changed();
            });
        }
    }

    XcbChangeWatch watch;
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    Handle readable;
    Handle pending;
};

} // namespace

Handle watchXcbChanges(const XcbChangeWatch& watch) {
    auto listener = std::make_shared<Listener>(watch);
    if (!listener->start()) {
        return {};
    }
    return Handle([listener] {
        listener->readable.reset();
        listener->pending.reset();
    });
}

} // namespace mimkins
