#include "App/AppDelegate.h"
#include "App/Demo.h"
#include "App/IconPicture.h"
#include "App/Options.h"
#include "App/Render.h"
#include "App/RenderCards.h"
#include "App/RenderPet.h"
#include "App/RenderSettings.h"
#include "App/RenderSetup.h"
#include "Base/Error.h"
#include "Base/Log.h"
#include "Platform/Linux/HomeFolder.h"
#include "Platform/Linux/JsonPreferencesStore.h"
#include "Platform/Linux/LogSink.h"
#include "Platform/Linux/SingleInstance.h"
#include "Settings/Migration.h"

#include <QApplication>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

namespace {

using namespace mimkins;

constexpr const char* unregisterVariable = "MIMKINS_UNREGISTER_LOGIN";

/// Panels place themselves on the screen, which Wayland allows no program; its desktops keep an X server
/// beside it.
void preferX11() {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && qEnvironmentVariableIsSet("DISPLAY")) {
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
}

bool hasDisplay() {
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

void takeOverPreferences(const Paths& paths) {
    JsonPreferencesStore own(paths.preferencesFolder(), "app.mimkins");
    Migration::fromZorbly(own, [&paths]() -> std::unique_ptr<const PreferencesStore> {
        return std::make_unique<JsonPreferencesStore>(
            paths.preferencesFolder(), std::string(Migration::formerDomain)
        );
    });
}

int runUnregistering(QApplication&, const Paths& paths) {
    AppDelegate delegate(paths);
    delegate.launch(AppDelegate::Launch::withoutWindows);
    return 0;
}

/// What a second start asks of the first.
const char* messageOf(const Options& options) {
    if (options.settings) {
        return "settings";
    }
    return options.keyboard ? "keyboard" : "open";
}

/// `demo` is null unless made-up sessions are shown.
int run(QApplication& application, const Paths& paths, const Options& options, Demo* demo) {
    SingleInstance instance(paths.support());
    if (!instance.claim()) {
        if (instance.send(messageOf(options))) {
            return 0;
        }
        if (!instance.claim()) { // else the other has ended meanwhile
            std::cerr << "mimkins: it runs already, but doesn't answer\n";
            return 1;
        }
    }
    QApplication::setDesktopFileName("app.mimkins");
    QApplication::setWindowIcon(applicationIcon());
    AppDelegate delegate(paths);
    delegate.launch(AppDelegate::Launch::normal);
    [[maybe_unused]] const Handle listening =
        instance.listen(delegate.loop(), [&delegate](const std::string& message) {
            delegate.receive(message);
        });
    if (options.settings) {
        delegate.receive(messageOf(options));
    }
    const int exitCode = application.exec();
    if (demo != nullptr) {
        demo->end();
    }
    // Nothing has to be put in order, and a look at a repository may be under way that takes seconds: nobody
    // waits for it.
    std::_Exit(exitCode);
}

int runDemo(QApplication& application, const Options& options) {
    try {
        Demo demo(options);
        demo.start();
        return run(application, Paths(demo.home()), options, &demo);
    } catch (const Error& error) {
        std::cerr << "mimkins: " << error.what() << "\n";
        return 1;
    }
}

int render(const Options& options, const Paths& paths) {
    switch (options.command) {
    case Options::Command::renderPet:
        return renderPet(options.pet);
    case Options::Command::renderSheet:
        return renderSheet(options.pet);
    case Options::Command::renderFilm:
        return renderFilm(options.pet);
    case Options::Command::renderIcon:
        return renderIcon(options.iconSide, options.output);
    case Options::Command::renderHud:
        return renderHud(options, paths);
    case Options::Command::renderSettings:
        return renderSettings(options, paths);
    case Options::Command::renderSetup:
        return renderSetup(options, paths);
    case Options::Command::renderCards:
        return renderCards(options, paths);
    case Options::Command::renderTab:
        return renderTab(options, paths);
    default:
        return renderDrawer(options, paths);
    }
}

} // namespace

int main(int count, char** words) {
    const auto [options, exitCode] = parseOptions(count, words);
    if (exitCode) {
        return *exitCode;
    }
    log::setSink(standardErrorSink());
    const bool rendering = options.command != Options::Command::run;
    const bool unregistering = std::getenv(unregisterVariable) != nullptr; // NOLINT: no other thread exists
    if (rendering) {
        prepareRendering(options);
    } else if (unregistering && !hasDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else if (!hasDisplay()) {
        std::cerr << "mimkins: there is no display to show the drawer on\n";
        return 1;
    }
    preferX11();
    QApplication application(count, words);
    QApplication::setApplicationName("mimkins");
    QApplication::setQuitOnLastWindowClosed(false);
    if (options.demo && !rendering) {
        return runDemo(application, options);
    }
    const auto home = options.home ? options.home : homeFolder();
    if (!home) {
        std::cerr << "mimkins: the password database names no home folder for this user; use --home DIR\n";
        return 1;
    }
    const Paths paths(*home);
    if (rendering) {
        setTextSize(options);
        return render(options, paths);
    }
    takeOverPreferences(paths);
    return unregistering ? runUnregistering(application, paths) : run(application, paths, options, nullptr);
}
