#pragma once

#include <sys/types.h>

#include <cstdio>
#include <map>
#include <string>

namespace mimkins::test {

/// How one operation of the installer went in a process of its own.
struct DriverRun {
    int status = -1; ///< exit code, or 128 plus a signal's number
    int calls = 0;   ///< calls into the system; none if the process was killed
    std::string message;
};

/// The program hook_driver with the faults preloaded, kept running since starting it takes longer than what
/// it is for.
class DriverProcess {
public:
    DriverProcess();
    DriverProcess(const DriverProcess&) = delete;
    DriverProcess& operator=(const DriverProcess&) = delete;
    ~DriverProcess();

    struct Call {
        std::string home;
        std::string script;
        std::string operation;
        /// What Faults.cpp reads.
        std::map<std::string, std::string> faults;
    };

    DriverRun run(const Call& call);

private:
    std::string readLine();

    pid_t process_ = -1;
    std::FILE* input_ = nullptr;
    std::FILE* output_ = nullptr;
};

} // namespace mimkins::test
