#include "Platform/Linux/LinuxGitRunner.h"

#include "Base/Text.h"
#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/SpawnSetup.h"

#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <thread>
#include <utility>

namespace mimkins {

namespace {

using Clock = std::chrono::steady_clock;

/// What an unread pipe holds, and so the most that a command may write.
constexpr std::size_t longestOutput = 65'536;

/// How often a process is looked at where the kernel can't tell of its end.
constexpr std::chrono::milliseconds pollInterval{20};

/// Settings that outrank the repository's own. A difference would otherwise take the index lock to note fresh
/// file times, a log might start the repository's signature program, and an object missing from a partial
/// clone would be fetched, over the network and by whatever command the repository names. The working tree of
/// a submodule would be looked at under that one's own settings, filters included.
constexpr std::array<std::string_view, 13> outrankingSettings{
    "core.fsmonitor=false",        "diff.autoRefreshIndex=false", "log.showSignature=false",
    "diff.ignoreSubmodules=dirty", "protocol.allow=never",        "protocol.file.allow=never",
    "protocol.git.allow=never",    "protocol.ssh.allow=never",    "protocol.http.allow=never",
    "protocol.https.allow=never",  "protocol.ftp.allow=never",    "protocol.ftps.allow=never",
    "protocol.ext.allow=never",
};

std::vector<std::string> commandLine(
    const std::string& executable, const std::vector<std::string>& arguments, const std::string& folder
) {
    std::vector<std::string> words{executable, "-C", folder, "--no-optional-locks"};
    for (const auto setting : outrankingSettings) {
        words.emplace_back("-c");
        words.emplace_back(setting);
    }
    words.insert(words.end(), arguments.begin(), arguments.end());
    return words;
}

/// What a new process starts with, apart from its words: its descriptors, and nothing of our signals.
void prepareGit(SpawnSetup& setup, int output) {
    ::posix_spawn_file_actions_addopen(&setup.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&setup.actions, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&setup.actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addclosefrom_np(&setup.actions, STDERR_FILENO + 1);
    sigset_t signals;
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&setup.attributes, &signals);
    ::sigfillset(&signals);
    ::posix_spawnattr_setsigdefault(&setup.attributes, &signals);
    ::posix_spawnattr_setpgroup(&setup.attributes, 0);
    constexpr int flags = POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
    ::posix_spawnattr_setflags(&setup.attributes, flags);
}

/// A process in a group of its own, and the reading end of its output. Nothing of the group outlives the
/// object.
class Child {
public:
    explicit Child(std::vector<std::string> words) {
        std::array<int, 2> ends{-1, -1};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            return;
        }
        output_ = FileDescriptor(ends[0]);
        const FileDescriptor writingEnd(ends[1]);
        ::fcntl(output_.get(), F_SETFL, O_NONBLOCK);
        SpawnSetup setup;
        prepareGit(setup, writingEnd.get());
        std::vector<std::string> settings{"GIT_OPTIONAL_LOCKS=0", "PATH=/usr/bin:/bin"};
        if (::posix_spawn(
                &pid_, words.front().c_str(), &setup.actions, &setup.attributes, pointers(words).data(),
                pointers(settings).data()
            ) != 0) {
            pid_ = -1;
            return;
        }
        handle_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, pid_, 0)));
    }

    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    ~Child() { end(); }

    bool started() const { return pid_ > 0; }

    /// Waits for output, the end of it, or the end of the process.
    void wait(std::chrono::milliseconds longest) const {
        std::array<pollfd, 2> events{
            {{readAll_ ? -1 : output_.get(), POLLIN, 0}, {handle_.get(), POLLIN, 0}}};
        if (!handle_) {
            longest = std::min(longest, pollInterval);
        }
        ::poll(events.data(), events.size(), static_cast<int>(longest.count()));
    }

    /// True once the process itself has ended. It stays unreaped, so that its id can't become another's.
    bool ended() const {
        siginfo_t facts{};
        const int failure = ::waitid(P_PID, static_cast<id_t>(pid_), &facts, WEXITED | WNOHANG | WNOWAIT);
        return failure == 0 ? facts.si_pid == pid_ : errno != EINTR;
    }

    /// Takes what is there to be read, up to a little more than is allowed.
    void read(std::string& text) {
        std::array<char, longestOutput> block;
        while (!readAll_ && text.size() <= longestOutput) {
            const auto count = ::read(output_.get(), block.data(), block.size());
            if (count > 0) {
                text.append(block.data(), static_cast<std::size_t>(count));
            } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
                readAll_ = true;
            } else if (errno == EAGAIN) {
                return;
            }
        }
    }

    /// Ends whatever is left of the process's group and gives the exit status; -1 if it didn't exit by
    /// itself.
    int end() {
        if (pid_ <= 0) {
            return -1;
        }
        ::kill(-pid_, SIGKILL);
        for (int round = 0; round < roundsOfPatience && !ended(); ++round) {
            wait(pollInterval);
        }
        const pid_t pid = std::exchange(pid_, -1);
        int status = 0;
        const pid_t reaped = ::waitpid(pid, &status, WNOHANG);
        if (reaped == 0) {
            reapLater(pid);
        }
        return reaped == pid && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// Asks the process to end, which lets git take its own temporary files away.
    void terminate() const { ::kill(-pid_, SIGTERM); }

private:
    static constexpr int roundsOfPatience = 25;

    /// A process inside a file system that doesn't answer can't be killed before that does. It must not hold
    /// up the caller meanwhile.
    static void reapLater(pid_t pid) {
        std::thread([pid] {
            while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
            }
        }).detach();
    }

    pid_t pid_ = -1;
    FileDescriptor output_;
    FileDescriptor handle_;
    bool readAll_ = false;
};

/// Reads until the process ends. False if it ran over the limit or wrote too much.
bool readUntilEnd(Child& child, Clock::time_point deadline, std::string& text) {
    while (true) {
        const bool ended = child.ended();
        child.read(text);
        if (text.size() > longestOutput) {
            return false;
        }
        if (ended) {
            return true;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) {
            return false;
        }
        child.wait(left);
    }
}

/// Gives a process that was asked to end a moment for it.
void awaitEnd(Child& child) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(100);
    std::string rest;
    while (!child.ended() && Clock::now() < deadline) {
        child.wait(pollInterval);
        rest.clear();
        child.read(rest);
    }
}

} // namespace

LinuxGitRunner::LinuxGitRunner(Options options) : options_(std::move(options)) {}

std::optional<std::string> LinuxGitRunner::run(
    const std::vector<std::string>& arguments, const std::string& folder, GitFailure allowed
) const {
    Child child(commandLine(options_.executable, arguments, folder));
    if (!child.started()) {
        return std::nullopt;
    }
    std::string text;
    if (!readUntilEnd(child, Clock::now() + options_.limit, text)) {
        child.terminate();
        awaitEnd(child);
        return std::nullopt;
    }
    const int status = child.end();
    if (status != 0 && !(status == 1 && allowed == GitFailure::allowNotFound)) {
        return std::nullopt;
    }
    return text::repairUtf8(text);
}

} // namespace mimkins
