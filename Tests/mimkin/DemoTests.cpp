#include "Mimkin.h"

#include "Platform/Linux/HomeFolder.h"
#include "Support/ChildProcess.h"

#include <gtest/gtest.h>

#include <signal.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <string>
#include <thread>

using namespace mimkins;
using namespace mimkins::test;

namespace {

constexpr const char* mark = "/.mimkins-demo-home";

/// Asks again until it is so. The patience is far beyond what any machine needs.
bool eventually(const std::function<bool()>& condition) {
    constexpr int rounds = 600;
    for (int round = 0; round < rounds; ++round) {
        if (condition()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return false;
}

/// The ids of the clients that the registry names.
std::set<pid_t> clients(const Mimkin& mimkin) {
    std::set<pid_t> result;
    std::error_code failure;
    for (const auto& file : std::filesystem::directory_iterator(mimkin.paths().clientRegistry(), failure)) {
        const std::string stem = file.path().stem();
        if (stem.find_first_not_of("0123456789") == std::string::npos) {
            result.insert(std::stoi(stem));
        }
    }
    return result;
}

/// True if the process has ended or is only waiting to be reaped.
bool hasEnded(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(file, text);
    const auto name = text.rfind(')');
    return name == std::string::npos || text.substr(name + 2, 1) == "Z";
}

class Demo : public testing::Test {
protected:
    ChildProcess play(std::vector<std::string> words) {
        words.insert(words.begin(), "demo");
        auto line = mimkin.commandLine(std::move(words));
        const std::string program = line.front();
        return {program, std::move(line)};
    }

    Mimkin mimkin;
};

} // namespace

TEST_F(Demo, PlaysADayThatTheListShows) {
    const auto player = play({"--sessions", "12", "--speed", "400"});
    // A listing makes folders, and the demo takes an empty home only.
    ASSERT_TRUE(eventually([&] { return !clients(mimkin).empty(); }));
    std::set<std::string> moods;
    bool subtask = false;
    bool command = false;
    bool lines = false;
    EXPECT_TRUE(eventually([&] {
        const auto list = mimkin.json({"sessions", "--json"});
        for (const auto& session : list.is_object() ? list.at("sessions") : nlohmann::json::array()) {
            moods.insert(session.at("mood").get<std::string>());
            subtask = subtask || !session.at("subtasks").empty();
            const auto& work = session.at("background");
            command = command || (work.is_object() && work.at("commands") != 0);
            lines = lines || session.at("mood") == "commitWaiting";
        }
        return moods.size() >= 8 && subtask && command && lines;
    })) << nlohmann::json(moods).dump()
        << " subtask " << subtask << " command " << command << " lines " << lines;
}

TEST_F(Demo, EndsItsProcessesWhenItIsKilled) {
    auto player = play({"--sessions", "3", "--speed", "60"});
    ASSERT_TRUE(eventually([&] { return clients(mimkin).size() == 3; }));
    const auto started = clients(mimkin);
    for (const pid_t client : started) {
        EXPECT_FALSE(hasEnded(client));
    }
    player.end();
    for (const pid_t client : started) {
        EXPECT_TRUE(eventually([client] { return hasEnded(client); }));
    }
}

TEST_F(Demo, RemovesItsHomeIfToldTo) {
    const std::string home = mimkin.home() / "inner";
    auto player = ChildProcess(
        MIMKINS_BINARY_DIR "/Sources/mimkin/mimkin", {"mimkin", "demo", "--home", home, "--remove-home"}
    );
    ASSERT_TRUE(eventually([&] { return std::filesystem::exists(home + "/.claude/sessions"); }));
    ::kill(player.pid(), SIGTERM);
    EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(home); }));
}

TEST_F(Demo, EndsByItselfAfterTheSecondsAskedFor) {
    const auto result = mimkin.run({"demo", "--seconds", "0.2", "--sessions", "1"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output.rfind("Playing 1 sessions in " + mimkin.home().path(), 0), 0U) << result.output;
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(std::filesystem::exists(mimkin.home().path() + mark));
}

TEST_F(Demo, TakesTheHomeOfAnEarlierDemoAgain) {
    ASSERT_EQ(mimkin.run({"demo", "--seconds", "0.2"}).status, 0);
    const std::string leftover = mimkin.paths().sessions() + "/old.json";
    writeFile(leftover, "{}");
    EXPECT_EQ(mimkin.run({"demo", "--seconds", "0.2"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(leftover));
}

TEST_F(Demo, RefusesAFolderWithOtherThingsInIt) {
    writeFile(mimkin.home() / "letter.txt", "Dear Kim");
    const auto result = mimkin.run({"demo", "--seconds", "0.2"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(
        result.errors,
        "mimkin: " + mimkin.home().path() + " isn't empty and wasn't made for a demo; name a new folder\n"
    );
    EXPECT_FALSE(std::filesystem::exists(mimkin.home().path() + mark));
    EXPECT_FALSE(std::filesystem::exists(mimkin.paths().support()));
}

TEST_F(Demo, RefusesTheOwnHomeEvenIfEmptyMarkedOrLinked) {
    const std::string home = mimkin.home() / "kim";
    std::filesystem::create_directory(home);
    const std::string link = mimkin.home() / "link";
    std::filesystem::create_directory_symlink(home, link);
    for (const auto& name : {home, link, home + "/", home + "/../kim"}) {
        const auto result = runProgram(
            {{MIMKINS_BINARY_DIR "/Sources/mimkin/mimkin", "demo", "--home", name, "--seconds", "0.1"},
             {{"HOME", home}},
             "",
             ""}
        );
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_EQ(
            result.errors, "mimkin: " + home + " is your own home folder; a demo needs one to throw away\n"
        );
        EXPECT_TRUE(std::filesystem::is_empty(home));
    }
}

TEST_F(Demo, RefusesASecondPlayer) {
    const auto player = play({"--sessions", "1"});
    ASSERT_TRUE(eventually([&] { return clients(mimkin).size() == 1; }));
    const auto result = mimkin.run({"demo", "--seconds", "0.1"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("has a demo playing in it already"), std::string::npos);
    EXPECT_EQ(clients(mimkin).size(), 1U);
}

TEST_F(Demo, RefusesAFileAndWrongWords) {
    const std::string file = mimkin.home() / "file";
    writeFile(file, "");
    const std::string program = MIMKINS_BINARY_DIR "/Sources/mimkin/mimkin";
    EXPECT_EQ(runProgram({{program, "demo", "--home", file}, {}, "", ""}).status, 1);
    EXPECT_EQ(runProgram({{program, "demo"}, {}, "", ""}).status, 2);
    EXPECT_EQ(mimkin.run({"demo", "--sessions", "0"}).status, 2);
    EXPECT_EQ(mimkin.run({"demo", "--speed", "-1"}).status, 2);
    EXPECT_EQ(mimkin.run({"demo", "--seconds", "0"}).status, 2);
}
