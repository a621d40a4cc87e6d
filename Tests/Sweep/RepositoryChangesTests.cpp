#include "Platform/Linux/LinuxGitRunner.h"
#include "Support/FakeGit.h"
#include "Support/GitRepository.h"
#include "Sweep/RepositoryChanges.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;

namespace {

class Changes : public testing::Test {
protected:
    std::optional<RepoChanges> changes() const { return gitChanges(git, repository.root()); }

    /// Makes filter "f" the business of all text files, with a clean step that leaves a mark.
    void addMarkingFilter() {
        writeFile(repository / ".git/info/attributes", "*.txt filter=f\n");
        repository.git({"config", "filter.f.clean", repository.markingTool()});
    }

    GitRepository repository;
    LinuxGitRunner git;
};

using Files = std::vector<std::string>;

} // namespace

TEST_F(Changes, ARepositoryWithoutACommitIsAbsent) {
    writeFile(repository / "a.txt", "a\n");
    repository.git({"add", "a.txt"});
    EXPECT_EQ(changes(), std::nullopt);
    EXPECT_EQ(lastCommitTime(git, repository.root()), Date{0});
}

TEST_F(Changes, WhatIsNoRepositoryIsAbsent) {
    const TemporaryFolder folder;
    EXPECT_EQ(gitChanges(git, folder.path()), std::nullopt);
    EXPECT_EQ(gitChanges(git, folder / "missing"), std::nullopt);
    EXPECT_EQ(lastCommitTime(git, folder.path()), Date{0});
}

TEST_F(Changes, ACleanRepositoryHasABranchAlone) {
    writeFile(repository / "a.txt", "a\n");
    repository.commitAll("1795012345");
    EXPECT_EQ(changes(), (RepoChanges{0, 0, "main", {}}));
    EXPECT_EQ(lastCommitTime(git, repository.root()), Date{1'795'012'345});
}

TEST_F(Changes, CountsStagedAndUnstagedLinesButNoUntrackedFiles) {
    writeFile(repository / "a.txt", "1\n2\n3\n");
    writeFile(repository / "b.txt", "1\n");
    repository.commitAll();
    writeFile(repository / "a.txt", "1\n2\n3\n4\n5\n");
    repository.git({"add", "a.txt"});
    writeFile(repository / "b.txt", "");
    writeFile(repository / "new.txt", "new\n");
    EXPECT_EQ(changes(), (RepoChanges{2, 1, "main", {"a.txt", "b.txt"}}));
}

TEST_F(Changes, ASubfolderStandsForItsRepository) {
    writeFile(repository / "sub/a.txt", "1\n");
    writeFile(repository / "b.txt", "1\n");
    repository.commitAll();
    writeFile(repository / "b.txt", "2\n");
    EXPECT_EQ(gitChanges(git, repository / "sub"), (RepoChanges{1, 1, "main", {"b.txt"}}));
}

TEST_F(Changes, ADetachedHeadHasNoBranch) {
    writeFile(repository / "a.txt", "1\n");
    repository.commitAll();
    repository.git({"checkout", "--quiet", "--detach"});
    writeFile(repository / "a.txt", "1\n2\n");
    EXPECT_EQ(changes(), (RepoChanges{1, 0, std::nullopt, {"a.txt"}}));
}

TEST_F(Changes, RenamedFilesGoByTheirNewName) {
    writeFile(repository / "old.txt", "1\n2\n3\n4\n5\n6\n");
    repository.commitAll();
    repository.git({"mv", "old.txt", "new.txt"});
    EXPECT_EQ(changes(), (RepoChanges{0, 0, "main", {"new.txt"}}));
}

TEST_F(Changes, BinaryFilesHaveNoLines) {
    writeFile(repository / "a.bin", std::string("a\0b", 3));
    repository.commitAll();
    writeFile(repository / "a.bin", std::string("a\0c", 3));
    EXPECT_EQ(changes(), (RepoChanges{0, 0, "main", {"a.bin"}}));
}

TEST_F(Changes, NamesComeAsTheyAre) {
    const Files names{"\"quoted\".txt", "a b.txt", "a\nb.txt", "bad\xff.txt", "größe.txt"};
    for (const auto& name : names) {
        writeFile(repository / name, "1\n");
    }
    repository.commitAll();
    for (const auto& name : names) {
        writeFile(repository / name, "2\n");
    }
    const auto found = changes();
    ASSERT_TRUE(found);
    auto files = found->files;
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, (Files{"\"quoted\".txt", "a\nb.txt", "a b.txt", "bad\uFFFD.txt", "größe.txt"}));
    EXPECT_EQ(found->added, 5);
}

TEST_F(Changes, AnEmptyNewFileHasNoLines) {
    repository.commitAll();
    writeFile(repository / "empty", "");
    repository.git({"add", "empty"});
    EXPECT_EQ(changes(), (RepoChanges{0, 0, "main", {"empty"}}));
}

TEST_F(Changes, AnOwnFilterIsNeverRunAndHidesWhatIsNotStaged) {
    writeFile(repository / "staged.txt", "1\n");
    writeFile(repository / "loose.txt", "1\n");
    repository.commitAll();
    writeFile(repository / "staged.txt", "1\n2\n");
    repository.git({"add", "staged.txt"});
    addMarkingFilter();
    writeFile(repository / "loose.txt", "1\n2\n3\n");
    EXPECT_EQ(changes(), (RepoChanges{1, 0, "main", {"staged.txt"}}));
    EXPECT_FALSE(repository.isMarked());
    repository.git({"diff", "HEAD"});
    EXPECT_TRUE(repository.isMarked()) << "the filter of this test can't be run at all";
}

TEST_F(Changes, AFilterFromAnIncludedFileIsNeverRun) {
    writeFile(repository / "a.txt", "1\n");
    repository.commitAll();
    writeFile(repository / ".git/info/attributes", "*.txt filter=f\n");
    writeFile(repository / ".git/more", "[filter \"f\"]\n\tprocess = " + repository.markingTool() + "\n");
    repository.git({"config", "include.path", "more"});
    writeFile(repository / "a.txt", "2\n");
    EXPECT_EQ(changes(), (RepoChanges{0, 0, "main", {}}));
    EXPECT_FALSE(repository.isMarked());
}

TEST_F(Changes, AFilterHiddenInAHugeListIsNeverRun) {
    writeFile(repository / "a.txt", "1\n");
    repository.commitAll();
    addMarkingFilter();
    std::string settings = readWhole(repository / ".git/config");
    for (int number = 0; settings.size() < 200'000; ++number) {
        settings += "[filter \"" + std::to_string(number) + "\"]\n\tclean = cat\n";
    }
    writeFile(repository / ".git/config", settings);
    writeFile(repository / "a.txt", "2\n");
    EXPECT_EQ(changes(), (RepoChanges{0, 0, "main", {}}));
    EXPECT_FALSE(repository.isMarked());
}

TEST_F(Changes, AListOfFiltersThatCannotBeHadCountsAsAnOwnFilter) {
    FakeGit fake;
    fake.answers["diff --no-ext-diff --no-textconv --shortstat --cached HEAD"] = " 1 insertion(+)";
    EXPECT_EQ(gitChanges(fake, "/r"), (RepoChanges{1, 0, std::nullopt, {}}));
}

TEST_F(Changes, TheMonitorHookIsNeverRun) {
    writeFile(repository / "a.txt", "1\n");
    repository.commitAll();
    repository.git({"config", "core.fsmonitor", repository.markingTool()});
    writeFile(repository / "a.txt", "2\n");
    EXPECT_EQ(changes(), (RepoChanges{1, 1, "main", {"a.txt"}}));
    EXPECT_FALSE(repository.isMarked());
    repository.git({"status"});
    EXPECT_TRUE(repository.isMarked()) << "the hook of this test can't be run at all";
}

TEST_F(Changes, NoForeignDifferenceOrConversionIsRun) {
    writeFile(repository / "a.txt", "1\n");
    writeFile(repository / ".gitattributes", "*.txt diff=d\n");
    repository.commitAll();
    const std::string tool = repository.markingTool();
    repository.git({"config", "diff.external", tool});
    repository.git({"config", "diff.d.textconv", tool});
    repository.git({"config", "diff.d.command", tool});
    writeFile(repository / "a.txt", "2\n");
    EXPECT_EQ(changes(), (RepoChanges{1, 1, "main", {"a.txt"}}));
    EXPECT_FALSE(repository.isMarked());
    repository.git({"diff", "HEAD"});
    EXPECT_TRUE(repository.isMarked()) << "the tools of this test can't be run at all";
}

TEST_F(Changes, TheSignatureProgramIsNeverRun) {
    writeFile(repository / "a.txt", "1\n");
    repository.commitAll();
    std::string commit = repository.git({"cat-file", "commit", "HEAD"}).output;
    commit.insert(
        commit.find("\n\n"), "\ngpgsig -----BEGIN PGP SIGNATURE-----\n \n eA==\n -----END PGP SIGNATURE-----"
    );
    std::string id = repository.git({"hash-object", "-t", "commit", "-w", "--stdin"}, commit).output;
    id.resize(id.find('\n'));
    repository.git({"update-ref", "HEAD", id});
    repository.git({"config", "log.showSignature", "true"});
    repository.git({"config", "gpg.program", repository.markingTool()});
    EXPECT_EQ(lastCommitTime(git, repository.root()), Date{1'795'000'000});
    EXPECT_FALSE(repository.isMarked());
    repository.git({"log", "-1"});
    EXPECT_TRUE(repository.isMarked()) << "the program of this test can't be run at all";
}

TEST_F(Changes, NothingIsFetchedForAPartialClone) {
    writeFile(repository / "a.txt", "1\n");
    repository.commitAll();
    std::string blob = repository.git({"rev-parse", "HEAD:a.txt"}).output;
    blob.resize(blob.find('\n'));
    std::filesystem::remove(repository / (".git/objects/" + blob.substr(0, 2) + "/" + blob.substr(2)));
    repository.git({"config", "core.repositoryFormatVersion", "1"});
    repository.git({"config", "extensions.partialClone", "origin"});
    repository.git({"config", "remote.origin.promisor", "true"});
    repository.git({"config", "remote.origin.url", "ssh://localhost/none"});
    repository.git({"config", "protocol.ssh.allow", "always"});
    repository.git({"config", "core.sshCommand", ": >" + repository.mark() + "; false"});
    writeFile(repository / "a.txt", "2\n");
    EXPECT_EQ(changes(), std::nullopt);
    EXPECT_FALSE(repository.isMarked());
    repository.git({"diff", "HEAD"});
    EXPECT_TRUE(repository.isMarked()) << "the command of this test can't be run at all";
}

TEST_F(Changes, TheFiltersOfASubmoduleAreNotRun) {
    const GitRepository library;
    writeFile(library / "f", "1\n");
    library.git({"add", "f"});
    library.git({"commit", "--quiet", "--message", "a"});
    repository.git({"-c", "protocol.file.allow=always", "submodule", "--quiet", "add", library.root(), "sub"}
    );
    repository.commitAll();
    writeFile(repository / ".git/modules/sub/info/attributes", "* filter=f\n");
    repository.git({"-C", "sub", "config", "filter.f.clean", repository.markingTool()});
    writeFile(repository / "sub/f", "2\n");
    EXPECT_EQ(changes(), (RepoChanges{0, 0, "main", {}}));
    EXPECT_FALSE(repository.isMarked());
    repository.git({"diff", "HEAD"});
    EXPECT_TRUE(repository.isMarked()) << "the filter of this test can't be run at all";
}

TEST_F(Changes, FiftyThousandFiles) {
    constexpr int count = 50'000;
    std::string stream = "blob\nmark :1\ndata 2\n1\n\ncommit refs/heads/main\n"
                         "committer Kim <kim@example.org> 1795000000 +0000\ndata 1\na\n";
    for (int number = 0; number < count; ++number) {
        stream +=
            "M 100644 :1 folder" + std::to_string(number % 100) + "/file" + std::to_string(number) + "\n";
    }
    repository.git({"fast-import", "--quiet"}, stream);
    repository.git({"reset", "--quiet", "--hard"});
    EXPECT_EQ(changes(), (RepoChanges{0, 0, "main", {}}));
    writeFile(repository / "folder7/file7", "1\n2\n");
    EXPECT_EQ(changes(), (RepoChanges{1, 0, "main", {"folder7/file7"}}));
    // More names than a pipe holds: the lines are told, the names aren't.
    for (int number = 0; number < 10'000; ++number) {
        writeFile(
            repository / ("folder" + std::to_string(number % 100) + "/file" + std::to_string(number)), "2\n"
        );
    }
    EXPECT_EQ(changes(), (RepoChanges{10'000, 10'000, "main", {}}));
}
