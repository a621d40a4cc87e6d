#pragma once

#include "Base/Date.h"
#include "Platform/GitRunner.h"
#include "Session/Facts.h"

#include <optional>
#include <string>

namespace mimkins {

/// The uncommitted work of the repository in which `root` lies: lines, branch and files against the last
/// commit. Only what is staged counts in a repository that brings filters of its own, since looking at the
/// working tree would run them. Nothing if there is no repository, no commit, or git fails. Blocks.
std::optional<RepoChanges> gitChanges(const GitRunner& git, const std::string& root);

/// When the last commit was made; 1970 if there is none. Blocks.
Date lastCommitTime(const GitRunner& git, const std::string& root);

} // namespace mimkins
