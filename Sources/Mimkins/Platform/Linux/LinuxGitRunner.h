#pragma once

#include "Platform/GitRunner.h"

#include <chrono>

namespace mimkins {

/// Runs the system's git, each time in a process group of its own.
class LinuxGitRunner final : public GitRunner {
public:
    struct Options {
        std::string executable = "/usr/bin/git"; ///< another one in tests alone
        std::chrono::milliseconds limit{5'000};
    };

    LinuxGitRunner() : LinuxGitRunner(Options{}) {}

    explicit LinuxGitRunner(Options options);

    std::optional<std::string>
    run(const std::vector<std::string>& arguments, const std::string& folder,
        GitFailure allowed = GitFailure::never) const override;

private:
    Options options_;
};

} // namespace mimkins
