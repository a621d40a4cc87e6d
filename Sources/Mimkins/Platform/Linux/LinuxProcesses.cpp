#include "Platform/Linux/LinuxProcesses.h"

#include "Base/Text.h"
#include "Platform/Linux/BootTime.h"
#include "Platform/Linux/FileDescriptor.h"

#include <dirent.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <system_error>

namespace mimkins {

namespace {

constexpr std::size_t statLimit = 4'096;
constexpr std::size_t argumentsLimit = std::size_t{4} * 1'024 * 1'024;

/// What the kernel says in one of its files, at most `limit` bytes. Nothing if the file is missing, or its
/// process ended while it was read.
std::optional<std::string> readKernelFile(const std::string& path, std::size_t limit) {
    struct stat facts {};

    const auto file = openRegular(path, facts);
    if (!file) {
        return std::nullopt;
    }
    std::string bytes;
    std::array<char, 16'384> buffer{};
    while (bytes.size() < limit) {
        const auto count = ::read(file.get(), buffer.data(), std::min(buffer.size(), limit - bytes.size()));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return bytes;
}

/// A process id as it stands in a file or as a folder's name; nothing if the text is none.
std::optional<std::int32_t> parsePid(std::string_view text) {
    std::int32_t pid = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), pid);
    if (error != std::errc() || end != text.data() + text.size() || pid < 1) {
        return std::nullopt;
    }
    return pid;
}

/// The numbers among a folder's names; nothing if it can't be listed.
std::optional<std::vector<std::int32_t>> numberedEntries(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), &::closedir);
    if (!open) {
        return std::nullopt;
    }
    std::vector<std::int32_t> numbers;
    while (const dirent* entry = ::readdir(open.get())) {
        if (const auto number = parsePid(entry->d_name)) {
            numbers.push_back(*number);
        }
    }
    return numbers;
}

void sortAndCut(std::vector<std::int32_t>& pids) {
    std::sort(pids.begin(), pids.end());
    pids.resize(std::min(pids.size(), LinuxProcesses::mostChildren));
}

} // namespace

LinuxProcesses::LinuxProcesses(const Places& places) : processes_(places.processes) {
    std::error_code error;
    shell_ = std::filesystem::canonical(places.shell, error).string();
}

std::string LinuxProcesses::folderOf(std::int32_t pid) const {
    return processes_ + "/" + std::to_string(pid);
}

std::optional<ProcessStat> LinuxProcesses::stat(std::int32_t pid) const {
    if (pid < 1) {
        return std::nullopt;
    }
    const auto line = readKernelFile(folderOf(pid) + "/stat", statLimit);
    const auto stat = line ? parseProcessStat(*line) : std::nullopt;
    return stat && stat->pid == pid ? stat : std::nullopt;
}

bool LinuxProcesses::isAlive(std::int32_t pid) const {
    return ::kill(pid, 0) == 0 || errno == EPERM;
}

std::optional<std::vector<std::int32_t>> LinuxProcesses::listedChildren(std::int32_t pid) const {
    const auto threads = numberedEntries(folderOf(pid) + "/task");
    if (!threads || threads->empty()) {
        return std::nullopt;
    }
    bool answered = false;
    std::vector<std::int32_t> pids;
    for (const auto thread : *threads) {
        const auto list =
            readKernelFile(folderOf(pid) + "/task/" + std::to_string(thread) + "/children", argumentsLimit);
        if (!list) {
            continue;
        }
        answered = true;
        for (const auto word : text::splitDroppingEmpty(*list, ' ')) {
            if (const auto child = parsePid(word)) {
                pids.push_back(*child);
            }
        }
    }
    return answered ? std::optional(pids) : std::nullopt;
}

std::vector<std::int32_t> LinuxProcesses::foundChildren(std::int32_t pid) const {
    std::vector<std::int32_t> pids;
    for (const auto candidate : numberedEntries(processes_).value_or(std::vector<std::int32_t>())) {
        const auto facts = stat(candidate);
        if (facts && facts->parent == pid) {
            pids.push_back(candidate);
        }
    }
    return pids;
}

std::vector<std::int32_t> LinuxProcesses::children(std::int32_t pid) const {
    if (pid < 1) {
        return {};
    }
    // Not every kernel is built with the files that list children.
    auto pids = listedChildren(pid);
    if (!pids) {
        pids = foundChildren(pid);
    }
    sortAndCut(*pids);
    return *pids;
}

std::optional<Date> LinuxProcesses::started(std::int32_t pid) const {
    const auto facts = stat(pid);
    const auto boot = bootTime();
    const auto ticksPerSecond = ::sysconf(_SC_CLK_TCK);
    if (!facts || facts->hasEnded() || !boot || ticksPerSecond < 1) {
        return std::nullopt;
    }
    return *boot + static_cast<double>(facts->startTicks) / static_cast<double>(ticksPerSecond);
}

std::string LinuxProcesses::arguments(std::int32_t pid) const {
    return pid < 1 ? "" : readKernelFile(folderOf(pid) + "/cmdline", argumentsLimit).value_or("");
}

std::optional<std::string> LinuxProcesses::executable(std::int32_t pid) const {
    if (pid < 1) {
        return std::nullopt;
    }
    std::error_code error;
    auto path = std::filesystem::read_symlink(folderOf(pid) + "/exe", error).string();
    if (error || path.empty()) {
        return std::nullopt;
    }
    constexpr std::string_view mark = " (deleted)";
    // A file may really be called so.
    if (path.ends_with(mark) && !std::filesystem::exists(path, error)) {
        path.resize(path.size() - mark.size());
    }
    return path;
}

bool LinuxProcesses::isShell(std::int32_t pid) const {
    const auto path = executable(pid);
    return path && (path->ends_with("/zsh") || path->ends_with("/bash") || path->ends_with("/sh") ||
                    (!shell_.empty() && *path == shell_));
}

} // namespace mimkins
