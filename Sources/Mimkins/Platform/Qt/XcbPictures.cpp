#include "Platform/Qt/XcbPictures.h"

#include "Platform/Qt/XcbProperties.h"

#include <QGuiApplication>

#include <algorithm>
#include <bit>
#include <limits>

namespace mimkins {

namespace {

constexpr std::uint8_t pixelBits = 32;
constexpr std::uint8_t opaqueDepth = 24;

/// The toolkit's window of this number; null if there is none, as for a window that has yet to be made.
QWindow* windowOf(xcb_window_t id) {
    for (auto* window : QGuiApplication::allWindows()) {
        if (window->handle() != nullptr && window->winId() == id) {
            return window;
        }
    }
    return nullptr;
}

/// True if the server reads pixels of this depth as this machine writes them.
bool isStoredAsHere(const xcb_setup_t* setup, std::uint8_t depth) {
    const bool littleEndian = std::endian::native == std::endian::little;
    const auto order = littleEndian ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST;
    if (setup->image_byte_order != order) {
        return false;
    }
    for (auto each = xcb_setup_pixmap_formats_iterator(setup); each.rem > 0; xcb_format_next(&each)) {
        if (each.data->depth == depth) {
            return each.data->bits_per_pixel == pixelBits && each.data->scanline_pad == pixelBits;
        }
    }
    return false;
}

} // namespace

XcbPictures::~XcbPictures() {
    for (const auto& [depth, context] : contexts_) {
        xcb_free_gc(connection_, context);
    }
}

bool XcbPictures::hasOurPixels(std::uint8_t depth, xcb_visualid_t visual) const {
    const auto* setup = xcb_get_setup(connection_);
    if ((depth != pixelBits && depth != opaqueDepth) || !isStoredAsHere(setup, depth)) {
        return false;
    }
    const auto* screen = xcb_setup_roots_iterator(setup).data;
    for (auto depths = xcb_screen_allowed_depths_iterator(screen); depths.rem > 0; xcb_depth_next(&depths)) {
        for (auto each = xcb_depth_visuals_iterator(depths.data); each.rem > 0; xcb_visualtype_next(&each)) {
            if (each.data->visual_id == visual) {
                return each.data->red_mask == 0xFF0000 && each.data->green_mask == 0xFF00 &&
                       each.data->blue_mask == 0xFF;
            }
        }
    }
    return false;
}

std::uint8_t XcbPictures::depthOf(xcb_window_t window) {
    const auto sizeCookie = xcb_get_geometry(connection_, window);
    const auto kindCookie = xcb_get_window_attributes(connection_, window);
    const XcbReply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(connection_, sizeCookie, nullptr));
    const XcbReply<xcb_get_window_attributes_reply_t> kind(
        xcb_get_window_attributes_reply(connection_, kindCookie, nullptr)
    );
    return size && kind && hasOurPixels(size->depth, kind->visual) ? size->depth : std::uint8_t{0};
}

const XcbPictures::Target* XcbPictures::target(xcb_window_t window) {
    const auto known = targets_.find(window);
    if (known != targets_.end() && known->second.window != nullptr) {
        return &known->second;
    }
    std::erase_if(targets_, [](const auto& each) { return each.second.window == nullptr; });
    auto* ours = windowOf(window);
    if (ours == nullptr) {
        return nullptr;
    }
    return &targets_.emplace(window, Target{ours, depthOf(window)}).first->second;
}

xcb_gcontext_t XcbPictures::context(xcb_window_t window, std::uint8_t depth) {
    auto& context = contexts_[depth];
    if (context == XCB_NONE) {
        context = xcb_generate_id(connection_);
        xcb_create_gc(connection_, context, window, 0, nullptr);
    }
    return context;
}

bool XcbPictures::put(xcb_window_t window, const WindowPicture& picture) {
    constexpr std::size_t longestSide = std::numeric_limits<std::int16_t>::max();
    const auto height = picture.height();
    if (height == 0 || std::max(picture.width, height) > longestSide) {
        return false;
    }
    const auto bytes = picture.width * height * sizeof(std::uint32_t);
    const std::size_t most = xcb_get_maximum_request_length(connection_) * std::size_t{4};
    const auto* ours = target(window);
    if (ours == nullptr || ours->depth == 0 || sizeof(xcb_put_image_request_t) + bytes > most ||
        !ours->window->isExposed() || ours->window->handle() == nullptr || ours->window->winId() != window) {
        return false;
    }
    xcb_put_image(
        connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, context(window, ours->depth),
        static_cast<std::uint16_t>(picture.width), static_cast<std::uint16_t>(height), 0, 0, 0, ours->depth,
        static_cast<std::uint32_t>(bytes), reinterpret_cast<const std::uint8_t*>(picture.pixels.data())
    );
    xcb_flush(connection_);
    return xcb_connection_has_error(connection_) == 0;
}

} // namespace mimkins
