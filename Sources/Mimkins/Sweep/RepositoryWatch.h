#pragma once

#include "Base/Date.h"
#include "Session/Session.h"
#include "Session/Sources.h"
#include "Sweep/RepositoryCheck.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace mimkins {

/// The folder in which a session's repository is looked for, from its three records (null for one that it
/// hasn't): git finds the repository's top from there. Nothing for an agent other than Claude Code.
std::optional<std::string>
repoRoot(const StatusRecord* record, const AppSessionInfo* appInfo, const RegistryEntry* registered);

/// Gives the root for a session's id.
using RootOf = std::function<std::optional<std::string>(const std::string& sessionId)>;

/// The ids of the sessions that stand in a repository, in their order; none of another agent's.
std::vector<std::string>
sessionsSharing(const std::string& root, const std::vector<Session>& sessions, const RootOf& rootOf);

/// How many sessions stand in each repository, not counting those of another agent.
std::map<std::string, std::size_t> sharingCounts(const std::vector<Session>& sessions, const RootOf& rootOf);

/// A session's own transcript (if it has a path) followed by those in its subagent folder, given the names in
/// that folder.
std::vector<std::string> transcripts(
    const std::optional<std::string>& ownTranscript, const std::optional<std::string>& subagentFolder,
    const std::vector<std::string>& namesInFolder
);

/// What is known of the repositories, and when each is due for another look. Only the main thread holds it.
struct RepositoryWatch {
    /// Seconds from the end of one check of a repository until the next may begin.
    static constexpr double pause = 15;

    std::map<std::string, RepoChanges> repoChanges;
    std::map<std::string, RepositoryOwners> repoOwners;
    std::map<std::string, Date> repoCheckedAt;
    std::set<std::string> repoInFlight;

    /// The roots to check now: those of sessions at rest that are neither under way nor checked lately.
    std::vector<std::string> due(const std::vector<Session>& sessions, const RootOf& rootOf, Date now) const;

    /// Notes that a check of the root is under way.
    void begin(const std::string& root);

    /// Takes a check's result in. True if it differs from what was known.
    bool finish(const std::string& root, const RepositoryResult& result, Date now);

    /// What is known of a root; all absent if nothing is.
    RepositoryResult known(const std::string& root) const;

    /// What a session is shown of its repository's changes.
    std::optional<RepoChanges> ownedChanges(
        const std::string& sessionId, const std::vector<Session>& sessions, const RootOf& rootOf
    ) const;

    /// The same for a session in the repository of this root, in which so many sessions stand.
    std::optional<RepoChanges>
    ownedChanges(const std::string& sessionId, const std::string& root, std::size_t sharing) const;
};

} // namespace mimkins
