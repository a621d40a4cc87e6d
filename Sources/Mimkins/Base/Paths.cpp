#include "Base/Paths.h"

#include <utility>

namespace mimkins {

Paths::Paths(std::string home) : home_(std::move(home)) {
    while (home_.size() > 1 && home_.back() == '/') {
        home_.pop_back();
    }
}

std::string Paths::support() const {
    return home_ + "/Library/Application Support/Mimkins";
}

std::string Paths::sessions() const {
    return support() + "/sessions";
}

std::string Paths::hookScript() const {
    return support() + "/hook/status.sh";
}

std::string Paths::legacySessions() const {
    return home_ + "/Developer/Zorbly/run/sessions";
}

std::string Paths::formerHookScript() const {
    return home_ + "/Library/Application Support/Zorbly/hook/status.sh";
}

std::string Paths::oldestHookScript() const {
    return home_ + "/Developer/Zorbly/hook/status.sh";
}

std::string Paths::clientFolder() const {
    return home_ + "/.claude";
}

std::string Paths::clientSettings() const {
    return clientFolder() + "/settings.json";
}

std::string Paths::clientRegistry() const {
    return clientFolder() + "/sessions";
}

std::string Paths::clientProjects() const {
    return clientFolder() + "/projects";
}

std::string Paths::desktopSessions() const {
    return home_ + "/Library/Application Support/Claude/claude-code-sessions";
}

std::string Paths::autostartEntry() const {
    return home_ + "/.config/autostart/app.mimkins.desktop";
}

std::string Paths::preferencesFolder() const {
    return home_ + "/.config/mimkins";
}

std::string Paths::abbreviated(const std::string& path) const {
    const bool below = path == home_ || path.rfind(home_ + "/", 0) == 0;
    return below ? "~" + path.substr(home_.size()) : path;
}

} // namespace mimkins
