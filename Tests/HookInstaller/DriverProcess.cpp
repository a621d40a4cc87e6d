#include "HookInstaller/DriverProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace mimkins::test {

DriverProcess::DriverProcess() {
    std::array<int, 2> input{-1, -1};
    std::array<int, 2> output{-1, -1};
    if (::pipe2(input.data(), O_CLOEXEC) != 0 || ::pipe2(output.data(), O_CLOEXEC) != 0) {
        return;
    }
    process_ = ::fork();
    if (process_ == 0) {
        ::dup2(input[0], STDIN_FILENO);
        ::dup2(output[1], STDOUT_FILENO);
        ::setenv("LD_PRELOAD", MIMKINS_HOOK_FAULTS, 1);
        // A sanitizer's library doesn't mind standing second.
        ::setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 1);
        ::execl(MIMKINS_HOOK_DRIVER, MIMKINS_HOOK_DRIVER, nullptr);
        ::_exit(127);
    }
    ::close(input[0]);
    ::close(output[1]);
    input_ = ::fdopen(input[1], "w");
    output_ = ::fdopen(output[0], "r");
}

DriverProcess::~DriverProcess() {
    if (process_ > 0) {
        std::fclose(input_);
        std::fclose(output_);
        ::waitpid(process_, nullptr, 0);
    }
}

std::string DriverProcess::readLine() {
    std::string line;
    for (int character = std::fgetc(output_); character != '\n' && character != EOF;
         character = std::fgetc(output_)) {
        line += static_cast<char>(character);
    }
    return line;
}

DriverRun DriverProcess::run(const Call& call) {
    std::string words = call.home + "\t" + call.script + "\t" + call.operation;
    for (const auto& [name, value] : call.faults) {
        words.append("\t").append(name).append("=").append(value);
    }
    std::fputs((words + "\n").c_str(), input_);
    std::fflush(input_);
    DriverRun run;
    std::string line = readLine();
    if (const auto blank = line.find(' '); blank != std::string::npos) {
        run.calls = std::atoi(line.c_str()); // NOLINT(cert-err34-c): our own program wrote it
        run.message = line.substr(blank + 1);
        line = readLine();
    }
    run.status = line.empty() ? -1 : std::atoi(line.c_str()); // NOLINT(cert-err34-c)
    return run;
}

} // namespace mimkins::test
