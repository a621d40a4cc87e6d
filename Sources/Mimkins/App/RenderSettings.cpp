#include "App/RenderSettings.h"

#include "App/ClientConnection.h"
#include "App/ConnectionPartOf.h"
#include "App/PanelSettingsOf.h"
#include "App/Render.h"
#include "App/RenderScene.h"
#include "App/SilentServices.h"
#include "Platform/Linux/JsonPreferencesStore.h"
#include "Platform/Linux/OneLoad.h"
#include "SettingsView/SettingsView.h"

#include <QScrollBar>

#include <map>

namespace mimkins {

namespace {

/// Preferences that are read from a home and never written to it.
class UnwrittenPreferences final : public PreferencesStore {
public:
    explicit UnwrittenPreferences(const Paths& paths) : stored_(paths.preferencesFolder(), "app.mimkins") {}

    std::optional<Value> value(const std::string& key) const override {
        const auto set = set_.find(key);
        return set != set_.end() ? std::optional(set->second) : stored_.value(key);
    }

    void set(const std::string& key, const Value& value) override { set_[key] = value; }

    void remove(const std::string& key) override { set_.erase(key); }

    void removeAll() override { set_.clear(); }

private:
    JsonPreferencesStore stored_;
    std::map<std::string, Value> set_;
};

/// Height of the drawer in which all of a screen shows, and no less than was asked for.
int heightFor(PanelView& panel, const QScrollArea& screen, QSize least) {
    panel.resize(least);
    panel.grab(); // lays out all that is in it
    return least.height() + screen.verticalScrollBar()->maximum();
}

} // namespace

int renderSettings(const Options& options, const Paths& paths) {
    const Date at = renderedMoment(options);
    StandingLoop standing(at);
    NoLinks links;
    NoSounds sounds;
    UnwrittenPreferences preferences(paths);
    AppSettings settings({preferences, standing, sounds});
    if (options.theme) {
        settings.themeId.set(*options.theme);
    }
    if (options.width) {
        settings.drawerWidth.set(*options.width);
    }
    NoWatcher watcher;
    ClientConnection client({paths, preferences, watcher, standing, links, "", [] {}});
    OneLoad load(paths, settings.rules(), at);
    DrawerState state;
    const PanelSettings shown = panelSettingsOf(settings, at);
    auto* panel = new PanelView({load.store(), state, load.loop(), links}, shown);
    SettingsView* screen = nullptr;
    panel->addScreen(DrawerMode::settings, [&](const CardLook& look) {
        const auto connection = connectionPartOf(client.connection(), paths.home());
        screen = new SettingsView({settings, client.login(), {}, connection}, look);
        return screen;
    });
    state.setMode(DrawerMode::settings);
    Options whole = options;
    const int width = static_cast<int>(shown.panelWidth);
    whole.height = heightFor(*panel, *screen, {width, options.height});
    return writeDrawer({panel, shown, load.store(), load.loop()}, whole);
}

} // namespace mimkins
