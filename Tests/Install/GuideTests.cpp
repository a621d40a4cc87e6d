// The guide for other agents, followed to the letter: each command block is run as it stands.

#include "Base/Text.h"
#include "Platform/Linux/LinuxResources.h"
#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const AgentResources resources = agentResources(MIMKINS_BINARY_DIR "/Sources/Mimkins");

/// The lines of all command blocks of the guide, in order.
std::vector<std::string> commands() {
    std::vector<std::string> found;
    bool inside = false;
    for (const auto line : text::splitDroppingEmpty(readWhole(resources.guide), '\n')) {
        if (line.substr(0, 3) == "```") {
            inside = line == "```sh";
        } else if (inside) {
            found.emplace_back(line);
        }
    }
    return found;
}

class Guide : public testing::Test {
protected:
    Guide() {
        // The command with the throw-away home, by the name that the guide calls it by.
        const std::string command = folder / "bin/mimkin";
        writeFile(
            command, "#!/bin/sh\nexec '" + resources.command + "' --home '" + folder.path() + "' \"$@\"\n"
        );
        std::filesystem::permissions(command, std::filesystem::perms(0755));
    }

    ProgramResult run(const std::string& line) const {
        return runProgram(
            {{"sh", "-c", line},
             {{"HOME", folder.path()}, {"PWD", folder.path()}, {"PATH", folder / "bin" + ":/usr/bin:/bin"}},
             "",
             folder.path()}
        );
    }

    /// The moods of all sessions.
    std::vector<std::string> moods() const {
        std::vector<std::string> found;
        const auto list = nlohmann::json::parse(run("mimkin sessions --json").output, nullptr, false);
        for (const auto& session : list.is_object() ? list.at("sessions") : list) {
            found.push_back(session.at("mood"));
        }
        return found;
    }

    TemporaryFolder folder;
};

TEST_F(Guide, EveryCommandRuns) {
    const auto all = commands();
    EXPECT_GE(all.size(), 11U);
    for (const auto& line : all) {
        const auto result = run(line);
        EXPECT_EQ(result.status, 0) << line << "\n" << result.errors;
        EXPECT_EQ(result.errors, "") << line;
    }
}

TEST_F(Guide, ExamplesShowEachState) {
    std::vector<std::string> seen;
    for (const auto& line : commands()) {
        if (line.find("--id demo-1") == std::string::npos) {
            continue;
        }
        ASSERT_EQ(run(line).status, 0) << line;
        const auto now = moods();
        ASSERT_LE(now.size(), 1U); // one id, one pet
        seen.push_back(now.empty() ? "" : now.front());
    }
    EXPECT_THAT(
        seen, ElementsAre("idle", "working", "working", "needsPermission", "question", "plan", "yourTurn", "")
    );
}

TEST_F(Guide, NamesOnlyOptionsThatExist) {
    const std::string help = run("mimkin report --help").output;
    for (const char* option :
         {"--agent", "--id", "--state", "--tool", "--detail", "--title", "--cwd", "--message", "--pid",
          "--open", "--clear"}) {
        EXPECT_THAT(help, HasSubstr(option));
        EXPECT_THAT(readWhole(resources.guide), HasSubstr(std::string("`") + option));
    }
}

TEST_F(Guide, ExitCodesAreAsItSays) {
    EXPECT_EQ(run("mimkin report --agent demo --id demo-1 --state flying").status, 2);
    writeFile(folder / "Library", "in the way");
    EXPECT_EQ(run("mimkin report --agent demo --id demo-1 --state done").status, 1);
}

TEST_F(Guide, PetOfTheWholeHookLeavesWithItsProcess) {
    for (const auto& line : commands()) {
        if (line.find("demo-$PPID") != std::string::npos) {
            // The shell between stands for the agent: it starts the hook, looks, and ends.
            const auto result = run("sh -c '" + line + "'; mimkin sessions --json; true");
            EXPECT_THAT(result.output, HasSubstr("\"demo\""));
            EXPECT_THAT(moods(), IsEmpty());
            return;
        }
    }
    ADD_FAILURE() << "the guide shows no whole hook";
}

} // namespace

} // namespace mimkins::test
