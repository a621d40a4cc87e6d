#pragma once

#include "Platform/Linux/ProcessStat.h"
#include "Platform/Processes.h"

#include <string>

namespace mimkins {

/// Processes as /proc shows them. A process that has ended and whose parent hasn't noticed yet still counts
/// as alive and as a child, but has no start, arguments or executable.
class LinuxProcesses final : public Processes {
public:
    struct Places {
        std::string processes = "/proc";
        /// The system's shell; a link is followed, and what it leads to counts as a shell too.
        std::string shell = "/bin/sh";
    };

    static constexpr std::size_t mostChildren = 256;

    explicit LinuxProcesses(const Places& places);

    LinuxProcesses() : LinuxProcesses(Places()) {}

    bool isAlive(std::int32_t pid) const override;
    /// In ascending order.
    std::vector<std::int32_t> children(std::int32_t pid) const override;
    /// Right to a clock tick, a hundredth of a second; never after the process really started.
    std::optional<Date> started(std::int32_t pid) const override;
    std::string arguments(std::int32_t pid) const override;
    /// Without the mark of a file that has been removed or replaced since.
    std::optional<std::string> executable(std::int32_t pid) const override;
    /// True if the executable's path ends in "/zsh", "/bash" or "/sh", or is the system's shell.
    bool isShell(std::int32_t pid) const override;

private:
    std::string folderOf(std::int32_t pid) const;
    std::optional<ProcessStat> stat(std::int32_t pid) const;
    std::optional<std::vector<std::int32_t>> listedChildren(std::int32_t pid) const;
    std::vector<std::int32_t> foundChildren(std::int32_t pid) const;

    std::string processes_;
    std::string shell_;
};

} // namespace mimkins
