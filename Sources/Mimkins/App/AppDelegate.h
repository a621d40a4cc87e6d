#pragma once

#include "App/ClientConnection.h"
#include "App/DrawerWindows.h"
#include "App/NextUpControl.h"
#include "App/StatusPicture.h"
#include "Base/Paths.h"
#include "HUD/HUD.h"
#include "PanelView/PanelView.h"
#include "Platform/Linux/InotifyFolderWatcher.h"
#include "Platform/Linux/JsonPreferencesStore.h"
#include "Platform/Linux/LinuxFileSystem.h"
#include "Platform/Linux/LinuxGitRunner.h"
#include "Platform/Linux/LinuxProcesses.h"
#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "Platform/Linux/PulseSoundPlayer.h"
#include "Platform/Linux/ThreadQueue.h"
#include "Platform/Qt/QtLinkOpener.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Qt/TrayItem.h"
#include "Platform/WindowSystem.h"
#include "Presentation/DrawerState.h"
#include "SessionStore/SessionStore.h"
#include "Settings/AppSettings.h"
#include "Settings/HotKeyRegistration.h"
#include "SettingsView/SettingsWindow.h"

#include <memory>
#include <optional>

namespace mimkins {

/// Owns everything that lives as long as the process, and brings it up in order.
class AppDelegate {
public:
    explicit AppDelegate(Paths paths);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    enum class Launch {
        normal,
        /// Loads the sources and goes no further: no window, no status item.
        withoutWindows,
    };

    void launch(Launch launch);

    QtRunLoop& loop() { return loop_; }

    SessionStore* store() { return store_.get(); }

    DrawerWindows* windows() { return windows_.get(); }

    PanelView* panel() { return panel_; }

    DrawerState& drawer() { return drawer_; }

    Connection& connection() { return client_.connection(); }

    /// Takes a message from a second start.
    void receive(const std::string& message);

private:
    void makeWindows();
    void makeSettings();
    void openSettings();
    SettingsParts settingsParts();
    void followShortcut();
    void makeStatusItem();
    void makeNextUp();
    void greet();
    void end();
    void followSettings();
    void showCounts();
    void fillStatusMenu(QMenu& menu);

    Paths paths_;
    QtRunLoop loop_;
    LinuxFileSystem files_;
    LinuxProcesses processes_;
    LinuxGitRunner git_;
    LinuxRandomAccessFiles transcripts_;
    InotifyFolderWatcher watcher_;
    JsonPreferencesStore preferences_;
    PulseSoundPlayer sounds_;
    AppSettings settings_;
    QtLinkOpener links_;
    ClientConnection client_;
    DrawerState drawer_;
    std::unique_ptr<SessionStore> store_;
    // After the store, so that its threads end before what their results go to.
    ConcurrentQueue repositoryQueue_{"repositories"};
    SerialQueue scanHelper_{"scan helper"}; // before the queue whose work it shares
    SerialQueue scanQueue_{"app.mimkins.background"};
    std::unique_ptr<WindowSystem> windowSystem_;
    PanelView* panel_ = nullptr;             // belongs to the windows
    SettingsView* settingsScreen_ = nullptr; // belongs to the panel; null until it is first shown
    std::unique_ptr<DrawerWindows> windows_;
    std::unique_ptr<SettingsWindow> settingsWindow_;
    std::unique_ptr<HUD> hud_;
    std::unique_ptr<NextUpControl> nextUp_;
    std::unique_ptr<HotKeys> hotKeys_;
    std::unique_ptr<HotKeyRegistration> hotKey_;
    QMenu tabMenu_;
    std::unique_ptr<TrayItem> statusItem_;
    std::optional<std::string> statusTitle_;
    StatusPictures statusPictures_;
    Handle pendingPlace_;
    Handle pendingSettings_;
};

} // namespace mimkins
