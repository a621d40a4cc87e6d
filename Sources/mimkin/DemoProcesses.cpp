#include "DemoProcesses.h"

#include "Base/Error.h"
#include "Platform/Linux/SpawnSetup.h"
#include "Platform/Linux/SystemCall.h"

#include <signal.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace mimkins {

namespace {

constexpr std::size_t longestOrder = 4'096;
constexpr char startVerb = '+';
constexpr char endVerb = '-';

/// Ends this process as soon as its parent has ended.
void endWithParent(pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) {
        ::_exit(1); // it ended before the system was told
    }
}

void endAndReap(pid_t process) {
    ::kill(process, SIGKILL);
    uninterrupted([process] { return ::waitpid(process, nullptr, 0); });
}

/// The life of a client, in the new process.
class Client {
public:
    explicit Client(int orders) : orders_(orders) {
        uninterrupted([this] { return ::pipe2(idle_, O_CLOEXEC); });
    }

    /// Takes orders until there is nobody left to give them.
    void run() {
        std::array<char, longestOrder> buffer{};
        while (true) {
            const auto count =
                uninterrupted([&] { return ::recv(orders_, buffer.data(), buffer.size(), 0); });
            if (count <= 0) {
                break;
            }
            obey({buffer.data(), static_cast<std::size_t>(count)});
        }
        for (const auto& [key, shell] : shells_) {
            endAndReap(shell);
        }
    }

private:
    void obey(std::string_view order) {
        const auto keyEnd = std::min(order.find('\n'), order.size());
        const std::string key(order.substr(1, keyEnd - 1));
        end(key);
        if (order.front() == startVerb && keyEnd < order.size()) {
            start(key, std::string(order.substr(keyEnd + 1)));
        }
    }

    void end(const std::string& key) {
        const auto found = shells_.find(key);
        if (found != shells_.end()) {
            endAndReap(found->second);
            shells_.erase(found);
        }
    }

    /// The shell reads a line that never comes, so that it needs no program of its own to wait with.
    void start(const std::string& key, std::string command) {
        const pid_t parent = ::getpid();
        const pid_t shell = ::fork();
        if (shell == 0) {
            endWithParent(parent);
            ::dup2(idle_[0], STDIN_FILENO);
            std::vector<std::string> words{"sh", "-c", "read -r line", std::move(command)};
            std::vector<std::string> environment{"PATH=/usr/bin:/bin"};
            ::execve("/bin/sh", pointers(words).data(), pointers(environment).data());
            ::_exit(127);
        }
        if (shell > 0) {
            shells_[key] = shell;
        }
    }

    int orders_;
    int idle_[2] = {-1, -1};
    std::map<std::string, pid_t> shells_;
};

[[noreturn]] void liveAsClient(int orders, pid_t parent) {
    endWithParent(parent);
    ::prctl(PR_SET_NAME, "demo-client");
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::dup2(nothing, stream);
    }
    // The other clients' ends must not stay open here, or they would never see theirs.
    constexpr int first = STDERR_FILENO + 1;
    ::dup2(orders, first);
    ::close_range(first + 1, ~0U, 0);
    Client(first).run();
    ::_exit(0);
}

/// What a tool starts with, apart from its words.
void prepareTool(SpawnSetup& setup, const std::string& folder, int input) {
    ::posix_spawn_file_actions_adddup2(&setup.actions, input, STDIN_FILENO);
    ::posix_spawn_file_actions_addopen(&setup.actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addopen(&setup.actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addchdir_np(&setup.actions, folder.c_str());
    sigset_t signals;
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&setup.attributes, &signals);
    // A group of its own, so that an interrupt from the terminal lets it come to its end.
    ::posix_spawnattr_setpgroup(&setup.attributes, 0);
    ::posix_spawnattr_setflags(&setup.attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
}

/// Writes all of it. A tool that doesn't want to read is none of our business.
void feed(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (count <= 0) {
            return;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

} // namespace

ClientProcess::ClientProcess() {
    std::array<int, 2> ends{-1, -1};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throw Error::posix(errno, "socketpair");
    }
    orders_ = FileDescriptor(ends[0]);
    const FileDescriptor theirs(ends[1]);
    const pid_t parent = ::getpid();
    pid_ = ::fork();
    if (pid_ < 0) {
        throw Error::posix(errno, "fork");
    }
    if (pid_ == 0) {
        liveAsClient(theirs.get(), parent);
    }
}

ClientProcess::~ClientProcess() {
    orders_.close();
    uninterrupted([this] { return ::waitpid(pid_, nullptr, 0); });
}

void ClientProcess::startShell(const std::string& key, const std::string& command) {
    tell(startVerb, key, command);
}

void ClientProcess::endShell(const std::string& key) {
    tell(endVerb, key, {});
}

void ClientProcess::tell(char verb, const std::string& key, const std::string& command) const {
    std::string order = verb + key + "\n" + command;
    order.resize(std::min(order.size(), longestOrder));
    uninterrupted([&] { return ::send(orders_.get(), order.data(), order.size(), MSG_NOSIGNAL); });
}

int runTool(const ToolCall& call) {
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw Error::posix(errno, "pipe");
    }
    FileDescriptor readingEnd(ends[0]);
    FileDescriptor writingEnd(ends[1]);
    std::vector<std::string> words = call.words;
    std::vector<std::string> environment;
    for (const auto& [name, value] : call.environment) {
        environment.push_back(name + "=" + value);
    }
    SpawnSetup setup;
    prepareTool(setup, call.folder, readingEnd.get());
    pid_t tool = -1;
    const int failure = ::posix_spawn(
        &tool, words.front().c_str(), &setup.actions, &setup.attributes, pointers(words).data(),
        pointers(environment).data()
    );
    if (failure != 0) {
        throw Error::posix(failure, words.front());
    }
    readingEnd.close();
    feed(writingEnd.get(), call.input);
    writingEnd.close();
    int status = 0;
    uninterrupted([&] { return ::waitpid(tool, &status, 0); });
    constexpr int signalOffset = 128;
    return WIFEXITED(status) ? WEXITSTATUS(status) : signalOffset + WTERMSIG(status);
}

} // namespace mimkins
