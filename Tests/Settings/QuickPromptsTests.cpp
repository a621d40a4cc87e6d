#include "Settings/QuickPrompts.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

using namespace mimkins;

namespace {

const std::vector<QuickPrompt> fixedPrompts{
    {"Commit the changes", "Commit the working tree changes with a sensible message."},
    {"Review before commit",
     "Review the current uncommitted changes for bugs before I commit them. Report findings; "
     "don't change anything yet."},
    {"Write a handover",
     "Write a short handover for this project: what's done, what's in progress, what's next, "
     "and any open questions."},
    {"Pick up where we left off",
     "Pick up where the last session left off. Read the project's dev-log and handover "
     "notes first, then tell me the next step."},
};

} // namespace

TEST(QuickPrompts, NothingOfTheUsersOwnGivesTheFourFixedOnes) {
    for (const std::string_view custom : {"", "   ", "\n", " \t\r\n\u00A0\u2003"}) {
        EXPECT_EQ(quickPrompts(custom), fixedPrompts);
    }
}

TEST(QuickPrompts, TheUsersOwnComesLastAndBare) {
    auto expected = fixedPrompts;
    expected.push_back({"My prompt", "Run the tests\nand tell me"});
    EXPECT_EQ(quickPrompts("  Run the tests\nand tell me \n"), expected);
}
