#pragma once

#include "Platform/Processes.h"

#include <functional>
#include <map>
#include <string>

namespace mimkins::test {

/// Processes that a test makes up. Counts the listings of children, so that tests can tell when the processes
/// were asked at all.
class FakeProcesses final : public Processes {
public:
    struct Process {
        std::int32_t parent = 0;
        std::optional<Date> started; ///< nothing for a process that ended during the listing
        std::string arguments;       ///< with NUL bytes between them
        std::optional<std::string> executable;
        bool shell = false;
    };

    std::map<std::int32_t, Process> processes;

    /// Called after each listing of children: the place to end a process in the middle of things.
    std::function<void(std::int32_t parent)> afterChildren;

    bool isAlive(std::int32_t pid) const override { return processes.contains(pid); }

    std::vector<std::int32_t> children(std::int32_t pid) const override {
        ++listings_;
        std::vector<std::int32_t> result;
        for (const auto& [child, process] : processes) {
            if (process.parent == pid) {
                result.push_back(child);
            }
        }
        if (afterChildren) {
            afterChildren(pid);
        }
        return result;
    }

    std::optional<Date> started(std::int32_t pid) const override {
        const auto process = processes.find(pid);
        return process == processes.end() ? std::nullopt : process->second.started;
    }

    std::string arguments(std::int32_t pid) const override {
        const auto process = processes.find(pid);
        return process == processes.end() ? std::string() : process->second.arguments;
    }

    std::optional<std::string> executable(std::int32_t pid) const override {
        const auto process = processes.find(pid);
        return process == processes.end() ? std::nullopt : process->second.executable;
    }

    bool isShell(std::int32_t pid) const override {
        const auto process = processes.find(pid);
        return process != processes.end() && process->second.shell;
    }

    int listings() const { return listings_; }

private:
    mutable int listings_ = 0;
};

} // namespace mimkins::test
