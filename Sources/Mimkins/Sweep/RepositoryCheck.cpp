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

std::optional<RepoChanges>
ownedChanges(const RepositoryResult& repository, const std::string& sessionId, std::size_t sharing) {
    if (!repository.changes || !repository.owners || sharing < 2) {
        return repository.changes;
    }
    const auto& files = repository.changes->files;
    const bool concerned = std::any_of(files.begin(), files.end(), [&](const std::string& file) {
        const auto owners = repository.owners->find(file);
        return owners == repository.owners->end() || owners->second.contains(sessionId);
    });
    return concerned ? repository.changes : std::nullopt;
}

} // namespace mimkins
