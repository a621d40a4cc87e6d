#include "App/RenderSetup.h"

#include "App/ClientConnection.h"
#include "App/Render.h"
#include "App/RenderScene.h"
#include "App/SilentServices.h"
#include "Platform/Linux/DemoHome.h"
#include "Platform/Linux/JsonPreferencesStore.h"
#include "Platform/Linux/LinuxResources.h"
#include "Platform/Linux/OneLoad.h"
#include "Setup/SetupView.h"

#include <filesystem>
#include <iostream>

namespace mimkins {

namespace {

/// A home that goes away with the object.
struct StagedHome {
    StagedHome() = default;
    StagedHome(const StagedHome&) = delete;
    StagedHome& operator=(const StagedHome&) = delete;

    ~StagedHome() { home.remove(); }

    DemoHome home = DemoHome::temporary();
    Paths paths{home.path()};
};

/// Brings a new home into the state whose name is given.
void stage(const Paths& paths, const std::string& status) {
    if (status == "noClaudeCode") {
        return;
    }
    std::filesystem::create_directories(paths.clientFolder());
    if (status == "notConnected") {
        return;
    }
    LinuxSettingsFiles files;
    HookInstaller(paths, bundledHookScript(), files).connect();
    if (status == "needsUpdate") {
        std::filesystem::remove(paths.hookScript());
    }
}

int draw(const Options& options, const Paths& paths) {
    const Date at = renderedMoment(options);
    const StagedHome staged;
    stage(staged.paths, options.setup.status);
    NoLinks links;
    NoWatcher watcher;
    StandingLoop loop(at);
    JsonPreferencesStore preferences(staged.paths.preferencesFolder(), "app.mimkins");
    ClientConnection client({staged.paths, preferences, watcher, loop, links, "", [] {}});
    OneLoad load(staged.paths, {}, at);
    DrawerState state;
    const PanelSettings settings = RenderScene(options, paths).settings();
    auto* panel = new PanelView({load.store(), state, loop, links}, settings);
    SetupView* setup = nullptr;
    panel->addScreen(DrawerMode::setup, [&](const CardLook& look) {
        setup = new SetupView({client.connection(), loop, nullptr}, look);
        return setup;
    });
    state.setMode(DrawerMode::setup);
    if (options.setup.press) {
        client.connection().connect();
    }
    setup->setShowDetails(options.setup.details, Unfolding::Motion::jump);
    return writeDrawer({panel, settings, load.store(), loop}, options);
}

} // namespace

int renderSetup(const Options& options, const Paths& paths) {
    try {
        return draw(options, paths);
    } catch (const std::exception& error) {
        std::cerr << "mimkins: " << error.what() << "\n";
        return 1;
    }
}

} // namespace mimkins
