#include "Platform/Linux/SingleInstance.h"

#include "Base/Log.h"

#include <sys/file.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

namespace mimkins {

namespace {

constexpr const char* lockName = "instance.lock";
constexpr const char* socketName = "instance.sock";
constexpr std::size_t longestMessage = 256;
constexpr int waitSeconds = 2;
/// Between two attempts to reach a process that has yet to listen.
constexpr std::chrono::milliseconds betweenAttempts{20};

/// The socket's address through the open folder, since an address holds 107 bytes and a home may be longer.
sockaddr_un socketAddress(int folder) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/proc/self/fd/" + std::to_string(folder) + "/" + socketName;
    path.copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
    return address;
}

FileDescriptor makeSocket(int flags) {
    return FileDescriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | flags, 0));
}

const sockaddr* general(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address); // NOLINT: the interface of sockets is made so
}

/// Nobody waits for long: the other side may be stopped.
void limitWaiting(int descriptor) {
    const timeval limit{waitSeconds, 0};
    ::setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    ::setsockopt(descriptor, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
}

std::string receive(int descriptor) {
    std::array<char, longestMessage> buffer{};
    const auto count = ::recv(descriptor, buffer.data(), buffer.size(), 0);
    return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : std::string();
}

} // namespace

struct SingleInstance::Listener {
    FileDescriptor socket;
    std::function<void(const std::string&)> received;
    Handle watch;

    void accept() {
        const FileDescriptor peer(::accept4(socket.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!peer) {
            return;
        }
        // The message is there before the connection is, or the peer sends it at once; a silent one is let
        // go.
        const timeval moment{0, 200'000};
        ::setsockopt(peer.get(), SOL_SOCKET, SO_RCVTIMEO, &moment, sizeof moment);
        const std::string message = receive(peer.get());
        if (!message.empty()) {
            ::send(peer.get(), "ok", 2, MSG_NOSIGNAL);
            received(message);
        }
    }
};

SingleInstance::SingleInstance(std::string folder) : folder_(std::move(folder)) {
    std::error_code ignored;
    std::filesystem::create_directories(folder_, ignored);
    folderDescriptor_ = FileDescriptor(::open(folder_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim() {
    lock_ = FileDescriptor(::openat(folderDescriptor_.get(), lockName, O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!lock_ || ::flock(lock_.get(), LOCK_EX | LOCK_NB) == 0) {
        return true;
    }
    const bool taken = errno == EWOULDBLOCK;
    lock_.close();
    return !taken;
}

Handle SingleInstance::listen(DescriptorWatcher& loop, std::function<void(const std::string&)> received) {
    auto listener = std::make_shared<Listener>();
    listener->socket = makeSocket(SOCK_NONBLOCK);
    listener->received = std::move(received);
    ::unlinkat(folderDescriptor_.get(), socketName, 0);
    const auto address = socketAddress(folderDescriptor_.get());
    if (!listener->socket || ::bind(listener->socket.get(), general(address), sizeof address) != 0 ||
        ::listen(listener->socket.get(), 4) != 0) {
        log::write(
            log::Level::error, "panel",
            std::string("a second start can't reach this one: ") + std::strerror(errno)
        ); // NOLINT: main thread only
        return {};
    }
    ::fchmodat(folderDescriptor_.get(), socketName, 0600, 0);
    // The watch lies inside what it calls; the handle's closure keeps the whole alive.
    listener->watch = loop.whenReadable(listener->socket.get(), [raw = listener.get()] { raw->accept(); });
    return Handle([listener] { listener->watch.reset(); });
}

/// True if a process holds the lock, this one or another.
bool SingleInstance::isClaimed() const {
    const FileDescriptor lock(::openat(folderDescriptor_.get(), lockName, O_RDWR | O_CLOEXEC));
    return lock && ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0;
}

/// A connection to the process that holds the lock. It may have begun just now and have yet to listen, so
/// this is patient as long as there is such a process. No descriptor if it doesn't listen in time.
FileDescriptor SingleInstance::connect() const {
    const auto address = socketAddress(folderDescriptor_.get());
    const auto attempts = std::chrono::seconds(waitSeconds) / betweenAttempts;
    for (std::int64_t attempt = 0; attempt < attempts; ++attempt) {
        FileDescriptor socket = makeSocket(0);
        if (!socket) {
            break;
        }
        limitWaiting(socket.get());
        if (::connect(socket.get(), general(address), sizeof address) == 0) {
            return socket;
        }
        const bool mayListenSoon = errno == ENOENT || errno == ECONNREFUSED;
        if (!mayListenSoon || !isClaimed()) {
            break;
        }
        std::this_thread::sleep_for(betweenAttempts);
    }
    return {};
}

bool SingleInstance::send(const std::string& message) const {
    const FileDescriptor socket = connect();
    if (!socket) {
        return false;
    }
    const auto sent = ::send(socket.get(), message.data(), message.size(), MSG_NOSIGNAL);
    return sent == static_cast<ssize_t>(message.size()) && receive(socket.get()) == "ok";
}

} // namespace mimkins
