#include "Platform/Qt/XcbWindowSystem.h"

#include "Platform/Qt/XcbChanges.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace mimkins {

namespace {

constexpr std::uint32_t allDesktops = 0xFFFFFFFF;
constexpr std::uint32_t stateRemove = 0;
constexpr std::uint32_t stateAdd = 1;
/// Requests of a pager or task bar: window managers carry them out without judging who has the focus.
constexpr std::uint32_t sourcePager = 2;

constexpr std::array panelStates{
    "_NET_WM_STATE_STICKY", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"};
constexpr const char* above = "_NET_WM_STATE_ABOVE";
constexpr const char* hidden = "_NET_WM_STATE_HIDDEN";

bool holds(const XcbProperties::Values& values, std::uint32_t value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

} // namespace

std::unique_ptr<WindowSystem> XcbWindowSystem::make(Loops loops) {
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    auto* connection = native != nullptr ? native->connection() : nullptr;
    if (connection == nullptr) {
        return std::make_unique<PlainWindowSystem>();
    }
    const auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    return std::unique_ptr<WindowSystem>(
        new XcbWindowSystem(XcbProperties(connection, screens.data->root), 0, loops)
    );
}

void XcbWindowSystem::makePanel(WindowId id, WindowLevel level) {
    const auto window = static_cast<xcb_window_t>(id);
    auto& p = properties_;
    p.set(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {p.atom("_NET_WM_WINDOW_TYPE_UTILITY")});
    p.set(window, "_NET_WM_USER_TIME", XCB_ATOM_CARDINAL, {0}); // appears without taking the focus
    if (!isViewable(window)) {
        XcbProperties::Values states;
        for (const auto* state : panelStates) {
            states.push_back(p.atom(state));
        }
        if (level == WindowLevel::floating) {
            states.push_back(p.atom(above));
        }
        p.set(window, "_NET_WM_STATE", XCB_ATOM_ATOM, states);
        p.set(window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {allDesktops});
        p.flush();
        return;
    }
    for (const auto* state : panelStates) {
        p.askManager(window, "_NET_WM_STATE", {stateAdd, p.atom(state), 0, sourcePager, 0});
    }
    const auto change = level == WindowLevel::floating ? stateAdd : stateRemove;
    p.askManager(window, "_NET_WM_STATE", {change, p.atom(above), 0, sourcePager, 0});
    p.askManager(window, "_NET_WM_DESKTOP", {allDesktops, sourcePager, 0, 0, 0});
    p.flush();
}

void XcbWindowSystem::setOwner(WindowId child, std::optional<WindowId> owner) {
    const auto window = static_cast<xcb_window_t>(child);
    if (owner) {
        properties_.set(window, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {static_cast<std::uint32_t>(*owner)});
    } else {
        properties_.remove(window, "WM_TRANSIENT_FOR");
    }
    properties_.flush();
}

void XcbWindowSystem::raise(WindowId id) {
    const auto window = static_cast<xcb_window_t>(id);
    const std::uint32_t mode = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(properties_.connection(), window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
    properties_.askManager(window, "_NET_RESTACK_WINDOW", {sourcePager, XCB_WINDOW_NONE, mode, 0, 0});
    properties_.flush();
}

std::optional<WindowId> XcbWindowSystem::activeWindow() {
    const auto active = properties_.values(properties_.root(), "_NET_ACTIVE_WINDOW");
    return active.empty() || active.front() == XCB_WINDOW_NONE ? std::nullopt
                                                               : std::optional<WindowId>(active.front());
}

void XcbWindowSystem::activate(WindowId id) {
    const auto window = static_cast<xcb_window_t>(id);
    properties_.askManager(window, "_NET_ACTIVE_WINDOW", {sourcePager, XCB_CURRENT_TIME, 0, 0, 0});
    properties_.flush();
}

bool XcbWindowSystem::isViewable(xcb_window_t window) {
    auto* connection = properties_.connection();
    const XcbReply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr)
    );
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE &&
           reply->_class != XCB_WINDOW_CLASS_INPUT_ONLY;
}

bool XcbWindowSystem::isShown(xcb_window_t window, const XcbProperties::Values& currentDesktop) {
    if (!isViewable(window) || holds(properties_.values(window, "_NET_WM_STATE"), properties_.atom(hidden))) {
        return false;
    }
    const auto desktop = properties_.values(window, "_NET_WM_DESKTOP");
    return desktop.empty() || currentDesktop.empty() || desktop.front() == allDesktops ||
           desktop.front() == currentDesktop.front();
}

std::optional<Rect> XcbWindowSystem::outerFrame(xcb_window_t window) {
    auto* connection = properties_.connection();
    const auto sizeCookie = xcb_get_geometry(connection, window);
    const auto placeCookie = xcb_translate_coordinates(connection, window, properties_.root(), 0, 0);
    const XcbReply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(connection, sizeCookie, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(connection, placeCookie, nullptr)
    );
    if (!size || !place) {
        return std::nullopt;
    }
    return Rect{
        static_cast<double>(place->dst_x), static_cast<double>(place->dst_y),
        static_cast<double>(size->width), static_cast<double>(size->height)};
}

std::vector<Rect> XcbWindowSystem::opaqueParts(xcb_window_t window) {
    const auto frame = outerFrame(window);
    if (!frame) {
        return {};
    }
    const auto region = properties_.values(window, "_NET_WM_OPAQUE_REGION");
    std::vector<Rect> parts;
    for (std::size_t index = 0; index + 3 < region.size(); index += 4) {
        parts.push_back(
            {frame->x + region[index], frame->y + region[index + 1], static_cast<double>(region[index + 2]),
             static_cast<double>(region[index + 3])}
        );
    }
    if (!parts.empty()) {
        return parts;
    }
    const auto borders = properties_.values(window, "_NET_FRAME_EXTENTS"); // left, right, top, bottom
    Rect whole = *frame;
    if (borders.size() == 4) {
        whole = {
            whole.x - borders[0], whole.y - borders[2], whole.width + borders[0] + borders[1],
            whole.height + borders[2] + borders[3]};
    }
    return {whole};
}

bool XcbWindowSystem::isCovered(WindowId id, const std::vector<WindowId>& ignoring) {
    const auto window = static_cast<xcb_window_t>(id);
    const auto desktop = properties_.values(properties_.root(), "_NET_CURRENT_DESKTOP");
    if (!isShown(window, desktop)) {
        return true;
    }
    const auto stack = properties_.values(properties_.root(), "_NET_CLIENT_LIST_STACKING");
    const auto frame = outerFrame(window);
    const auto self = std::find(stack.begin(), stack.end(), window);
    if (!frame || self == stack.end()) {
        return false;
    }
    std::vector<Rect> covers;
    for (auto other = self + 1; other != stack.end(); ++other) {
        const bool ignored = std::find(ignoring.begin(), ignoring.end(), *other) != ignoring.end();
        if (!ignored && isShown(*other, desktop)) {
            const auto parts = opaqueParts(*other);
            covers.insert(covers.end(), parts.begin(), parts.end());
        }
    }
    return mimkins::isCovered(*frame, covers);
}

bool XcbWindowSystem::hasTranslucency() {
    auto* connection = properties_.connection();
    const auto selection = properties_.atom("_NET_WM_CM_S" + std::to_string(screenNumber_));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr)
    );
    return reply && reply->owner != XCB_WINDOW_NONE;
}

bool XcbWindowSystem::put(WindowId window, const WindowPicture& picture) {
    return pictures_.put(static_cast<xcb_window_t>(window), picture);
}

Handle XcbWindowSystem::whenWindowsChange(std::function<void()> changed) {
    return watchXcbChanges({loops_.timers, loops_.descriptors, std::move(changed)});
}

} // namespace mimkins
