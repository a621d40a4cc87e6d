#include "App/RenderSettings.h"

#include "App/PanelSettingsOf.h"
#include "App/Render.h"
#include "Platform/Linux/AutostartService.h"
#include "Platform/Linux/JsonPreferencesStore.h"
#include "Platform/Linux/OneLoad.h"
#include "SettingsView/SettingsView.h"

#include <algorithm>
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

class NoLinks final : public LinkOpener {
public:
    void openLink(const std::string&) override {}

    void showFile(const std::string&) override {}

    void showFolder(const std::string&) override {}
};

class NoSounds final : public SoundPlayer {
public:
    void play(const std::string&) override {}
};

/// Height of the drawer in which all of a screen's content shows.
int heightFor(PanelView& panel, const SettingsView& screen, int width) {
    constexpr int enough = 8000;
    panel.resize(width, enough);
    panel.grab(); // lays everything out
    return enough - screen.height() + screen.content().heightForWidth(screen.viewport()->width());
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
    AutostartService autostart(paths, {});
    LoginItem login(autostart);
    OneLoad load(paths, settings.rules(), at);
    DrawerState state;
    const PanelSettings shown = panelSettingsOf(settings, at);
    auto* panel = new PanelView({load.store(), state, load.loop(), links}, shown);
    auto* screen = new SettingsView({settings, login, {}, {}}, panel->look());
    panel->addScreen(DrawerMode::settings, screen);
    state.setMode(DrawerMode::settings);
    Options whole = options;
    const int width = static_cast<int>(shown.panelWidth);
    whole.height = std::max(options.height, heightFor(*panel, *screen, width));
    return writeDrawer({panel, shown, load.store(), load.loop()}, whole);
}

} // namespace mimkins
