// hook_driver HOME SCRIPT connect|disconnect|uninstall
//
// Runs one operation of the installer on a throw-away home. Prints how many calls into the C library the
// faults counted, then the message. Exit code 0 on success, 1 on failure.
//
// Without words it reads lines of such words and settings of the environment (NAME=VALUE), separated by tabs.
// For each it runs the operation in a process of its own and prints, after what that prints, its exit code,
// or 128 plus the number of the signal that ended it.

#include "HookInstaller/Connection.h"
#include "Platform/FolderWatcher.h"
#include "Platform/Linux/AutostartService.h"
#include "Platform/Linux/JsonPreferencesStore.h"
#include "Platform/Linux/LinuxSettingsFiles.h"
#include "Platform/RunLoop.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

extern "C" {
// From Faults.cpp when it is preloaded.
__attribute__((weak)) void beginFaults();
__attribute__((weak)) int endFaults();
}

namespace {

class NoWatcher final : public mimkins::FolderWatcher {
public:
    mimkins::Handle watch(const std::string&, std::function<void()>) override { return {}; }

    mimkins::Handle watchFile(const std::string&, std::function<void()>) override { return {}; }
};

class NoLoop final : public mimkins::RunLoop {
public:
    mimkins::Date now() const override { return {}; }

    void post(std::function<void()>) override {}

    mimkins::Handle after(double, std::function<void()>) override { return {}; }

    mimkins::Handle every(double, std::function<void()>) override { return {}; }
};

class NoLinks final : public mimkins::LinkOpener {
public:
    void openLink(const std::string&) override {}

    void showFile(const std::string&) override {}

    void showFolder(const std::string&) override {}
};

mimkins::ConnectionOutcome uninstall(const mimkins::Paths& paths, mimkins::HookInstaller& installer) {
    NoWatcher watcher;
    NoLoop loop;
    NoLinks links;
    mimkins::HookGuard guard({paths, installer, watcher, loop});
    mimkins::AutostartService service(paths, "/opt/mimkins");
    mimkins::LoginItem login(service);
    mimkins::JsonPreferencesStore preferences(paths.preferencesFolder(), "app.mimkins");
    mimkins::ConnectionOutcome outcome;
    outcome.failed = true;
    mimkins::Connection connection({
        paths,
        installer,
        guard,
        login,
        preferences,
        links,
        "/opt/mimkins",
        [](const std::string& folder) {
            std::error_code ignored;
            std::filesystem::remove_all(folder, ignored);
        },
        [&outcome] { outcome.failed = false; },
    });
    connection.uninstall();
    outcome.message = connection.lastMessage().value_or("Uninstalled.");
    outcome.status = connection.status();
    return outcome;
}

mimkins::ConnectionOutcome
perform(const std::string& operation, const mimkins::Paths& paths, mimkins::HookInstaller& installer) {
    if (operation == "uninstall") {
        return uninstall(paths, installer);
    }
    return operation == "connect" ? mimkins::connectAndReport(installer)
                                  : mimkins::disconnectAndReport(installer);
}

int runOperation(const std::string& home, const std::string& script, const std::string& operation) {
    mimkins::LinuxSettingsFiles files;
    const mimkins::Paths paths(home);
    mimkins::HookInstaller installer{paths, script, files};
    // A tracer sees by this call where the operation begins.
    [[maybe_unused]] const int marker = ::access("/operation-begins", F_OK);
    if (beginFaults != nullptr) {
        beginFaults();
    }
    const auto outcome = perform(operation, paths, installer);
    const int calls = endFaults != nullptr ? endFaults() : 0;
    std::printf("%d %s\n", calls, outcome.message.c_str());
    std::fflush(stdout);
    return outcome.failed ? 1 : 0;
}

int runInChild(std::vector<std::string> words) {
    const pid_t child = ::fork();
    if (child == 0) {
        for (std::size_t index = 3; index < words.size(); ++index) {
            ::putenv(words[index].data());
        }
        ::_exit(runOperation(words[0], words[1], words[2]));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    constexpr int signalBase = 128;
    return WIFEXITED(status) ? WEXITSTATUS(status) : signalBase + WTERMSIG(status);
}

} // namespace

int main(int count, char** words) {
    if (count == 4) {
        return runOperation(words[1], words[2], words[3]);
    }
    for (std::string line; std::getline(std::cin, line);) {
        std::vector<std::string> pieces;
        std::istringstream stream(line);
        for (std::string piece; std::getline(stream, piece, '\t');) {
            pieces.push_back(piece);
        }
        std::printf("%d\n", pieces.size() < 3 ? 2 : runInChild(pieces));
        std::fflush(stdout);
    }
    return 0;
}
