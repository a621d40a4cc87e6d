#pragma once

#include "Base/Paths.h"
#include "HookInstaller/HookEntries.h"
#include "HookInstaller/SettingsFile.h"
#include "Platform/SettingsFiles.h"

#include <optional>
#include <string>
#include <string_view>

namespace mimkins {

/// Connects the agent client: installs the hook script, and puts an entry for each of the client's events
/// into its settings or takes them out again. The only code that writes to a file that the user owns.
/// Everything runs on the main thread and may block it for a quarter of a second.
class HookInstaller {
public:
    enum class Status {
        /// Our entry is on all events with the current command, and the installed script is current.
        connected,
        /// At least one entry of ours exists, but something is stale.
        needsUpdate,
        /// The client's folder exists, but no entry of ours is found, or the settings can't be read.
        notConnected,
        /// The client's folder doesn't exist.
        noClaudeCode,
    };

    static constexpr const auto& events = hookEvents;

    /// `bundledScript` is the resource hook/status.sh that came with this program, if there is one. `files`
    /// must outlive the installer.
    HookInstaller(Paths paths, std::optional<std::string> bundledScript, SettingsFiles& files);

    HookInstaller(const HookInstaller&) = delete;
    HookInstaller& operator=(const HookInstaller&) = delete;

    /// Reads only. Every failure is `notConnected`.
    Status status() const noexcept;

    /// The path of the script that came with this program; nothing if it isn't there.
    std::optional<std::string> bundledScript() const;

    /// True if there is no bundled script, or if the installed one has the same contents.
    bool scriptIsCurrent() const;

    /// Makes the folders for the script and the status files and puts the bundled script in place. Safe to
    /// repeat. Throws an `Error`: code 2 if there is no bundled script, or the system's own.
    void installScript();

    /// Installs the script and brings the entries up to date. Gives the path of the settings' backup; nothing
    /// if there were no settings. Throws what `installScript` and `SettingsFile::modify` throw.
    std::optional<std::string> connect();

    /// Takes the entries out and leaves the script. Gives the path of the settings' backup; nothing if there
    /// are no settings, which are then not written. Throws what `SettingsFile::modify` throws.
    std::optional<std::string> disconnect();

    /// The sentence that is shown before the user agrees to connect.
    std::string changeSummary() const;

private:
    Status statusOfEntries() const;
    std::string abbreviated(std::string path) const;

    const Paths paths_;
    const std::optional<std::string> bundledScript_;
    SettingsFiles& files_;
    SettingsFile settings_;
};

/// The status's name as scripts read it: "connected", "needsUpdate", "notConnected", "noClaudeCode".
std::string_view name(HookInstaller::Status status);

} // namespace mimkins
