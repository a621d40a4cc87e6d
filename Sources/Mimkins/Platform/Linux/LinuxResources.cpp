#include "Platform/Linux/LinuxResources.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace mimkins {

namespace {

using std::filesystem::path;

bool holdsResources(const path& folder) {
    struct stat facts {};

    const path script = folder / "hook/status.sh";
    return ::stat(script.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) &&
           (facts.st_uid == 0 || facts.st_uid == ::geteuid());
}

path installedResources(const std::string& programFolder) {
    return (path(programFolder) / "../share/mimkins").lexically_normal();
}

/// Empty if the system doesn't tell.
std::string ownFolder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

} // namespace

std::optional<std::string> resourceFolder(const std::string& programFolder) {
    const path installed = installedResources(programFolder);
    if (holdsResources(installed)) {
        return installed.string();
    }
    for (path folder = path(programFolder).lexically_normal();; folder = folder.parent_path()) {
        if (holdsResources(folder / "Resources")) {
            return (folder / "Resources").string();
        }
        if (folder == folder.parent_path() || folder.empty()) {
            return std::nullopt;
        }
    }
}

std::optional<std::string> resourceFolder() {
    const std::string own = ownFolder();
    return own.empty() ? std::nullopt : resourceFolder(own);
}

std::optional<std::string> bundledHookScript() {
    const auto folder = resourceFolder();
    return folder ? std::optional(*folder + "/hook/status.sh") : std::nullopt;
}

AgentResources agentResources(const std::string& programFolder) {
    const path folder = resourceFolder(programFolder).value_or(installedResources(programFolder).string());
    return {(folder / "AGENT-SETUP.md").string(), (folder / "bin/mimkin").string()};
}

AgentResources agentResources() {
    return agentResources(ownFolder());
}

} // namespace mimkins
