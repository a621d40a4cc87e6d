#include "HookInstaller/HookGuard.h"

#include <exception>
#include <utility>

namespace mimkins {

namespace {

/// Many events of one change lead to one check, seconds after the first.
constexpr double debounce = 0.3;

std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

} // namespace

void HookGuard::start() {
    sources_.clear();
    const std::string script = parts_.paths.hookScript();
    const auto keep = [this](Handle source) {
        if (source) {
            sources_.push_back(std::move(source));
        }
    };
    // The folder too: a script that was replaced is another file, of which its own watch tells nothing.
    keep(parts_.watcher.watch(folderOf(script), [this] { changed(); }));
    keep(parts_.watcher.watchFile(script, [this] { changed(); }));
}

void HookGuard::changed() {
    if (pending_) {
        return;
    }
    pending_ = true;
    timer_ = parts_.loop.after(debounce, [this] { check(); });
}

void HookGuard::check() {
    pending_ = false;
    repair();
    // What was written just now happened before these watches began.
    start();
}

void HookGuard::repair() {
    using Status = HookInstaller::Status;
    const Status status = parts_.installer.status();
    if (status == Status::notConnected || status == Status::noClaudeCode ||
        parts_.installer.scriptIsCurrent()) {
        return;
    }
    try {
        parts_.installer.installScript();
    } catch (const std::exception&) {
        // The script that is there goes on working, and the next event tries again.
        return;
    }
}

} // namespace mimkins
