#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace mimkins {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); } // NOLINT: xcb hands out malloc'ed memory
};

template <typename Reply>
using XcbReply = std::unique_ptr<Reply, FreeReply>;

/// Properties of windows and messages to the window manager, over a connection that somebody else owns.
class XcbProperties {
public:
    using Values = std::vector<std::uint32_t>;

    XcbProperties(xcb_connection_t* connection, xcb_window_t root) : connection_(connection), root_(root) {}

    xcb_connection_t* connection() const { return connection_; }

    xcb_window_t root() const { return root_; }

    /// The number of a name, asked once.
    xcb_atom_t atom(const std::string& name);

    /// The property's 32-bit items; none if it is missing or of another format.
    Values values(xcb_window_t window, const std::string& property);

    void set(xcb_window_t window, const std::string& property, xcb_atom_t type, const Values& values);
    void remove(xcb_window_t window, const std::string& property);

    /// Asks the window manager for a change of a window that it manages.
    void
    askManager(xcb_window_t window, const std::string& message, const std::array<std::uint32_t, 5>& data);

    void flush() { xcb_flush(connection_); }

private:
    xcb_connection_t* connection_;
    xcb_window_t root_;
    std::map<std::string, xcb_atom_t> atoms_;
};

} // namespace mimkins
