#pragma once

#include "Base/Text.h"
#include "Platform/GitRunner.h"

#include <map>
#include <string>
#include <vector>

namespace mimkins::test {

/// Answers git commands from a table, by their words joined with blanks; what isn't in it fails.
class FakeGit final : public GitRunner {
public:
    std::map<std::string, std::string> answers;

    /// The folder and words of each run so far, joined with blanks.
    mutable std::vector<std::string> runs;

    /// Answers as a repository with uncommitted lines would.
    void setChanges(const std::string& statistic, const std::string& names, const std::string& branch = "") {
        answers["diff --no-ext-diff --no-textconv --shortstat HEAD"] = statistic;
        answers["diff --no-ext-diff --no-textconv --name-only -z HEAD"] = names;
        answers["config --show-scope --name-only --get-regexp ^filter\\."] = "";
        if (!branch.empty()) {
            answers["symbolic-ref --short HEAD"] = branch;
        }
    }

    std::optional<std::string>
    run(const std::vector<std::string>& arguments, const std::string& folder, GitFailure /*allowed*/
    ) const override {
        const auto words = text::join(arguments, " ");
        runs.push_back(folder + " " + words);
        const auto answer = answers.find(words);
        return answer != answers.end() ? std::optional(answer->second) : std::nullopt;
    }
};

} // namespace mimkins::test
