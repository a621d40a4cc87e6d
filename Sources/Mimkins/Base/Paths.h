#pragma once

#include <string>

namespace mimkins {

/// Every path that hangs off the user's home folder. Made once, from the password database or from `--home`,
/// and handed to whoever needs it; nothing else in the system composes a path below the home folder.
class Paths {
public:
    /// `home` is absolute; trailing slashes are dropped.
    explicit Paths(std::string home);

    const std::string& home() const { return home_; }

    /// The application's own folder.
    std::string support() const;
    /// The folder into which the hook script and the `mimkin` command write status files.
    std::string sessions() const;
    /// The installed copy of the hook script.
    std::string hookScript() const;

    /// Where earlier versions of the product wrote status files.
    std::string legacySessions() const;
    /// Where earlier versions kept the hook script, the newer place first.
    std::string formerHookScript() const;
    std::string oldestHookScript() const;

    /// The client's own folder and what lies in it.
    std::string clientFolder() const;
    std::string clientSettings() const;
    std::string clientRegistry() const;
    std::string clientProjects() const;
    /// The desktop client's per-session metadata.
    std::string desktopSessions() const;

    /// The entry with which the desktop starts the application at login.
    std::string autostartEntry() const;

    /// Where preferences are kept: one file per domain.
    std::string preferencesFolder() const;

    /// The path with the home folder at its beginning replaced by "~".
    std::string abbreviated(const std::string& path) const;

private:
    std::string home_;
};

} // namespace mimkins
