#pragma once

#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mimkins::test {

/// A repository of its own in a throw-away folder, worked on by the real git without any of the machine's
/// settings.
class GitRepository {
public:
    GitRepository() {
        std::filesystem::create_directories(root());
        git({"init", "--quiet", "--initial-branch=main"});
        git({"config", "gc.auto", "0"});
    }

    /// The repository's top folder; marks and tools of a test stand beside it.
    std::string root() const { return home_ / "repository"; }

    std::string outside(std::string_view name) const { return home_ / name; }

    std::string operator/(std::string_view relative) const { return root() + "/" + std::string(relative); }

    /// Runs git in the repository, as the user would.
    ProgramResult git(std::vector<std::string> arguments, std::string input = {}) const {
        arguments.insert(arguments.begin(), {"git", "-C", root()});
        return runProgram({std::move(arguments), environment(), std::move(input), home_.path()});
    }

    /// Commits all that lies in the working tree. The date is in seconds since 1970.
    void commitAll(const std::string& date = "1795000000") {
        date_ = date;
        git({"add", "--all"});
        git({"commit", "--quiet", "--allow-empty", "--message", "a"});
    }

    /// Writes an executable file beside the repository and gives its path.
    std::string tool(std::string_view name, std::string_view script) const {
        const std::string path = outside(name);
        writeFile(path, script);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }

    /// A tool that leaves a mark when it is run, for tests that count on that not happening. It passes its
    /// input on.
    std::string markingTool() const { return tool("marking", "#!/bin/sh\n: >" + mark() + "\nexec cat\n"); }

    std::string mark() const { return outside("mark"); }

    bool isMarked() const { return std::filesystem::exists(mark()); }

private:
    std::map<std::string, std::string> environment() const {
        return {
            {"HOME", home_.path()},
            {"GIT_CONFIG_GLOBAL", "/dev/null"},
            {"GIT_CONFIG_NOSYSTEM", "1"},
            {"GIT_AUTHOR_NAME", "Kim"},
            {"GIT_AUTHOR_EMAIL", "kim@example.org"},
            {"GIT_COMMITTER_NAME", "Kim"},
            {"GIT_COMMITTER_EMAIL", "kim@example.org"},
            {"GIT_AUTHOR_DATE", date_ + " +0000"},
            {"GIT_COMMITTER_DATE", date_ + " +0000"},
        };
    }

    TemporaryFolder home_;
    std::string date_ = "1795000000";
};

} // namespace mimkins::test
