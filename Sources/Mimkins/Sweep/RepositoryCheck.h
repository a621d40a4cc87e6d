#pragma once

#include "Platform/GitRunner.h"
#include "Platform/RandomAccessFile.h"
#include "Session/Facts.h"
#include "Sweep/RepositoryOwners.h"

#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// What a check of one repository is to look at, gathered on the main thread.
struct RepositoryCheck {
    std::string root;
    std::vector<SessionTranscripts> sessions; ///< those that share the repository, in their order
};

struct RepositoryResult {
    std::optional<RepoChanges> changes;
    std::optional<RepositoryOwners> owners; ///< absent unless two or more sessions share the repository

    friend bool operator==(const RepositoryResult&, const RepositoryResult&) = default;
};

/// Looks at one repository. Blocks, for up to 25 seconds if git hangs; made for any thread but the main one.
RepositoryResult
checkRepository(const RepositoryCheck& check, const GitRunner& git, const RandomAccessFiles& opener);

/// True unless every changed file is known to be the work of others than this session.
bool concerns(const RepoChanges& changes, const RepositoryOwners& owners, const std::string& sessionId);

/// What one of the sessions that stand in a repository is shown of its changes: all or nothing. Nothing when
/// every changed file is known to be another session's work. `sharing` is how many sessions stand there.
std::optional<RepoChanges>
ownedChanges(const RepositoryResult& repository, const std::string& sessionId, std::size_t sharing);

} // namespace mimkins
