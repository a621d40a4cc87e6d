#include "Platform/Linux/LinuxGitRunner.h"
#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "Support/GitRepository.h"
#include "Sweep/RepositoryCheck.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;

namespace {

constexpr const char* folderVariable = "MIMKINS_TEST_REPOSITORY";
constexpr int tracedChecks = 100;
constexpr int allChecks = 1'000;

/// A repository in which something commits as fast as it can, in a thread of its own.
class Committer {
public:
    Committer() {
        for (int number = 0; number < 20; ++number) {
            writeFile(fileName(number), "0\n");
        }
        repository_.commitAll();
        thread_ = std::thread([this] { commit(); });
    }

    Committer(const Committer&) = delete;
    Committer& operator=(const Committer&) = delete;

    ~Committer() { stop(); }

    void stop() {
        stopping_ = true;
        if (thread_.joinable()) {
            thread_.join();
        }
    }

    const GitRepository& repository() const { return repository_; }

    int commits() const { return commits_; }

    const std::vector<std::string>& failures() const { return failures_; }

private:
    std::string fileName(int number) const { return repository_ / ("file" + std::to_string(number)); }

    /// Replaces a file as editors do, since git gives up on a file that is cut short while it reads.
    void replace(const std::string& path, const std::string& bytes) const {
        const std::string fresh = repository_.outside("fresh");
        writeFile(fresh, bytes);
        std::filesystem::rename(fresh, path);
    }

    void commit() {
        while (!stopping_) {
            // All files get a new time, and one gets new contents: the index is out of date about each.
            const int round = commits_;
            for (int number = 0; number < 20; ++number) {
                replace(fileName(number), number == round % 20 ? std::to_string(round) + "\n" : "0\n");
            }
            const auto result = repository_.git({"commit", "--quiet", "--all", "--allow-empty", "-m", "a"});
            if (result.status != 0) {
                failures_.push_back(result.errors);
            }
            ++commits_;
        }
    }

    GitRepository repository_;
    std::atomic<bool> stopping_ = false;
    std::atomic<int> commits_ = 0;
    std::vector<std::string> failures_;
    std::thread thread_;
};

RepositoryResult check(const std::string& root, const LinuxGitRunner& git) {
    return checkRepository({root, {}}, git, LinuxRandomAccessFiles{});
}

/// How often a program, or one that it starts, tries to open the lock of an index.
std::size_t lockAttempts(const GitRepository& repository, std::vector<std::string> program) {
    const std::string report = repository.outside("trace");
    std::vector<std::string> words{"strace",
                                   "--follow-forks",
                                   "--quiet=all",
                                   "--seccomp-bpf",
                                   "--trace=/^(open|creat|link|rename)",
                                   "-o",
                                   report};
    words.insert(words.end(), program.begin(), program.end());
    const auto result =
        runProgram({words, {{folderVariable, repository.root()}, {"HOME", "/nonexistent"}}, "", ""});
    EXPECT_EQ(result.status, 0) << result.output << result.errors;
    const std::string trace = readWhole(report);
    EXPECT_NE(trace.find("/index\""), std::string::npos) << "the trace doesn't show git at work";
    std::size_t count = 0;
    for (auto at = trace.find("index.lock"); at != std::string::npos; at = trace.find("index.lock", at + 1)) {
        ++count;
    }
    return count;
}

} // namespace

/// Not a test by itself: what the traced process does.
TEST(IndexLock, DISABLED_ChecksOfATracedProcess) {
    const char* folder = std::getenv(folderVariable);
    ASSERT_NE(folder, nullptr);
    const LinuxGitRunner git;
    for (int round = 0; round < tracedChecks; ++round) {
        EXPECT_TRUE(check(folder, git).changes);
    }
}

TEST(IndexLock, IsNeverOpenedByAnyCheck) {
    Committer committer;
    const auto attempts = lockAttempts(
        committer.repository(), {std::filesystem::read_symlink("/proc/self/exe").string(),
                                 "--gtest_also_run_disabled_tests", "--gtest_filter=*ChecksOfATracedProcess"}
    );
    committer.stop();
    EXPECT_EQ(attempts, 0U);
    EXPECT_GT(committer.commits(), 0);
    EXPECT_TRUE(committer.failures().empty()) << committer.failures().front();
}

TEST(IndexLock, WouldBeOpenedByAPlainDifference) {
    GitRepository repository;
    writeFile(repository / "a.txt", "1\n");
    repository.commitAll();
    std::filesystem::last_write_time(
        repository / "a.txt", std::filesystem::file_time_type::clock::now() + std::chrono::hours(1)
    );
    EXPECT_GT(
        lockAttempts(
            repository, {"git", "-C", repository.root(), "--no-optional-locks", "-c", "core.fsmonitor=false",
                         "diff", "HEAD"}
        ),
        0U
    );
}

TEST(IndexLock, AThousandChecksFailNoCommit) {
    Committer committer;
    const LinuxGitRunner git;
    for (int round = 0; round < allChecks; ++round) {
        EXPECT_TRUE(check(committer.repository().root(), git).changes);
    }
    committer.stop();
    EXPECT_GT(committer.commits(), 0);
    EXPECT_TRUE(committer.failures().empty()) << committer.failures().front();
}
