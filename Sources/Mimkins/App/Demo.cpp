#include "App/Demo.h"

#include "Base/Error.h"
#include "Base/Paths.h"
#include "HookInstaller/HookInstaller.h"
#include "Platform/Linux/LinuxResources.h"
#include "Platform/Linux/LinuxSettingsFiles.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <filesystem>

namespace mimkins {

namespace {

constexpr int noPlayerCode = 41;

/// The command beside this program: in one folder when installed, in neighbouring ones when built.
QString playerPath() {
    const QString folder = QCoreApplication::applicationDirPath();
    for (const char* place : {"/mimkin", "/../mimkin/mimkin"}) {
        const QFileInfo file(folder + place);
        if (file.isFile() && file.isExecutable()) {
            return file.canonicalFilePath();
        }
    }
    throw Error(
        Error::ownDomain, noPlayerCode, "the command mimkin, which plays the demo, isn't beside this program"
    );
}

/// Connects the home, so that its drawer has no need to greet anybody.
void connectHome(const std::string& home) {
    const Paths paths(home);
    std::filesystem::create_directories(paths.clientFolder());
    LinuxSettingsFiles files;
    HookInstaller(paths, bundledHookScript(), files).connect();
}

} // namespace

Demo::Demo(const Options& options)
    : options_(options), home_(options.home ? DemoHome(*options.home) : DemoHome::temporary()) {}

Demo::~Demo() {
    end();
}

void Demo::start() {
    connectHome(home());
    QStringList words{"demo", "--home", QString::fromStdString(home())};
    if (!options_.home) {
        words << "--remove-home";
    }
    if (options_.demoSessions) {
        words << "--sessions" << QString::number(*options_.demoSessions);
    }
    if (options_.demoSpeed) {
        words << "--speed" << QString::number(*options_.demoSpeed);
    }
    const pid_t parent = ::getpid();
    // Even when this process is killed, the player hears of it and cleans up.
    player_.setChildProcessModifier([parent] {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() != parent) {
            ::_exit(1);
        }
    });
    player_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    player_.setStandardOutputFile(QProcess::nullDevice());
    player_.start(playerPath(), words);
    if (!player_.waitForStarted()) {
        throw Error(Error::ownDomain, noPlayerCode, player_.errorString().toStdString());
    }
}

void Demo::end() {
    if (player_.state() != QProcess::NotRunning) {
        player_.terminate();
        player_.waitForFinished(-1);
    }
    if (!options_.home) {
        home_.remove(); // The player has done so, unless it failed.
    }
}

} // namespace mimkins
