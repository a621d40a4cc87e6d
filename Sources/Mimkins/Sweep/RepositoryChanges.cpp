#include "Sweep/RepositoryChanges.h"

#include "Sweep/GitOutput.h"

#include <utility>
#include <vector>

namespace mimkins {

namespace {

/// A list of settings that can't be had, as when it is too long or git hangs, is taken for the worst: a
/// repository must not get its filters run by hiding them.
bool hasOwnFilters(const GitRunner& git, const std::string& root) {
    const auto names = git.run(
        {"config", "--show-scope", "--name-only", "--get-regexp", "^filter\\."}, root,
        GitFailure::allowNotFound
    );
    return !names || gitOutput::namesOwnSetting(*names);
}

std::vector<std::string> differenceCommand(std::vector<std::string> format, bool stagedOnly) {
    std::vector<std::string> command{"diff", "--no-ext-diff", "--no-textconv"};
    command.insert(command.end(), format.begin(), format.end());
    if (stagedOnly) {
        command.emplace_back("--cached");
    }
    command.emplace_back("HEAD");
    return command;
}

} // namespace

std::optional<RepoChanges> gitChanges(const GitRunner& git, const std::string& root) {
    const bool stagedOnly = hasOwnFilters(git, root);
    const auto statistic = git.run(differenceCommand({"--shortstat"}, stagedOnly), root);
    if (!statistic) {
        return std::nullopt;
    }
    const auto names = git.run(differenceCommand({"--name-only", "-z"}, stagedOnly), root);
    const auto branch = git.run({"symbolic-ref", "--short", "HEAD"}, root);
    const auto counts = gitOutput::lineCounts(*statistic);
    return RepoChanges{
        counts.added, counts.removed, gitOutput::branchName(branch.value_or("")),
        gitOutput::nulSeparated(names.value_or(""))};
}

Date lastCommitTime(const GitRunner& git, const std::string& root) {
    return gitOutput::commitTime(git.run({"log", "-1", "--format=%ct"}, root).value_or(""));
}

} // namespace mimkins
