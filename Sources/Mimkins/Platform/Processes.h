#pragma once

#include "Base/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// Questions about other processes. A process that has ended answers like one that never was.
class Processes {
public:
    virtual ~Processes() = default;

    /// True if a process with this id exists, whoever owns it. Ids below 1 mean what they mean to kill(2): 0
    /// is the caller's own group, and so alive.
    virtual bool isAlive(std::int32_t pid) const = 0;
    /// The direct children, at most 256.
    virtual std::vector<std::int32_t> children(std::int32_t pid) const = 0;
    /// When the process started.
    virtual std::optional<Date> started(std::int32_t pid) const = 0;
    /// The arguments as the kernel keeps them, separated by NUL bytes; empty if they can't be had.
    virtual std::string arguments(std::int32_t pid) const = 0;
    /// The path of the program that the process runs.
    virtual std::optional<std::string> executable(std::int32_t pid) const = 0;
    /// True if the process runs a command shell.
    virtual bool isShell(std::int32_t pid) const = 0;
};

} // namespace mimkins
