#pragma once

#include "HookInstaller/HookInstaller.h"
#include "HookInstaller/SettingsText.h"
#include "HookInstaller/WatchedFiles.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

namespace mimkins::test {

inline unsigned modeOf(const std::string& path) {
    struct stat facts {};

    return ::stat(path.c_str(), &facts) == 0 ? facts.st_mode & 07777U : 0U;
}

/// Another program's write: a new file renamed into place.
inline void replaceByRename(const std::string& path, std::string_view bytes) {
    writeFile(path + ".foreign", bytes);
    std::filesystem::rename(path + ".foreign", path);
}

/// The names in a folder that contain a text, in ascending order.
inline std::vector<std::string> namesWith(const std::string& folder, std::string_view part) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename().string().find(part) != std::string::npos) {
            names.push_back(entry.path().filename());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// A throw-away home with the client's folder, and an installer on it.
class InstallerTest : public ::testing::Test {
protected:
    InstallerTest() {
        std::filesystem::create_directories(paths.clientFolder());
        writeFile(bundled, "#!/bin/sh\n# the script\n");
    }

    void write(std::string_view bytes) const { writeFile(settings, bytes); }

    std::string read() const { return readWhole(settings); }

    std::vector<std::string> backups() const { return namesWith(paths.clientFolder(), "bak-mimkins"); }

    std::vector<std::string> temporaries() const { return namesWith(paths.clientFolder(), ".tmp"); }

    /// The settings with one entry under one event, as another spelling of the command.
    static std::string withCommand(const std::string& command, const std::string& event = "Stop") {
        SettingsObject entry{{"type", {"command"}}, {"command", {command}}};
        SettingsObject group{{"hooks", {SettingsArray{{entry}}}}};
        SettingsObject hooks{{event, {SettingsArray{{group}}}}};
        return serialiseSettings({{"hooks", {hooks}}});
    }

    TemporaryFolder folder;
    Paths paths{folder.path()};
    std::string settings = paths.clientSettings();
    std::string bundled = folder / "bundle/hook/status.sh";
    WatchedFiles files;
    HookInstaller installer{paths, bundled, files};
};

} // namespace mimkins::test
