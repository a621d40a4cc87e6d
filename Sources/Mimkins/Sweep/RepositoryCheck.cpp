#include "Sweep/RepositoryCheck.h"

#include "Sweep/RepositoryChanges.h"

#include <algorithm>

namespace mimkins {

RepositoryResult
checkRepository(const RepositoryCheck& check, const GitRunner& git, const RandomAccessFiles& opener) {
    RepositoryResult result;
    result.changes = gitChanges(git, check.root);
    const Date lastCommit = lastCommitTime(git, check.root);
    if (result.changes && check.sessions.size() >= 2) {
        result.owners = owners(result.changes->files, check.sessions, lastCommit, opener);
    }
    return result;
}

bool concerns(const RepoChanges& changes, const RepositoryOwners& owners, const std::string& sessionId) {
    return std::any_of(changes.files.begin(), changes.files.end(), [&](const std::string& file) {
        const auto known = owners.find(file);
        return known == owners.end() || known->second.contains(sessionId);
    });
}

std::optional<RepoChanges>
ownedChanges(const RepositoryResult& repository, const std::string& sessionId, std::size_t sharing) {
    if (!repository.changes || !repository.owners || sharing < 2) {
        return repository.changes;
    }
    return concerns(*repository.changes, *repository.owners, sessionId) ? repository.changes : std::nullopt;
}

} // namespace mimkins
