#pragma once

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

namespace mimkins::test {

/// A running program that ends with the object. It starts with an empty environment.
class ChildProcess {
public:
    /// `words` are the arguments, the program's own name among them.
    ChildProcess(const std::string& program, std::vector<std::string> words) {
        std::vector<char*> arguments;
        for (auto& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        char* environment[] = {nullptr};
        if (::posix_spawn(&pid_, program.c_str(), nullptr, nullptr, arguments.data(), environment) != 0) {
            pid_ = -1;
        }
    }

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    ~ChildProcess() { end(); }

    /// The process's id, or -1 if it couldn't be started.
    pid_t pid() const { return pid_; }

    /// Kills the process without taking note, so that it stays as a zombie.
    void killOnly() const {
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            siginfo_t facts{};
            ::waitid(P_PID, static_cast<id_t>(pid_), &facts, WEXITED | WNOWAIT);
        }
    }

    /// Kills the process and takes note; nothing of it is left.
    void end() {
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            ::waitpid(std::exchange(pid_, -1), nullptr, 0);
        }
    }

private:
    pid_t pid_ = -1;
};

} // namespace mimkins::test
