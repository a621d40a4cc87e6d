#pragma once

#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// Which ends of a run count as an answer.
enum class GitFailure {
    never,        ///< only status 0
    allowNotFound ///< status 1 as well, by which git says that it found nothing
};

/// Runs git read-only in folders of the user's. A run changes nothing there, takes no lock, and starts no
/// program that the repository names.
class GitRunner {
public:
    virtual ~GitRunner() = default;

    /// Standard output of one git command, invalid UTF-8 repaired. Nothing if git can't be started, ends with
    /// a status that doesn't count, takes longer than 5 seconds, or writes more than 65,536 bytes. Blocks;
    /// may be called from several threads at once.
    virtual std::optional<std::string>
    run(const std::vector<std::string>& arguments, const std::string& folder,
        GitFailure allowed = GitFailure::never) const = 0;
};

} // namespace mimkins
