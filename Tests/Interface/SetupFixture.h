#pragma once

#include "App/ClientConnection.h"
#include "Interface/PanelFixture.h"
#include "Platform/Linux/LinuxResources.h"

#include "Support/ManualFolderWatcher.h"
#include "Support/ManualRunLoop.h"
#include "Support/MemoryPreferencesStore.h"
#include "Support/TemporaryFolder.h"

#include <QTest>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace mimkins::test {

/// A throw-away home with the real connection on it: real files, the real installer, the real login item.
class SetupFixture : public testing::Test {
protected:
    enum class Client { here, missing };

    void start(Client client = Client::here) {
        if (client == Client::here) {
            std::filesystem::create_directories(paths.clientFolder());
        }
        parts = std::make_unique<ClientConnection>(ClientConnection::Parts{
            paths, preferences, watcher, loop, links, "/opt/mimkins/bin/mimkins", [this] { ++quits; }});
    }

    Connection& connection() { return parts->connection(); }

    void writeSettings(std::string_view text) const { writeFile(paths.clientSettings(), text); }

    /// An entry of ours as an earlier version wrote it.
    void connectAsOnceUponATime() const {
        writeSettings(
            R"({"hooks":{"Stop":[{"hooks":[{"type":"command","command":")" + paths.formerHookScript() +
            R"("}]}]}})"
        );
    }

    CardLook look(double scale = 1) const { return {&theme, Typography(theme.font, scale), 62, {}}; }

    TemporaryFolder folder;
    Paths paths{folder.path()};
    ManualRunLoop loop;
    ManualFolderWatcher watcher;
    MemoryPreferencesStore preferences;
    RecordingLinks links;
    int quits = 0;
    PetTheme theme = PetTheme::nightSky().resolved(ColorScheme::dark);
    std::unique_ptr<ClientConnection> parts;
};

/// What a person who is shown a widget finds on it: all labels below it that can be seen, in order.
inline std::vector<std::string> wordsOn(const QWidget& widget) {
    std::vector<std::string> words;
    for (const auto* label : widget.findChildren<QLabel*>()) {
        if (label->isVisible()) {
            words.push_back(label->accessibleName().toStdString());
        }
    }
    return words;
}

} // namespace mimkins::test
