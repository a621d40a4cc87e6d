#include "Platform/Qt/XcbHotKeys.h"

#include "Base/Log.h"
#include "Platform/Qt/XcbKeyboard.h"
#include "Platform/Qt/XcbProperties.h"

#include <optional>
#include <utility>
#include <vector>

namespace mimkins {

namespace {

constexpr std::uint8_t eventKind = 0x7f; ///< the rest tells who sent it
/// A held key is told as released and pressed again at the same moment.
constexpr xcb_timestamp_t repeatMilliseconds = 1;

/// A connection of its own, so that its end gives back every key.
class Grab {
public:
    Grab(XcbHotKeys::Loops loops, HotKeyRequest request)
        : loops_(loops), request_(std::move(request)), connection_(xcb_connect(nullptr, nullptr)) {}

    ~Grab() {
        readable_.reset();
        xcb_disconnect(connection_);
    }

    Grab(const Grab&) = delete;
    Grab& operator=(const Grab&) = delete;

    bool start() {
        if (xcb_connection_has_error(connection_) != 0) {
            return false;
        }
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        if (!grab()) {
            return false;
        }
        const int descriptor = xcb_get_file_descriptor(connection_);
        readable_ = loops_.descriptors.whenReadable(descriptor, [this] { drain(); });
        drainSoon();
        return true;
    }

    /// Nothing more is called.
    void end() {
        alive_.reset();
        readable_.reset();
    }

private:
    /// All chords, or none.
    bool grab() {
        chords_ = chordsFor(readKeyboard(connection_), request_.keys);
        std::vector<xcb_void_cookie_t> cookies;
        cookies.reserve(chords_.size());
        for (const auto& chord : chords_) {
            cookies.push_back(xcb_grab_key_checked(
                connection_, 0, root_, chord.modifiers, chord.keyCode, XCB_GRAB_MODE_ASYNC,
                XCB_GRAB_MODE_ASYNC
            ));
        }
        bool taken = !chords_.empty();
        for (const auto cookie : cookies) {
            const XcbReply<xcb_generic_error_t> error(xcb_request_check(connection_, cookie));
            taken = taken && !error;
        }
        if (!taken) {
            release();
        }
        return taken;
    }

    void release() {
        for (const auto& chord : chords_) {
            xcb_ungrab_key(connection_, chord.keyCode, root_, chord.modifiers);
        }
        chords_.clear();
        xcb_flush(connection_);
    }

    /// Events that came with the answer to a question lie in memory, where the descriptor doesn't show them.
    void drainSoon() {
        loops_.main.post([alive = std::weak_ptr(alive_), this] {
            if (alive.lock()) {
                drain();
            }
        });
    }

    void drain() {
        bool mappingChanged = false;
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
            const auto kind = event->response_type & eventKind;
            if (kind == XCB_KEY_PRESS) {
                press(*reinterpret_cast<const xcb_key_press_event_t*>(event.get())); // NOLINT: made so
            } else if (kind == XCB_KEY_RELEASE) {
                released_ =
                    reinterpret_cast<const xcb_key_release_event_t*>(event.get())->time; // NOLINT: made so
            } else if (kind == XCB_MAPPING_NOTIFY) {
                mappingChanged = true;
            }
        }
        if (xcb_connection_has_error(connection_) != 0) {
            readable_.reset();
        } else if (mappingChanged) {
            follow();
            drainSoon();
        }
    }

    /// The user has another keyboard now; the keys may stand elsewhere.
    void follow() {
        if (chordsFor(readKeyboard(connection_), request_.keys) == chords_) {
            return;
        }
        release();
        if (!grab()) {
            log::write(log::Level::error, "hotkey", "the shortcut can't be had on the changed keyboard");
        }
    }

    void press(const xcb_key_press_event_t& event) {
        const bool repeats = released_ && event.time - *released_ <= repeatMilliseconds;
        if (repeats) {
            return;
        }
        loops_.main.post([alive = std::weak_ptr(alive_), this] {
            if (alive.lock()) {
                const auto pressed = request_.pressed; // which may end the grab
                pressed();
            }
        });
    }

    XcbHotKeys::Loops loops_;
    HotKeyRequest request_;
    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
    std::vector<XcbChord> chords_;
    std::optional<xcb_timestamp_t> released_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
    Handle readable_;
};

} // namespace

Handle XcbHotKeys::registerHotKey(HotKeyRequest request) {
    const auto told = request.told;
    auto grab = std::make_shared<Grab>(loops_, std::move(request));
    const bool started = grab->start();
    told(started ? HotKeyResult::registered : HotKeyResult::failed);
    return started ? Handle([grab]() mutable {
        grab->end();
        grab.reset();
    })
                   : Handle();
}

} // namespace mimkins
