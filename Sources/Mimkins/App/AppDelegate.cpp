#include "App/AppDelegate.h"

#include "App/ConnectionPartOf.h"
#include "App/PanelSettingsOf.h"
#include "Drawing/Qt/Conversions.h"
#include "Platform/Qt/DesktopHotKeys.h"
#include "Platform/Qt/XcbWindowSystem.h"
#include "Presentation/SetupWords.h"
#include "Presentation/StatusItem.h"
#include "Presentation/Summary.h"
#include "Setup/SetupView.h"

#include <QApplication>

#include <thread>
#include <utility>

namespace mimkins {

namespace {

constexpr const char* preferencesDomain = "app.mimkins";
/// A slider that is dragged moves the windows once it pauses.
constexpr double placeDelay = 0.06;
constexpr double settingsDelay = 0.05;

} // namespace

AppDelegate::AppDelegate(Paths paths)
    : paths_(std::move(paths)), watcher_(loop_), preferences_(paths_.preferencesFolder(), preferencesDomain),
      settings_({preferences_, loop_, sounds_}), client_({
                                                     paths_,
                                                     preferences_,
                                                     watcher_,
                                                     loop_,
                                                     links_,
                                                     QCoreApplication::applicationFilePath().toStdString(),
                                                     [this] { end(); },
                                                 }) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::launch(Launch launch) {
    const bool hasSeveralProcessors = std::thread::hardware_concurrency() > 1;
    store_ = std::make_unique<SessionStore>(
        paths_,
        SessionStoreServices{
            loop_, files_, watcher_, processes_, git_, transcripts_, repositoryQueue_, scanQueue_,
            hasSeveralProcessors ? &scanHelper_ : nullptr}
    );
    store_->setRules(settings_.rules());
    if (launch == Launch::withoutWindows) {
        client_.login().set(false);
        return;
    }
    makeWindows();
    makeSettings();
    makeStatusItem();
    client_.login().enableOnFirstRun(preferences_);
    makeNextUp();
    followSettings();
    client_.start();
    greet();
}

/// Opens the set-up screen for those who have yet to connect, or to do so again.
void AppDelegate::greet() {
    if (!needsSetup(client_.connection().status())) {
        return;
    }
    drawer_.setMode(DrawerMode::setup);
    if (!drawer_.isOpen()) {
        windows_->toggle();
    }
}

/// Quits once the file manager knows what to show. Until then there is nothing left that anyone could press,
/// since a press might store a preference again.
void AppDelegate::end() {
    hotKey_->use(Hotkey::off);
    statusItem_->hide();
    for (auto* window : QApplication::topLevelWidgets()) {
        window->hide();
    }
    links_.whenAnswered([] { QApplication::quit(); });
}

void AppDelegate::makeWindows() {
    windowSystem_ = XcbWindowSystem::make({loop_, loop_});
    const PanelSettings settings = panelSettingsOf(settings_, loop_.now());
    panel_ = new PanelView({*store_, drawer_, loop_, links_}, settings);
    panel_->addScreen(DrawerMode::setup, [this](const CardLook& look) {
        return new SetupView(
            {client_.connection(), loop_, [this] { drawer_.setMode(DrawerMode::pets); }}, look
        );
    });
    windows_ = std::make_unique<DrawerWindows>(
        DrawerWindows::Parts{*windowSystem_, drawer_, preferences_, loop_, panel_}, settings
    );
    panel_->onClose = [this] {
        if (drawer_.isOpen()) {
            windows_->toggle();
        }
    };
    windows_->tab().onMenu = [this](QPoint place) {
        tabMenu_.clear();
        fillStatusMenu(tabMenu_);
        tabMenu_.popup(place);
    };
}

SettingsParts AppDelegate::settingsParts() {
    return {
        settings_, client_.login(), [] { QApplication::quit(); },
        connectionPartOf(client_.connection(), paths_.home())};
}

void AppDelegate::makeSettings() {
    panel_->addScreen(DrawerMode::settings, [this](const CardLook& look) {
        settingsScreen_ = new SettingsView(settingsParts(), look);
        settingsScreen_->content().onWriting = [this](bool writing) { windows_->setWriting(writing); };
        return settingsScreen_;
    });
    drawer_.changed().connect([this] {
        if (drawer_.mode() != DrawerMode::settings) {
            windows_->setWriting(false); // whatever in the settings has the focus
        }
    });
}

void AppDelegate::openSettings() {
    if (settingsWindow_ == nullptr) {
        settingsWindow_ = std::make_unique<SettingsWindow>(settingsParts());
    }
    settingsWindow_->bringForward();
}

void AppDelegate::followShortcut() {
    if (settingsScreen_ != nullptr) {
        settingsScreen_->content().followShortcut();
    }
    if (settingsWindow_ != nullptr) {
        settingsWindow_->content().followShortcut();
    }
}

void AppDelegate::makeStatusItem() {
    statusItem_ = std::make_unique<TrayItem>();
    statusItem_->onClick = [this] { windows_->toggle(); };
    statusItem_->onMenu = [this](QMenu& menu) { fillStatusMenu(menu); };
    store_->sessionsChanged().connect([this] { showCounts(); });
    drawer_.changed().connect([this] { showCounts(); });
    showCounts();
    statusItem_->show();
}

void AppDelegate::makeNextUp() {
    hud_ = std::make_unique<HUD>(HUD::Parts{loop_, *windowSystem_});
    nextUp_ = std::make_unique<NextUpControl>(NextUpControl::Parts{
        *store_, drawer_, loop_, links_, [this] { windows_->bringForward(); },
        [this](const Notice& notice) { hud_->show(notice, PetTheme::named(settings_.themeId())); }});
    hotKeys_ = makeHotKeys({loop_, loop_});
    hotKey_ = std::make_unique<HotKeyRegistration>(
        HotKeyRegistration::Parts{*hotKeys_, preferences_, loop_}, [this] { nextUp_->nextUp(); }
    );
    hotKey_->onConcluded = [this] { followShortcut(); };
    hotKey_->use(settings_.hotkey());
    settings_.hotkey.changed().connect([this](const Hotkey& hotkey) { hotKey_->use(hotkey); });
}

void AppDelegate::showCounts() {
    const auto& sessions = store_->sessions();
    windows_->tab().setContent({edgeTabBadge(sessions), drawer_.isOpen(), settings_.wiggleTab()});
    statusItem_->setToolTip(qt::text(status_item::toolTip(sessions)));
    auto title = status_item::title(attentionCount(sessions), settings_.menuBarCount());
    if (statusTitle_ != title) {
        statusTitle_ = std::move(title);
        statusItem_->setPicture(statusPictures_.of(*statusTitle_));
    }
}

void AppDelegate::fillStatusMenu(QMenu& menu) {
    status_item::MenuState state;
    state.drawerIsOpen = drawer_.isOpen();
    state.opensAtLogin = client_.login().isOn();
    state.shortcut = label(settings_.hotkey());
    fillMenu(
        menu, status_item::menu(state),
        {
            {status_item::Action::toggleWindow, [this] { windows_->toggle(); }},
            {status_item::Action::nextUp, [this] { nextUp_->nextUp(); }},
            {status_item::Action::openWrapUp, [this] { nextUp_->openWrapUp(); }},
            {status_item::Action::toggleLoginItem, [this] { client_.login().set(!client_.login().isOn()); }},
            {status_item::Action::quit, [] { QApplication::quit(); }},
        }
    );
}

void AppDelegate::followSettings() {
    const auto placeSoon = [this] {
        pendingPlace_ = loop_.after(placeDelay, [this] { windows_->place(DrawerWindows::Motion::jump); });
    };
    settings_.drawerWidth.changed().connect([placeSoon](const DrawerWidth&) { placeSoon(); });
    settings_.tabHeight.changed().connect([placeSoon](const double&) { placeSoon(); });
    settings_.changed().connect([this](std::string_view) {
        const PanelSettings settings = panelSettingsOf(settings_, loop_.now());
        panel_->setSettings(settings);
        windows_->setSettings(settings);
        showCounts();
        pendingSettings_ = loop_.after(settingsDelay, [this] { store_->setRules(settings_.rules()); });
    });
    store_->onNeedsKeeper = [this](const Session&) {
        if (settings_.chirp()) {
            settings_.playChirp();
        }
    };
}

void AppDelegate::receive(const std::string& message) {
    if (windows_ == nullptr) {
        return;
    }
    if (message == "keyboard") {
        windows_->takeKeyboard();
    } else if (message == "settings") {
        openSettings();
    } else {
        windows_->bringForward();
    }
}

} // namespace mimkins
