#pragma once

#include "Platform/FileSystem.h"
#include "Session/Sources.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace mimkins {

/// Reads one metadata document of the desktop client: the agent's session id and the record. Nothing unless
/// both ids are strings; every other field of the wrong type counts as missing.
std::optional<std::pair<std::string, AppSessionInfo>> parseAppSession(std::string_view text);

/// The desktop client's metadata, keyed by the agent's session id. A file is read again only when its date
/// changes.
class AppSessionReader {
public:
    explicit AppSessionReader(const FileSystem& files) : files_(files) {}

    /// Takes up new and changed `local_*.json` files two levels below the folder, and drops what is gone.
    void reload(const std::string& folder);

    const std::map<std::string, AppSessionInfo>& sessions() const { return sessions_; }

private:
    struct Seen {
        std::optional<FileTime> modified;
        std::optional<std::string> id;
    };

    void consider(const std::string& path);

    const FileSystem& files_;
    std::map<std::string, AppSessionInfo> sessions_;
    std::map<std::string, Seen> seen_; ///< by path
};

} // namespace mimkins
