#include "Pet/PetAction.h"

#include <gtest/gtest.h>

namespace mimkins::test {

namespace {

using enum PetAction;

constexpr auto forTool = petActionForTool;

TEST(PetActionForTool, NoToolThinks) {
    EXPECT_EQ(forTool(std::nullopt, std::nullopt), thinking);
    EXPECT_EQ(forTool(std::nullopt, "git push"), thinking);
}

TEST(PetActionForTool, ACommandThatSendsParachutes) {
    for (const std::string_view detail :
         {"git push", "make DEPLOY", "Release it", "npm publish", "upload x", "list of ships", "relaunch"}) {
        EXPECT_EQ(forTool("Bash", detail), parachuting) << detail;
    }
}

TEST(PetActionForTool, ACommandThatCleansVacuums) {
    for (const std::string_view detail :
         {"make clean", "clang-tidy", "run the Linter", "information", "prettier -w", "refactor", "remove x",
          "delete", "git prune", "purge", "dedupe"}) {
        EXPECT_EQ(forTool("Bash", detail), vacuuming) << detail;
    }
}

TEST(PetActionForTool, SendingGoesBeforeCleaning) {
    EXPECT_EQ(forTool("Bash", "lint && git push"), parachuting);
}

TEST(PetActionForTool, OtherCommandsHammer) {
    EXPECT_EQ(forTool("Bash", std::nullopt), hammering);
    EXPECT_EQ(forTool("Bash", "ls"), hammering);
    EXPECT_EQ(forTool("Bash", ""), hammering);
}

TEST(PetActionForTool, NamesAreComparedExactly) {
    for (const std::string_view tool :
         {"Edit", "Write", "MultiEdit", "NotebookEdit", "bash", "READ", "Chrome", "x", ""}) {
        EXPECT_EQ(forTool(tool, "git push"), typing) << tool;
    }
    for (const std::string_view tool : {"Read", "Grep", "Glob", "LS"}) {
        EXPECT_EQ(forTool(tool, "git push"), reading) << tool;
    }
    for (const std::string_view tool : {"WebFetch", "WebSearch", "mcp__chrome__tab", "anyBrowserTool"}) {
        EXPECT_EQ(forTool(tool, std::nullopt), searching) << tool;
    }
    for (const std::string_view tool : {"Agent", "Task"}) {
        EXPECT_EQ(forTool(tool, std::nullopt), delegating) << tool;
    }
    EXPECT_EQ(forTool("Workflow", std::nullopt), conducting);
    EXPECT_EQ(forTool("browser", "Browser chrome"), typing);
}

TEST(PetActionNames, GoBothWays) {
    for (std::size_t index = 0; index < petActionCount; ++index) {
        const auto action = static_cast<PetAction>(index);
        EXPECT_EQ(petActionNamed(name(action)), action);
    }
    EXPECT_EQ(name(typing), "typing");
    EXPECT_EQ(name(parachuting), "parachuting");
    EXPECT_EQ(name(idle), "idle");
    EXPECT_FALSE(petActionNamed("Typing"));
    EXPECT_FALSE(petActionNamed(""));
}

} // namespace

} // namespace mimkins::test
