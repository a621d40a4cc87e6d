#pragma once

#include "Support/RunProgram.h"

#include <string>
#include <vector>

namespace mimkins::test {

struct SystemCall {
    std::string name;
    /// The how-manieth of its name since the program started.
    int ordinal = 0;
};

/// A program under a tracer that can kill it at each system call that the kernel sees, those that the C
/// library makes on its own account included.
class TracedCalls {
public:
    /// `file` is where the tracer writes.
    TracedCalls(std::vector<std::string> program, std::string file);

    /// Runs the program under the tracer with these of the tracer's options.
    ProgramResult run(const std::vector<std::string>& options) const;

    ProgramResult runKilledAt(const SystemCall& call) const;

    /// The system calls of the last run since the program's operation began.
    std::vector<SystemCall> calls() const;

private:
    std::vector<std::string> program_;
    std::string file_;
};

} // namespace mimkins::test
