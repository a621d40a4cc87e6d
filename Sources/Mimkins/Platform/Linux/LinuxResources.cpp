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

} // namespace

std::optional<std::string> resourceFolder(const std::string& programFolder) {
    const path installed = (path(programFolder) / "../share/mimkins").lexically_normal();
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
    std::error_code error;
    const path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::nullopt : resourceFolder(program.parent_path().string());
}

std::optional<std::string> bundledHookScript() {
    const auto folder = resourceFolder();
    return folder ? std::optional(*folder + "/hook/status.sh") : std::nullopt;
}

} // namespace mimkins
