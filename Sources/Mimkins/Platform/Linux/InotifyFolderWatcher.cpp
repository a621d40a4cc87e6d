#include "Platform/Linux/InotifyFolderWatcher.h"

#include "Base/Error.h"
#include "Base/Log.h"
#include "Platform/Linux/FileDescriptor.h"

#include <sys/inotify.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace mimkins {

namespace {

constexpr std::uint32_t entryEvents = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr std::uint32_t folderEvents = IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t fileEvents = IN_MODIFY | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;
/// After these the watch tells nothing more about the path it was made for.
constexpr std::uint32_t lastEvents = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;

struct Event {
    int watch = -1;
    std::uint32_t mask = 0;
};

/// Takes all events that wait in the descriptor.
std::vector<Event> takeEvents(int descriptor) {
    std::vector<Event> events;
    alignas(inotify_event) std::array<char, 65'536> buffer{};
    while (true) {
        const auto count = ::read(descriptor, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return events;
        }
        for (std::size_t position = 0; position < static_cast<std::size_t>(count);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + position, sizeof event);
            events.push_back({event.wd, event.mask});
            position += sizeof event + event.len;
        }
    }
}

} // namespace

struct InotifyFolderWatcher::State {
    struct Listener {
        int watch = -1; ///< -1 once the folder is gone
        std::shared_ptr<std::function<void()>> changed;
    };

    FileDescriptor inotify;
    Handle readable;
    std::map<std::uint64_t, Listener> listeners;
    std::uint64_t nextListener = 0;

    bool isUsed(int watch) const {
        for (const auto& [number, listener] : listeners) {
            if (listener.watch == watch) {
                return true;
            }
        }
        return false;
    }

    void remove(std::uint64_t number) {
        const auto node = listeners.extract(number);
        if (!node.empty() && node.mapped().watch >= 0 && !isUsed(node.mapped().watch)) {
            ::inotify_rm_watch(inotify.get(), node.mapped().watch);
        }
    }

    /// The listeners that the events concern, each once. Listeners of folders that went away lose their
    /// watch.
    std::set<std::uint64_t> concerned(const std::vector<Event>& events) {
        std::set<std::uint64_t> numbers;
        std::set<int> over;
        for (const auto& [watch, mask] : events) {
            for (auto& [number, listener] : listeners) {
                const bool lost = (mask & IN_Q_OVERFLOW) != 0;
                if (!lost && (watch < 0 || listener.watch != watch)) {
                    continue;
                }
                numbers.insert(number);
                if (!lost && (mask & lastEvents) != 0) {
                    over.insert(watch);
                    listener.watch = -1;
                }
            }
        }
        for (const int watch : over) {
            ::inotify_rm_watch(inotify.get(), watch); // fails harmlessly when the kernel has ended it already
        }
        return numbers;
    }

    void handleEvents() {
        for (const auto number : concerned(takeEvents(inotify.get()))) {
            const auto listener = listeners.find(number); // an earlier call may have ended this one
            if (listener != listeners.end()) {
                const auto changed = listener->second.changed;
                (*changed)();
            }
        }
    }
};

InotifyFolderWatcher::InotifyFolderWatcher(DescriptorWatcher& loop) : state_(std::make_shared<State>()) {
    state_->inotify = FileDescriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!state_->inotify) {
        log::write(log::Level::error, "watch", Error::posix(errno, "Couldn't start inotify").what());
        return;
    }
    state_->readable = loop.whenReadable(state_->inotify.get(), [state = std::weak_ptr(state_)] {
        if (const auto living = state.lock()) {
            living->handleEvents();
        }
    });
}

InotifyFolderWatcher::~InotifyFolderWatcher() {
    state_->readable.reset();
    state_->listeners.clear();
}

Handle InotifyFolderWatcher::watch(const std::string& folder, std::function<void()> changed) {
    return add(folder, entryEvents | folderEvents | IN_ONLYDIR, std::move(changed));
}

Handle InotifyFolderWatcher::watchFile(const std::string& file, std::function<void()> changed) {
    return add(file, fileEvents, std::move(changed));
}

Handle
InotifyFolderWatcher::add(const std::string& path, std::uint32_t events, std::function<void()> changed) {
    const int watch = ::inotify_add_watch(state_->inotify.get(), path.c_str(), events);
    if (watch < 0) {
        if (errno != ENOENT && errno != ENOTDIR) {
            log::write(log::Level::error, "watch", Error::posix(errno, "Couldn't watch " + path).what());
        }
        return {};
    }
    const auto number = state_->nextListener++;
    state_->listeners.emplace(
        number, State::Listener{watch, std::make_shared<std::function<void()>>(std::move(changed))}
    );
    return Handle([state = std::weak_ptr(state_), number] {
        if (const auto living = state.lock()) {
            living->remove(number);
        }
    });
}

} // namespace mimkins
