#include "Mimkin.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <set>

using namespace mimkins;
using namespace mimkins::test;

namespace {

void status(const Mimkin& mimkin, const std::string& id, const std::string& fields) {
    writeFile(
        mimkin.paths().sessions() + "/" + id + ".json", R"({"id":")" + id + R"(","event":"E",)" + fields + "}"
    );
}

std::set<std::string> keys(const nlohmann::json& object) {
    std::set<std::string> result;
    for (const auto& [key, value] : object.items()) {
        result.insert(key);
    }
    return result;
}

} // namespace

TEST(SessionsJson, KeepsItsContract) {
    const Mimkin mimkin;
    status(
        mimkin, "s",
        R"("state":"waiting","since":1795246000000,"ts":1795246010000.5,"tool":"Bash","detail":"make",
        "model":"claude-opus-4-5","effort":"high","cwd":"/home/kim/shop","project":"shop")"
    );
    const auto document = mimkin.json({"sessions", "--json", "--at", "1795246020000"});
    EXPECT_EQ(keys(document), (std::set<std::string>{"at", "sessions", "nextUp", "summary"}));
    EXPECT_EQ(document["at"], 1795246020000);
    EXPECT_EQ(document["summary"], "1 waiting on you");
    EXPECT_EQ(document["nextUp"], nlohmann::json::array({"s"}));
    const auto& session = document["sessions"][0];
    EXPECT_EQ(keys(session), (std::set<std::string>{"id",           "mood",      "moodLabel", "since",
                                                    "lastActivity", "project",   "title",     "tool",
                                                    "detail",       "message",   "localId",   "effort",
                                                    "model",        "folder",    "agent",     "openLink",
                                                    "supervising",  "activity",  "jumpURL",   "effortBoost",
                                                    "petName",      "petAction", "modelTag",  "repository",
                                                    "background",   "approval",  "subtasks"}));
    EXPECT_EQ(session["mood"], "needsPermission");
    EXPECT_EQ(session["moodLabel"], "Needs your OK");
    EXPECT_EQ(session["since"], 1795246000000);
    EXPECT_TRUE(session["since"].is_number_integer());
    EXPECT_EQ(session["lastActivity"], 1795246010000.5);
    EXPECT_EQ(session["activity"], "Bash: make");
    EXPECT_EQ(session["title"], nullptr);
    EXPECT_EQ(session["supervising"], false);
    EXPECT_EQ(
        session["modelTag"], nlohmann::json::parse(
                                 R"({"name":"Opus 4.5","family":"opus","pips":3,
                                 "summary":"Opus 4.5 (claude-opus-4-5), effort high"})"
                             )
    );
    EXPECT_EQ(session["subtasks"], nlohmann::json::array());
}

TEST(SessionsJson, TakesTheMomentAndTheRulesOfTheHome) {
    const Mimkin mimkin;
    status(mimkin, "s", R"("state":"working","since":1795246000000,"ts":1795246000000)");
    const auto mood = [&mimkin](const std::string& at) {
        const auto document = mimkin.json({"sessions", "--json", "--at", at});
        return document["sessions"].empty() ? "" : document["sessions"][0]["mood"].get<std::string>();
    };
    EXPECT_EQ(mood("1795246600000"), "working");
    EXPECT_EQ(mood("1795246601000"), "stuck");
    EXPECT_EQ(mood("1795248000000"), "");
    writeFile(
        mimkin.paths().preferencesFolder() + "/app.mimkins.json",
        R"({"stuckAfterMinutes":1,"leaveAfterMinutes":600})"
    );
    EXPECT_EQ(mood("1795246061000"), "stuck");
    EXPECT_EQ(mood("1795248000000"), "stuck");
    writeFile(mimkin.paths().preferencesFolder() + "/app.mimkins.json", "broken");
    EXPECT_EQ(mood("1795246061000"), "working");
}

TEST(SessionsJson, ReadsTheRegistryOfTheHome) {
    const Mimkin mimkin;
    writeFile(
        mimkin.paths().clientRegistry() + "/1.json",
        R"({"sessionId":"s","status":"busy","cwd":"/home/kim/shop",
        "statusUpdatedAt":1795246000000,"pid":)" +
            std::to_string(::getpid()) + "}"
    );
    const auto document = mimkin.json({"sessions", "--json", "--at", "1795246001000"});
    ASSERT_EQ(document["sessions"].size(), 1U);
    EXPECT_EQ(document["sessions"][0]["mood"], "working");
    EXPECT_EQ(document["sessions"][0]["project"], "shop");
}

TEST(SessionsJson, HostileFolderCostsNothing) {
    const Mimkin mimkin;
    const auto folder = mimkin.paths().sessions();
    status(mimkin, "good", R"("state":"done","since":1795246000000,"ts":1795246000000)");
    status(mimkin, "huge", R"("state":"done","since":1e400,"ts":1)");
    status(mimkin, "far", R"("state":"working","since":-1e300,"ts":1e300)");
    writeFile(folder + "/deep.json", std::string(1'000'000, '['));
    writeFile(folder + "/bytes.json", std::string("\xff\x00\xfe", 3));
    std::filesystem::create_directory(folder + "/folder.json");
    std::filesystem::create_symlink("loop.json", folder + "/loop.json");
    std::filesystem::create_symlink("/dev/zero", folder + "/zero.json");
    ASSERT_EQ(::mkfifo((folder + "/fifo.json").c_str(), 0600), 0);
    writeFile(folder + "/sparse.json", "{");
    std::filesystem::resize_file(folder + "/sparse.json", 10ULL << 30U);
    const auto document = mimkin.json({"sessions", "--json", "--at", "1795246001000"});
    ASSERT_EQ(document["sessions"].size(), 2U) << document.dump(1);
    EXPECT_EQ(document["sessions"][0]["id"], "far");
    EXPECT_EQ(document["sessions"][1]["id"], "good");
}

TEST(SessionsTable, IsForPeople) {
    const Mimkin mimkin;
    EXPECT_EQ(mimkin.run({"sessions"}).output, "No pets out\n");
    status(
        mimkin, "s", R"("state":"done","since":1795246000000,"ts":1795246000000,"title":"A \u001b[31mtitle")"
    );
    const auto output = mimkin.run({"sessions", "--at", "1795246065000"}).output;
    EXPECT_NE(output.find("New reply  1m"), std::string::npos) << output;
    EXPECT_NE(output.find("1 new reply"), std::string::npos);
    EXPECT_EQ(output.find('\033'), std::string::npos) << "outside text can't steer the terminal";
}

TEST(SessionsCommand, RefusesAMomentForAWatch) {
    const Mimkin mimkin;
    EXPECT_EQ(mimkin.run({"sessions", "--watch", "--at", "1"}).status, 2);
    EXPECT_EQ(mimkin.run({"sessions", "--at", "noon"}).status, 2);
}

TEST(HooksCommand, ConnectsAndDisconnects) {
    const Mimkin mimkin;
    EXPECT_EQ(mimkin.json({"hooks", "status", "--json"})["status"], "noClaudeCode");
    std::filesystem::create_directory(mimkin.paths().clientFolder());
    EXPECT_EQ(mimkin.json({"hooks", "status", "--json"})["status"], "notConnected");
    const auto connected = mimkin.json({"hooks", "connect", "--json"});
    EXPECT_EQ(connected["status"], "connected");
    EXPECT_EQ(connected["backup"], nullptr);
    EXPECT_EQ(connected["message"], "Connected.");
    EXPECT_EQ(mimkin.run({"hooks", "status"}).output, "Connected.\n");
    const auto disconnected = mimkin.json({"hooks", "disconnect", "--json"});
    EXPECT_EQ(disconnected["status"], "notConnected");
    EXPECT_TRUE(std::filesystem::exists(disconnected["backup"].get<std::string>()));
    EXPECT_EQ(
        disconnected["message"],
        "Disconnected. Mimkins' hook entries were removed; everything else is as it was."
    );
}

TEST(HooksCommand, FailureSaysWhy) {
    const Mimkin mimkin;
    writeFile(mimkin.paths().clientSettings(), "[]");
    const auto result = mimkin.run({"hooks", "connect", "--json"});
    EXPECT_EQ(result.status, 1);
    const auto document = nlohmann::json::parse(result.output);
    EXPECT_EQ(
        document["message"], "Couldn't connect: settings.json isn't a JSON object, so it was left alone."
    );
    EXPECT_EQ(document["backup"], nullptr);
    EXPECT_EQ(mimkin.run({"hooks", "disconnect"}).status, 1);
}
