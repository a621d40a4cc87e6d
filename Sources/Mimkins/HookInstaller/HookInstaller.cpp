#include "HookInstaller/HookInstaller.h"

#include "Base/Error.h"
#include "Base/Text.h"
#include "HookInstaller/SettingsText.h"

#include <exception>
#include <utility>

namespace mimkins {

namespace {

constexpr int noBundledScript = 2;
/// Executable by all, writable by nobody.
constexpr unsigned scriptPermissions = 0555;

std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

void check(std::errc result, const std::string& path) {
    if (result != std::errc{}) {
        throw Error::posix(static_cast<int>(result), path);
    }
}

} // namespace

HookInstaller::HookInstaller(Paths paths, std::optional<std::string> bundledScript, SettingsFiles& files)
    : paths_(std::move(paths)), bundledScript_(std::move(bundledScript)), files_(files),
      settings_(paths_, files_) {}

HookInstaller::Status HookInstaller::status() const noexcept {
    try {
        return files_.exists(paths_.clientFolder()) ? statusOfEntries() : Status::noClaudeCode;
    } catch (const std::exception&) {
        return Status::notConnected;
    }
}

HookInstaller::Status HookInstaller::statusOfEntries() const {
    const auto bytes = settings_.bytes();
    if (!bytes) {
        return Status::notConnected;
    }
    const FoundEntries found = findEntries(parseSettings(*bytes), paths_);
    if (found.events.empty()) {
        return Status::notConnected;
    }
    const bool complete = found.events == std::set<std::string>(events.begin(), events.end());
    return !found.stale && complete && scriptIsCurrent() ? Status::connected : Status::needsUpdate;
}

std::optional<std::string> HookInstaller::bundledScript() const {
    return bundledScript_ && files_.exists(*bundledScript_) ? bundledScript_ : std::nullopt;
}

bool HookInstaller::scriptIsCurrent() const {
    const auto bundled = bundledScript();
    if (!bundled) {
        return true;
    }
    const auto wanted = files_.read(*bundled).bytes;
    return wanted && files_.read(paths_.hookScript()).bytes == wanted;
}

void HookInstaller::installScript() {
    const std::string script = paths_.hookScript();
    files_.createFolders(folderOf(script));
    files_.createFolders(paths_.sessions());
    const auto bundled = bundledScript();
    if (!bundled) {
        throw Error(Error::ownDomain, noBundledScript, "The hook script isn't inside this copy of the app.");
    }
    const auto contents = files_.read(*bundled);
    if (!contents.bytes) {
        check(contents.failure, *bundled);
    }
    const std::string temporary = folderOf(script) + "/.status.sh.tmp";
    files_.writeNew({temporary, *contents.bytes, scriptPermissions, {}});
    const std::errc moved = files_.rename(temporary, script);
    if (moved != std::errc{}) {
        files_.remove(temporary);
        check(moved, script);
    }
    files_.syncFolder(folderOf(script));
    files_.setPermissions(script, scriptPermissions);
}

std::optional<std::string> HookInstaller::connect() {
    installScript();
    return settings_.modify(SettingsFile::WhenMissing::create, [this](SettingsObject& root) {
        addEntries(root, paths_);
    });
}

std::optional<std::string> HookInstaller::disconnect() {
    return settings_.modify(SettingsFile::WhenMissing::leave, [this](SettingsObject& root) {
        strip(root, paths_);
    });
}

std::string HookInstaller::changeSummary() const {
    return "Adds one small hook to " + abbreviated(paths_.clientSettings()) +
           " for these Claude Code events: " + text::join({events.begin(), events.end()}, ", ") + ". " +
           "It runs " + abbreviated(paths_.hookScript()) +
           ", takes about 10 ms, never blocks Claude, and only writes small status files on this Mac. " +
           "Your other hooks stay exactly as they are, and settings.json is backed up first.";
}

/// The path with the home folder replaced by "~" wherever it occurs.
std::string HookInstaller::abbreviated(std::string path) const {
    for (auto found = path.find(paths_.home()); found != std::string::npos;
         found = path.find(paths_.home(), found + 1)) {
        path.replace(found, paths_.home().size(), "~");
    }
    return path;
}

std::string_view name(HookInstaller::Status status) {
    switch (status) {
    case HookInstaller::Status::connected:
        return "connected";
    case HookInstaller::Status::needsUpdate:
        return "needsUpdate";
    case HookInstaller::Status::notConnected:
        return "notConnected";
    case HookInstaller::Status::noClaudeCode:
        return "noClaudeCode";
    }
    return "notConnected";
}

} // namespace mimkins
