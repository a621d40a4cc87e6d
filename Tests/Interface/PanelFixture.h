#pragma once

#include "PanelView/PanelView.h"
#include "SessionStore/SessionStore.h"

#include "Support/FakeProcesses.h"
#include "Support/ManualFolderWatcher.h"
#include "Support/ManualRunLoop.h"
#include "Support/MemoryFileSystem.h"

#include <gmock/gmock.h>

#include <memory>

namespace mimkins::test {

class RecordingLinks final : public LinkOpener {
public:
    void openLink(const std::string& link) override { opened.push_back(link); }

    void showFile(const std::string& link) override { opened.push_back(link); }

    void showFolder(const std::string& folder) override { opened.push_back("folder " + folder); }

    std::vector<std::string> opened;
};

class NoGit final : public GitRunner {
public:
    std::optional<std::string>
    run(const std::vector<std::string>&, const std::string&, GitFailure) const override {
        return std::nullopt;
    }
};

class NoTranscripts final : public RandomAccessFiles {
public:
    std::optional<FileIdentity> look(const std::string&) const override { return std::nullopt; }

    std::unique_ptr<RandomAccessFile> open(const std::string&) const override { return nullptr; }
};

/// A panel over a real store whose files are in memory.
class PanelFixture : public testing::Test {
protected:
    /// Writes a status file as an agent does. The folder's event has yet to come.
    void report(const std::string& id, const std::string& state, const std::string& more = "") {
        const auto now = std::to_string(static_cast<std::int64_t>(loop.now().milliseconds()));
        files.write(
            paths.sessions() + "/" + id + ".json", R"({"id":")" + id + R"(","state":")" + state +
                                                       R"(","event":"PreToolUse","project":"shop","since":)" +
                                                       now + R"(,"ts":)" + now + more + "}"
        );
    }

    void start() {
        store = std::make_unique<SessionStore>(
            paths, SessionStoreServices{loop, files, watcher, processes, git, transcripts, queue, queue}
        );
        panel = std::make_unique<PanelView>(PanelView::Parts{*store, drawer, loop, links}, settings);
        panel->resize(320, 700);
        panel->show();
    }

    std::vector<std::string> order() const {
        std::vector<std::string> ids;
        for (const auto* card : panel->list().cards()) {
            ids.push_back(card->row().id);
        }
        return ids;
    }

    Paths paths{"/home/somebody"};
    ManualRunLoop loop;
    MemoryFileSystem files;
    ManualFolderWatcher watcher;
    FakeProcesses processes;
    NoGit git;
    NoTranscripts transcripts;
    ManualWorkQueue queue;
    DrawerState drawer;
    RecordingLinks links;
    PanelSettings settings;
    std::unique_ptr<SessionStore> store;
    std::unique_ptr<PanelView> panel;
};

} // namespace mimkins::test
