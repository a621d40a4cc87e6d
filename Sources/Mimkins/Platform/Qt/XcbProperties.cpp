#include "Platform/Qt/XcbProperties.h"

#include <algorithm>

namespace mimkins {

namespace {

constexpr std::uint32_t mostItems = 4096;

} // namespace

xcb_atom_t XcbProperties::atom(const std::string& name) {
    const auto known = atoms_.find(name);
    if (known != atoms_.end()) {
        return known->second;
    }
    const auto cookie =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    atoms_.emplace(name, atom);
    return atom;
}

XcbProperties::Values XcbProperties::values(xcb_window_t window, const std::string& property) {
    const auto cookie =
        xcb_get_property(connection_, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, mostItems);
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {items, items + reply->value_len};
}

void XcbProperties::set(
    xcb_window_t window, const std::string& property, xcb_atom_t type, const Values& values
) {
    xcb_change_property(
        connection_, XCB_PROP_MODE_REPLACE, window, atom(property), type, 32,
        static_cast<std::uint32_t>(values.size()), values.data()
    );
}

void XcbProperties::remove(xcb_window_t window, const std::string& property) {
    xcb_delete_property(connection_, window, atom(property));
}

void XcbProperties::askManager(
    xcb_window_t window, const std::string& message, const std::array<std::uint32_t, 5>& data
) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::copy(data.begin(), data.end(), std::begin(event.data.data32));
    const auto* bytes = reinterpret_cast<const char*>(&event); // NOLINT: the interface is made so
    xcb_send_event(
        connection_, 0, root_, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
        bytes
    );
}

} // namespace mimkins
