#pragma once

#include "Platform/Linux/FileDescriptor.h"

#include <sys/types.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// A process that stands for an agent client. It does nothing but keep the shells that it is told to start.
/// It and its shells end with the object, and with this process, however that ends.
class ClientProcess {
public:
    /// Throws `Error` if the system gives no process.
    ClientProcess();
    ClientProcess(const ClientProcess&) = delete;
    ClientProcess& operator=(const ClientProcess&) = delete;
    ~ClientProcess();

    pid_t pid() const { return pid_; }

    /// Starts a shell with the command among its arguments, which it doesn't run: it waits until it is ended.
    /// `key` names the shell; one of that name that runs is ended.
    void startShell(const std::string& key, const std::string& command);
    void endShell(const std::string& key);

private:
    void tell(char verb, const std::string& key, const std::string& command) const;

    pid_t pid_ = -1;
    FileDescriptor orders_;
};

struct ToolCall {
    std::vector<std::string> words; ///< the program's path and its arguments
    std::map<std::string, std::string> environment;
    std::string folder = "/";
    std::string_view input;
};

/// Runs a program to its end with nothing but the given environment, its outputs thrown away. Gives its exit
/// code, or 128 plus the number of the signal that ended it. Throws `Error` if it can't be started.
int runTool(const ToolCall& call);

} // namespace mimkins
