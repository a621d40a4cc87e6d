#pragma once

#include "Base/Paths.h"
#include "Platform/FolderWatcher.h"
#include "Platform/Linux/LinuxFileSystem.h"
#include "Platform/Linux/LinuxGitRunner.h"
#include "Platform/Linux/LinuxProcesses.h"
#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "Platform/RunLoop.h"
#include "SessionStore/SessionStore.h"

#include <functional>
#include <utility>

namespace mimkins {

/// A loop that stands at one moment: posted work runs at once, and timers never fall due.
class StandingLoop final : public RunLoop {
public:
    explicit StandingLoop(Date now) : now_(now) {}

    Date now() const override { return now_; }

    void post(std::function<void()> work) override { work(); }

    Handle after(double, std::function<void()>) override {
        return Handle([] {});
    }

    Handle every(double, std::function<void()>) override {
        return Handle([] {});
    }

private:
    Date now_;
};

/// A watcher for those who look only once.
class NoWatcher final : public FolderWatcher {
public:
    Handle watch(const std::string&, std::function<void()>) override { return {}; }

    Handle watchFile(const std::string&, std::function<void()>) override { return {}; }
};

/// Does all work at once.
class ImmediateQueue final : public WorkQueue {
public:
    void async(std::function<void()> work) override { work(); }
};

/// One load of all sources as of a moment, each refreshed until nothing changes.
class OneLoad {
public:
    OneLoad(const Paths& paths, const SessionRules& rules, Date at);

    SessionStore& store() { return store_; }

    const SessionStore& store() const { return store_; }

    RunLoop& loop() { return loop_; }

private:
    StandingLoop loop_;
    LinuxFileSystem files_;
    NoWatcher watcher_;
    LinuxProcesses processes_;
    LinuxGitRunner git_;
    LinuxRandomAccessFiles transcripts_;
    ImmediateQueue queue_;
    SessionStore store_;
};

} // namespace mimkins
