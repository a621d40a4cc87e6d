#include "SessionStore/AppSessionReader.h"

#include "Base/Json.h"
#include "Base/Text.h"

#include <set>

namespace mimkins {

namespace {

constexpr std::size_t largestMetadataFile = 8 << 20;

std::optional<Date> optionalDate(json::Value value) {
    const auto milliseconds = value.number();
    return milliseconds ? std::optional(Date::fromMilliseconds(*milliseconds)) : std::nullopt;
}

bool isMetadataName(std::string_view name) {
    constexpr std::string_view beginning = "local_";
    return name.substr(0, beginning.size()) == beginning && text::pathExtension(name) == "json";
}

/// The paths `folder/level one/level two/local_*.json`.
std::set<std::string> metadataPaths(const FileSystem& files, const std::string& folder) {
    std::set<std::string> paths;
    for (const auto& first : files.list(folder)) {
        const std::string firstFolder = folder + "/" + first;
        for (const auto& second : files.list(firstFolder)) {
            const std::string secondFolder = firstFolder + "/" + second;
            for (const auto& name : files.list(secondFolder)) {
                if (isMetadataName(name)) {
                    paths.insert(secondFolder + "/" + name);
                }
            }
        }
    }
    return paths;
}

} // namespace

std::optional<std::pair<std::string, AppSessionInfo>> parseAppSession(std::string_view text) {
    const auto document = json::Document::parse(text);
    if (!document) {
        return std::nullopt;
    }
    const auto root = document->root();
    auto id = root["cliSessionId"].string();
    auto localId = root["sessionId"].string();
    if (!id || !localId) {
        return std::nullopt;
    }
    AppSessionInfo info;
    info.localId = std::move(*localId);
    info.title = root["title"].string();
    info.archived = root["isArchived"].boolean().value_or(false);
    info.lastFocused = optionalDate(root["lastFocusedAt"]);
    const auto anchors = root["gitAnchors"].elements();
    if (!anchors.empty()) {
        info.gitRoot = anchors.front()["gitRoot"].string();
    }
    info.effort = root["effort"].string();
    info.lastActivity = optionalDate(root["lastActivityAt"]);
    info.model = root["model"].string();
    return std::pair(std::move(*id), std::move(info));
}

void AppSessionReader::reload(const std::string& folder) {
    const auto paths = metadataPaths(files_, folder);
    for (const auto& path : paths) {
        consider(path);
    }
    for (auto entry = seen_.begin(); entry != seen_.end();) {
        if (paths.count(entry->first) != 0) {
            ++entry;
            continue;
        }
        if (entry->second.id) {
            sessions_.erase(*entry->second.id);
        }
        entry = seen_.erase(entry);
    }
}

void AppSessionReader::consider(const std::string& path) {
    const auto modified = files_.modified(path);
    const auto known = seen_.find(path);
    if (known != seen_.end() && known->second.modified == modified) {
        return;
    }
    const auto bytes = files_.readFile(path, largestMetadataFile);
    auto parsed = bytes ? parseAppSession(*bytes) : std::nullopt;
    Seen& entry = seen_[path];
    entry.modified = modified;
    // A broken file is remembered too, so that it isn't tried again before its date changes.
    entry.id = parsed ? std::optional(parsed->first) : std::nullopt;
    if (parsed) {
        sessions_.insert_or_assign(std::move(parsed->first), std::move(parsed->second));
    }
}

} // namespace mimkins
