#pragma once

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

namespace mimkins::test {

struct TerminalResult {
    int status = -1;    ///< exit code, or -1 if a signal ended the program
    std::string output; ///< of both streams, with "\n" at the ends of lines
};

/// Runs a program on a terminal of its own, so many columns wide. Its environment is what `environment` says
/// and nothing else.
inline TerminalResult runOnTerminal(
    const std::vector<std::string>& words, unsigned short columns,
    const std::vector<std::string>& environment = {}
) {
    const auto pointers = [](const std::vector<std::string>& texts) {
        std::vector<char*> result;
        for (const auto& text : texts) {
            result.push_back(const_cast<char*>(text.c_str()));
        }
        result.push_back(nullptr);
        return result;
    };
    const auto arguments = pointers(words);
    const auto variables = pointers(environment);
    winsize size{};
    size.ws_row = 24;
    size.ws_col = columns;
    int terminal = -1;
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        ::execve(arguments.front(), arguments.data(), variables.data());
        ::_exit(127);
    }
    TerminalResult result;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    // The end of the last process on the terminal shows as an error.
    while ((count = ::read(terminal, buffer.data(), buffer.size())) > 0) {
        result.output.append(buffer.data(), static_cast<std::size_t>(count));
    }
    ::close(terminal);
    int ended = 0;
    ::waitpid(child, &ended, 0);
    result.status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
    for (std::size_t at = 0; (at = result.output.find("\r\n", at)) != std::string::npos;) {
        result.output.erase(at, 1);
    }
    return result;
}

} // namespace mimkins::test
