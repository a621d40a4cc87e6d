#include "Support/RunProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

namespace mimkins::test {

namespace {

struct Pipe {
    int readEnd = -1;
    int writeEnd = -1;
};

Pipe makePipe() {
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return {};
    }
    return {ends[0], ends[1]};
}

[[noreturn]] void
becomeProgram(const ProgramCall& call, const Pipe& input, const Pipe& output, const Pipe& errors) {
    ::dup2(input.readEnd, STDIN_FILENO);
    ::dup2(output.writeEnd, STDOUT_FILENO);
    ::dup2(errors.writeEnd, STDERR_FILENO);
    if (!call.folder.empty() && ::chdir(call.folder.c_str()) != 0) {
        ::_exit(126);
    }
    std::vector<std::string> settings;
    bool hasPath = false;
    for (const auto& [name, value] : call.environment) {
        hasPath = hasPath || name == "PATH";
        settings.push_back(name + "=" + value);
    }
    if (!hasPath) {
        settings.emplace_back("PATH=/usr/bin:/bin");
    }
    std::vector<char*> environment;
    for (auto& setting : settings) {
        environment.push_back(setting.data());
    }
    environment.push_back(nullptr);
    std::vector<char*> words;
    for (const auto& word : call.words) {
        words.push_back(const_cast<char*>(word.c_str()));
    }
    words.push_back(nullptr);
    ::execvpe(words.front(), words.data(), environment.data());
    ::_exit(127);
}

/// Moves bytes until both outputs are at their end and the input is written; gives up writing when nobody is
/// left to read. A program may close its outputs long before it has read its input.
void exchange(std::string_view input, int writeEnd, int outputEnd, int errorsEnd, ProgramResult& result) {
    std::array<pollfd, 3> ends{{{outputEnd, POLLIN, 0}, {errorsEnd, POLLIN, 0}, {writeEnd, POLLOUT, 0}}};
    const auto stopWriting = [&] {
        ::close(ends[2].fd);
        ends[2].fd = -1;
    };
    if (input.empty()) {
        stopWriting();
    }
    while (ends[0].fd >= 0 || ends[1].fd >= 0 || ends[2].fd >= 0) {
        if (::poll(ends.data(), ends.size(), -1) < 0 && errno != EINTR) {
            break;
        }
        if (ends[2].fd >= 0 && ends[2].revents != 0) {
            const auto written = ::write(ends[2].fd, input.data(), input.size());
            if (written > 0) {
                input.remove_prefix(static_cast<std::size_t>(written));
            }
            if (input.empty() || (written < 0 && errno != EAGAIN && errno != EINTR)) {
                stopWriting();
            }
        }
        for (std::size_t index = 0; index < 2; ++index) {
            if (ends.at(index).fd < 0 || ends.at(index).revents == 0) {
                continue;
            }
            std::array<char, 65'536> buffer{};
            const auto count = ::read(ends.at(index).fd, buffer.data(), buffer.size());
            if (count > 0) {
                (index == 0 ? result.output : result.errors)
                    .append(buffer.data(), static_cast<std::size_t>(count));
            } else if (count == 0 || errno != EINTR) {
                ends.at(index).fd = -1;
            }
        }
    }
}

} // namespace

ProgramResult runProgram(const ProgramCall& call) {
    const Pipe input = makePipe();
    const Pipe output = makePipe();
    const Pipe errors = makePipe();
    const auto oldHandler = ::signal(SIGPIPE, SIG_IGN);
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGPIPE, SIG_DFL);
        becomeProgram(call, input, output, errors);
    }
    ::close(input.readEnd);
    ::close(output.writeEnd);
    ::close(errors.writeEnd);
    ::fcntl(input.writeEnd, F_SETFL, O_NONBLOCK);
    ProgramResult result;
    exchange(call.input, input.writeEnd, output.readEnd, errors.readEnd, result);
    ::close(output.readEnd);
    ::close(errors.readEnd);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    ::signal(SIGPIPE, oldHandler);
    constexpr int signalBase = 128; // how shells number a death by signal
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : signalBase + WTERMSIG(status);
    return result;
}

} // namespace mimkins::test
