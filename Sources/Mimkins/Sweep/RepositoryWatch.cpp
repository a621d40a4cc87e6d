#include "Sweep/RepositoryWatch.h"

#include "Base/Lookup.h"
#include "Base/Text.h"

namespace mimkins {

namespace {

/// A session at work isn't worth a check yet.
bool isAtRest(Mood mood) {
    return mood == Mood::yourTurn || mood == Mood::done || mood == Mood::commitWaiting;
}

template <typename Value>
std::optional<Value> find(const std::map<std::string, Value>& map, const std::string& key) {
    const auto* value = lookup(map, key);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

template <typename Value>
void set(std::map<std::string, Value>& map, const std::string& key, const std::optional<Value>& value) {
    if (value) {
        map.insert_or_assign(key, *value);
    } else {
        map.erase(key);
    }
}

} // namespace

std::optional<std::string>
repoRoot(const StatusRecord* record, const AppSessionInfo* appInfo, const RegistryEntry* registered) {
    if (record != nullptr && record->agent) {
        return std::nullopt;
    }
    if (appInfo != nullptr && appInfo->gitRoot) {
        return appInfo->gitRoot;
    }
    if (registered != nullptr && registered->cwd) {
        return registered->cwd;
    }
    return record != nullptr ? record->cwd : std::nullopt;
}

std::vector<std::string>
sessionsSharing(const std::string& root, const std::vector<Session>& sessions, const RootOf& rootOf) {
    std::vector<std::string> ids;
    for (const auto& session : sessions) {
        if (!session.agent && rootOf(session.id) == root) {
            ids.push_back(session.id);
        }
    }
    return ids;
}

std::map<std::string, std::size_t> sharingCounts(const std::vector<Session>& sessions, const RootOf& rootOf) {
    std::map<std::string, std::size_t> counts;
    for (const auto& session : sessions) {
        if (const auto root = session.agent ? std::nullopt : rootOf(session.id)) {
            ++counts[*root];
        }
    }
    return counts;
}

std::vector<std::string> transcripts(
    const std::optional<std::string>& ownTranscript, const std::optional<std::string>& subagentFolder,
    const std::vector<std::string>& namesInFolder
) {
    std::vector<std::string> paths;
    if (ownTranscript) {
        paths.push_back(*ownTranscript);
    }
    if (subagentFolder) {
        for (const auto& name : namesInFolder) {
            if (text::pathExtension(name) == "jsonl") {
                paths.push_back(*subagentFolder + "/" + name);
            }
        }
    }
    return paths;
}

std::vector<std::string>
RepositoryWatch::due(const std::vector<Session>& sessions, const RootOf& rootOf, Date now) const {
    std::set<std::string> roots;
    for (const auto& session : sessions) {
        const auto root = isAtRest(session.mood) ? rootOf(session.id) : std::nullopt;
        if (root && !repoInFlight.contains(*root) &&
            now - find(repoCheckedAt, *root).value_or(Date::distantPast()) > pause) {
            roots.insert(*root);
        }
    }
    return {roots.begin(), roots.end()};
}

void RepositoryWatch::begin(const std::string& root) {
    repoInFlight.insert(root);
}

bool RepositoryWatch::finish(const std::string& root, const RepositoryResult& result, Date now) {
    repoInFlight.erase(root);
    repoCheckedAt.insert_or_assign(root, now);
    if (result == known(root)) {
        return false;
    }
    set(repoChanges, root, result.changes);
    set(repoOwners, root, result.owners);
    return true;
}

RepositoryResult RepositoryWatch::known(const std::string& root) const {
    return {find(repoChanges, root), find(repoOwners, root)};
}

std::optional<RepoChanges> RepositoryWatch::ownedChanges(
    const std::string& sessionId, const std::vector<Session>& sessions, const RootOf& rootOf
) const {
    const auto root = rootOf(sessionId);
    if (!root || !repoChanges.contains(*root)) {
        return std::nullopt;
    }
    // With nobody to tell apart, nobody has to be counted.
    const bool counts = repoOwners.contains(*root);
    return ownedChanges(sessionId, *root, counts ? sessionsSharing(*root, sessions, rootOf).size() : 0);
}

std::optional<RepoChanges> RepositoryWatch::ownedChanges(
    const std::string& sessionId, const std::string& root, std::size_t sharing
) const {
    const auto* changes = lookup(repoChanges, root);
    const auto* owners = lookup(repoOwners, root);
    if (changes == nullptr ||
        (owners != nullptr && sharing >= 2 && !concerns(*changes, *owners, sessionId))) {
        return std::nullopt;
    }
    return *changes;
}

} // namespace mimkins
