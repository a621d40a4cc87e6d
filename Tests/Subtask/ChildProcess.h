#pragma once

#include <fcntl.h>
#include <linux/sched.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace mimkins::test {

/// A real child of the test that waits until it is ended. It runs a shell that reads from a pipe, and the
/// words stand behind the shell's own in its command line.
class ChildProcess {
public:
    struct Options {
        /// What the shell does; it ends when its standard input does.
        std::string script = "read line";
        /// The number that the process shall have; 0 for any. Needs privileges.
        pid_t pid = 0;
    };

    explicit ChildProcess(const std::vector<std::string>& words) : ChildProcess(words, Options()) {}

    ChildProcess(const std::vector<std::string>& words, const Options& options) {
        std::array<int, 2> input{-1, -1};
        if (::pipe2(input.data(), O_CLOEXEC) != 0) {
            return;
        }
        std::vector<std::string> line{"/bin/sh", "-c", options.script};
        line.insert(line.end(), words.begin(), words.end());
        pid_ = fork(options.pid);
        if (pid_ == 0) {
            ::dup2(input[0], STDIN_FILENO);
            exec(line);
        }
        ::close(input[0]);
        writeEnd_ = input[1];
    }

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    ~ChildProcess() {
        if (pid_ > 0) {
            kill();
            reap();
        }
        ::close(writeEnd_);
    }

    /// Below 1 if the process couldn't be made.
    pid_t pid() const { return pid_; }

    /// Ends the process and leaves it in the table, as a parent does that has not noticed yet.
    void kill() const {
        ::kill(pid_, SIGKILL);
        siginfo_t facts{};
        ::waitid(P_PID, static_cast<id_t>(pid_), &facts, WEXITED | WNOWAIT);
    }

    /// Removes the ended process from the table.
    void reap() {
        ::waitpid(pid_, nullptr, 0);
        pid_ = -1;
    }

private:
    static pid_t fork(pid_t wanted) {
        if (wanted == 0) {
            return ::fork();
        }
        clone_args arguments{};
        arguments.exit_signal = SIGCHLD;
        arguments.set_tid = reinterpret_cast<std::uintptr_t>(&wanted);
        arguments.set_tid_size = 1;
        return static_cast<pid_t>(::syscall(SYS_clone3, &arguments, sizeof arguments));
    }

    [[noreturn]] static void exec(std::vector<std::string>& line) {
        std::vector<char*> words;
        for (auto& word : line) {
            words.push_back(word.data());
        }
        words.push_back(nullptr);
        ::execv(words.front(), words.data());
        ::_exit(127);
    }

    pid_t pid_ = -1;
    int writeEnd_ = -1;
};

} // namespace mimkins::test
