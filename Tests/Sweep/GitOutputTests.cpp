#include "Sweep/GitOutput.h"

#include <gtest/gtest.h>

#include <string>

using namespace mimkins;
using namespace std::string_literals;

TEST(GitOutput, OnlySettingsOfTheUserAndTheSystemAreForeign) {
    EXPECT_FALSE(gitOutput::namesOwnSetting(""));
    EXPECT_FALSE(gitOutput::namesOwnSetting("system\tfilter.lfs.clean\nglobal\tfilter.lfs.smudge\n"));
    EXPECT_TRUE(gitOutput::namesOwnSetting("local\tfilter.a.clean\n"));
    EXPECT_TRUE(gitOutput::namesOwnSetting("worktree\tfilter.a.clean\n"));
    EXPECT_TRUE(gitOutput::namesOwnSetting("system\tfilter.lfs.clean\nlocal\tfilter.a.process"));
    EXPECT_TRUE(gitOutput::namesOwnSetting("something else"));
}

TEST(GitOutput, ReadsLineCounts) {
    using Counts = gitOutput::LineCounts;
    EXPECT_EQ(gitOutput::lineCounts(" 2 files changed, 31 insertions(+), 4 deletions(-)\n"), (Counts{31, 4}));
    EXPECT_EQ(gitOutput::lineCounts(" 1 file changed, 1 insertion(+)\n"), (Counts{1, 0}));
    EXPECT_EQ(gitOutput::lineCounts(" 1 file changed, 1 deletion(-)\n"), (Counts{0, 1}));
    EXPECT_EQ(gitOutput::lineCounts(" 1 file changed, 0 insertions(+), 0 deletions(-)\n"), Counts{});
    EXPECT_EQ(gitOutput::lineCounts(""), Counts{});
    EXPECT_EQ(gitOutput::lineCounts("no insertion, 7 insertions"), (Counts{7, 0}));
    EXPECT_EQ(gitOutput::lineCounts("99999999999999999999 insertions, 5 deletions"), (Counts{0, 5}));
}

TEST(GitOutput, SplitsNamesAtNulBytes) {
    EXPECT_EQ(gitOutput::nulSeparated("a b\0\0c\nd\0"s), (std::vector<std::string>{"a b", "c\nd"}));
    EXPECT_TRUE(gitOutput::nulSeparated("").empty());
}

TEST(GitOutput, ReadsABranchName) {
    EXPECT_EQ(gitOutput::branchName("feature/x\n"), "feature/x");
    EXPECT_EQ(gitOutput::branchName(" \n"), std::nullopt);
}

TEST(GitOutput, ReadsACommitTime) {
    EXPECT_EQ(gitOutput::commitTime("1795000000\n"), Date{1'795'000'000});
    EXPECT_EQ(gitOutput::commitTime("-5\n"), Date{-5});
    EXPECT_EQ(gitOutput::commitTime(""), Date{0});
    EXPECT_EQ(gitOutput::commitTime("1795000000 and more"), Date{0});
    EXPECT_EQ(gitOutput::commitTime("1e999"), Date{0});
    EXPECT_EQ(gitOutput::commitTime("inf"), Date{0});
    EXPECT_EQ(gitOutput::commitTime("nan"), Date{0});
}
