#include "SessionStore/AppSessionReader.h"
#include "SessionStore/RegistryReader.h"
#include "SessionStore/StatusReader.h"
#include "SessionStore/TranscriptLocation.h"
#include "Support/FakeProcesses.h"
#include "Support/MemoryFileSystem.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>

using namespace mimkins;
using namespace mimkins::test;

namespace {

const char* const fullRecord = R"({"state":"waiting","since":1000.5,"id":"s","event":"PermissionRequest",
"tool":"Bash","detail":"d","message":"m","notification":"n","cwd":"/c","project":"p","transcript":"/t.jsonl",
"effort":"high","model":"x","ts":2000,"agent":"other","title":"t","pid":12,"open":"https://o","unknown":[1,{}]})";

std::string record(const std::string& id, double ts, const std::string& state = "working") {
    return R"({"state":")" + state + R"(","since":1,"id":")" + id + R"(","event":"E","ts":)" +
           std::to_string(ts) + "}";
}

} // namespace

TEST(StatusRecordReader, TakesEveryField) {
    const auto read = parseStatusRecord(fullRecord);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->state, "waiting");
    EXPECT_EQ(read->since, 1000.5);
    EXPECT_EQ(read->ts, 2000);
    EXPECT_EQ(read->id, "s");
    EXPECT_EQ(read->event, "PermissionRequest");
    EXPECT_EQ(read->tool, "Bash");
    EXPECT_EQ(read->detail, "d");
    EXPECT_EQ(read->message, "m");
    EXPECT_EQ(read->notification, "n");
    EXPECT_EQ(read->cwd, "/c");
    EXPECT_EQ(read->project, "p");
    EXPECT_EQ(read->transcript, "/t.jsonl");
    EXPECT_EQ(read->effort, "high");
    EXPECT_EQ(read->model, "x");
    EXPECT_EQ(read->agent, "other");
    EXPECT_EQ(read->title, "t");
    EXPECT_EQ(read->pid, 12);
    EXPECT_EQ(read->open, "https://o");
}

TEST(StatusRecordReader, IsStrict) {
    EXPECT_FALSE(parseStatusRecord(R"({"state":"done","since":1,"id":"s","event":"E"})")) << "no ts";
    EXPECT_FALSE(parseStatusRecord(R"({"state":"done","since":1,"id":"s","event":"E","ts":2,"pid":"12"})"));
    EXPECT_FALSE(parseStatusRecord(R"({"state":"done","since":1,"id":"s","event":"E","ts":2,"pid":1.5})"));
    EXPECT_FALSE(
        parseStatusRecord(R"({"state":"done","since":1,"id":"s","event":"E","ts":2,"pid":4294967296})")
    );
    EXPECT_FALSE(parseStatusRecord(R"({"state":"done","since":1,"id":"s","event":"E","ts":2,"cwd":7})"));
    EXPECT_FALSE(parseStatusRecord(R"({"state":"done","since":true,"id":"s","event":"E","ts":2})"));
    EXPECT_FALSE(parseStatusRecord(R"({"state":"done","since":1,"id":null,"event":"E","ts":2})"));
    EXPECT_FALSE(parseStatusRecord(R"([{"state":"done","since":1,"id":"s","event":"E","ts":2}])"));
    EXPECT_TRUE(parseStatusRecord(R"({"state":"done","since":1,"id":"s","event":"E","ts":2,"cwd":null})"));
}

TEST(StatusRecordReader, KeepsTheFreshestOfEachSession) {
    MemoryFileSystem files;
    files.write("/new/a.json", record("s", 10, "working"));
    files.write("/old/a.json", record("s", 11, "done"));
    files.write("/new/other name.json", record("t", 5));
    files.write("/new/negative.json", record("u", -1));
    files.write("/new/zero.json", record("v", 0));
    const auto records = readStatusRecords(files, {"/new", "/old", "/missing"});
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records.at("s").state, "done");
    EXPECT_TRUE(records.contains("t")) << "file names carry no meaning";
    EXPECT_TRUE(records.contains("v"));
}

TEST(StatusRecordReader, LaterOfEquallyFreshFilesStands) {
    MemoryFileSystem files;
    files.write("/new/a.json", record("s", 10, "working"));
    files.write("/new/b.json", record("s", 10, "waiting"));
    EXPECT_EQ(readStatusRecords(files, {"/new"}).at("s").state, "waiting");
    files.write("/old/a.json", record("s", 10, "done"));
    EXPECT_EQ(readStatusRecords(files, {"/new", "/old"}).at("s").state, "done");
}

TEST(StatusRecordReader, SkipsHiddenAndForeignNames) {
    MemoryFileSystem files;
    files.write("/new/.a.json", record("s", 10));
    files.write("/new/b.JSON", record("t", 10));
    files.write("/new/c.json.tmp", record("u", 10));
    files.write("/new/d.json", "{");
    files.write("/new/json", record("v", 10));
    EXPECT_TRUE(readStatusRecords(files, {"/new"}).empty());
}

TEST(StatusRecordReader, NeverThrowsOnRandomBytes) {
    EXPECT_TRUE(rc::check([](const std::string& bytes) {
        parseStatusRecord(bytes);
        parseRegistryEntry(bytes);
        parseAppSession(bytes);
    }));
    const std::string whole = fullRecord;
    EXPECT_TRUE(rc::check([&whole] {
        std::string bytes = whole;
        const auto cut = *rc::gen::inRange<std::size_t>(0, bytes.size());
        bytes[cut] = static_cast<char>(*rc::gen::inRange(0, 256));
        parseStatusRecord(bytes);
        RC_ASSERT(!parseStatusRecord(whole.substr(0, cut)));
    }));
}

TEST(RegistryReader, IsTolerantOfEveryOptionalField) {
    const auto entry = parseRegistryEntry(
        R"({"sessionId":"s","status":"busy","pid":7,"cwd":"12","name":3,"hostSessionId":[],"waitingFor":{},
        "statusUpdatedAt":"soon","updatedAt":2500,"startedAt":null})"
    );
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->cwd, "12");
    EXPECT_EQ(entry->name, std::nullopt);
    EXPECT_EQ(entry->localId, std::nullopt);
    EXPECT_EQ(entry->waitingFor, std::nullopt);
    EXPECT_EQ(entry->updated, Date{2.5});
    EXPECT_EQ(entry->started, Date{0});
    EXPECT_EQ(parseRegistryEntry(R"({"sessionId":"s","status":"busy","pid":7,"cwd":5})")->cwd, std::nullopt);
    EXPECT_EQ(
        parseRegistryEntry(R"({"sessionId":"s","status":"x","pid":1,"statusUpdatedAt":1000,"updatedAt":9})")
            ->updated,
        Date{1}
    );
    EXPECT_FALSE(parseRegistryEntry(R"({"sessionId":"s","status":"busy","pid":"7"})"));
    EXPECT_FALSE(parseRegistryEntry(R"({"sessionId":"s","pid":7})"));
    EXPECT_FALSE(parseRegistryEntry(R"({"status":"busy","pid":7})"));
    EXPECT_FALSE(parseRegistryEntry("[]"));
}

namespace {

constexpr Date now{1'795'246'000};

/// A registry with one file that says what a session does.
class RegistryReaderTest : public testing::Test {
protected:
    RegistryReaderTest() { processes.processes[7] = {}; }

    static std::string entry(const std::string& id, const std::string& status, int pid = 7) {
        return R"({"sessionId":")" + id + R"(","status":")" + status + R"(","pid":)" + std::to_string(pid) +
               "}";
    }

    std::string status(Date date = now) {
        const auto entries = reader.read("/r", date);
        return entries.contains("s") ? entries.at("s").status : "none";
    }

    MemoryFileSystem files;
    FakeProcesses processes;
    RegistryReader reader{files, processes};
};

} // namespace

TEST(StatusRecordReader, AFileIsReadOnlyWhenItChanges) {
    MemoryFileSystem files;
    StatusReader reader(files);
    const auto state = [&reader] { return reader.read({"/new", "/old"}, now).at("s").state; };
    files.write("/new/a.json", record("s", 10, "working"));
    files.write("/old/a.json", record("s", 9, "idle"));
    EXPECT_EQ(state(), "working");
    EXPECT_EQ(state(), "working");
    EXPECT_EQ(files.reads("/new/a.json"), 1);
    files.write("/new/a.json", record("s", 11, "waiting"));
    EXPECT_EQ(state(), "waiting");
    EXPECT_EQ(files.reads("/old/a.json"), 1);
    files.remove("/new/a.json");
    EXPECT_EQ(state(), "idle");
    files.remove("/old/a.json");
    EXPECT_TRUE(reader.read({"/new", "/old"}, now).empty());
}

TEST_F(RegistryReaderTest, KeepsOnlyLivingProcesses) {
    files.write("/r/.hidden.json", entry("s", "busy"));
    files.write("/r/8.json", entry("gone", "busy", 8));
    files.write("/r/9.txt", entry("t", "busy"));
    const auto entries = reader.read("/r", now);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_TRUE(entries.contains("s")) << "only the status folders skip hidden files";

    processes.processes.erase(7);
    EXPECT_TRUE(reader.read("/r", now).empty());
    EXPECT_TRUE(reader.read("/missing", now).empty());
    processes.processes[8] = {};
    EXPECT_TRUE(reader.read("/r", now).contains("gone"));
}

TEST_F(RegistryReaderTest, LaterFileOfOneSessionStands) {
    files.write("/r/1.json", entry("s", "busy"));
    files.write("/r/2.json", entry("s", "idle"));
    EXPECT_EQ(status(), "idle");
    files.remove("/r/2.json");
    EXPECT_EQ(status(), "busy");
}

TEST_F(RegistryReaderTest, AFileIsReadOnlyWhenItChanges) {
    files.write("/r/1.json", entry("s", "busy"));
    EXPECT_EQ(status(), "busy");
    EXPECT_EQ(status(), "busy");
    EXPECT_EQ(files.reads("/r/1.json"), 1);
    files.write("/r/1.json", entry("s", "idle"));
    EXPECT_EQ(status(), "idle") << "another file of the same size and time";
    files.write("/r/1.json", "");
    EXPECT_EQ(status(), "none") << "cut short";
    EXPECT_EQ(status(), "none");
    EXPECT_EQ(files.reads("/r/1.json"), 3) << "what can't be used isn't tried again either";
    files.remove("/r/1.json");
    EXPECT_EQ(status(), "none");
    files.write("/r/1.json", entry("s", "waiting"));
    EXPECT_EQ(status(), "waiting");
}

TEST_F(RegistryReaderTest, AChangeThatAFileTimeMayNotShowIsRead) {
    files.write("/r/1.json", entry("s", "busy"), fileTime(1'795'246'000, 1));
    for (const double age : {0.0, 0.05, 0.2, 0.3, 1.0}) {
        EXPECT_EQ(status(now + age), "busy");
    }
    EXPECT_EQ(files.reads("/r/1.json"), 3);
}

TEST_F(RegistryReaderTest, AFileThatCouldNotBeReadIsTriedAgain) {
    files.write("/r/1.json", entry("s", "busy"));
    files.setReadable("/r/1.json", false);
    EXPECT_EQ(status(), "none");
    files.setReadable("/r/1.json", true);
    EXPECT_EQ(status(), "busy");
}

namespace {

std::string metadata(const std::string& id, const std::string& rest = "") {
    return R"({"cliSessionId":")" + id + R"(","sessionId":"local_1")" + rest + "}";
}

} // namespace

TEST(AppSessionReader, TakesEveryField) {
    const auto parsed = parseAppSession(metadata("s", R"(,"title":"T","isArchived":true,"lastFocusedAt":1000,
        "gitAnchors":[{"gitRoot":"/a"},{"gitRoot":"/b"}],"effort":"high","lastActivityAt":2000,"model":"m")")
    );
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->first, "s");
    EXPECT_EQ(parsed->second.localId, "local_1");
    EXPECT_EQ(parsed->second.title, "T");
    EXPECT_TRUE(parsed->second.archived);
    EXPECT_EQ(parsed->second.lastFocused, Date{1});
    EXPECT_EQ(parsed->second.gitRoot, "/a") << "only the first anchor counts";
    EXPECT_EQ(parsed->second.effort, "high");
    EXPECT_EQ(parsed->second.lastActivity, Date{2});
    EXPECT_EQ(parsed->second.model, "m");
}

TEST(AppSessionReader, ToleratesWrongTypes) {
    const auto parsed =
        parseAppSession(metadata("s", R"(,"isArchived":"yes","gitAnchors":[],"lastFocusedAt":"x")"));
    ASSERT_TRUE(parsed);
    EXPECT_FALSE(parsed->second.archived);
    EXPECT_EQ(parsed->second.gitRoot, std::nullopt);
    EXPECT_EQ(parsed->second.lastFocused, std::nullopt);
    EXPECT_EQ(
        parseAppSession(metadata("s", R"(,"gitAnchors":[{"x":1},{"gitRoot":"/b"}])"))->second.gitRoot,
        std::nullopt
    );
    EXPECT_FALSE(parseAppSession(R"({"cliSessionId":"s"})"));
    EXPECT_FALSE(parseAppSession(R"({"sessionId":"s"})"));
}

TEST(AppSessionReader, ReadsAFileAgainOnlyWhenItsDateChanges) {
    MemoryFileSystem files;
    AppSessionReader reader(files);
    files.write("/d/a/b/local_1.json", metadata("s"), fileTime(1));
    reader.reload("/d");
    EXPECT_FALSE(reader.sessions().at("s").archived);
    files.write("/d/a/b/local_1.json", metadata("s", R"(,"isArchived":true)"), fileTime(1));
    reader.reload("/d");
    EXPECT_FALSE(reader.sessions().at("s").archived);
    EXPECT_EQ(files.reads("/d/a/b/local_1.json"), 1);
    files.setTime("/d/a/b/local_1.json", fileTime(1, 1));
    reader.reload("/d");
    EXPECT_TRUE(reader.sessions().at("s").archived);
}

TEST(AppSessionReader, ABrokenFileWaitsForItsDateToo) {
    MemoryFileSystem files;
    AppSessionReader reader(files);
    files.write("/d/a/b/local_1.json", "{", fileTime(1));
    reader.reload("/d");
    reader.reload("/d");
    EXPECT_EQ(files.reads("/d/a/b/local_1.json"), 1);
    files.write("/d/a/b/local_1.json", metadata("s"), fileTime(2));
    reader.reload("/d");
    EXPECT_TRUE(reader.sessions().contains("s"));
}

TEST(AppSessionReader, TwoFilesWithOneId) {
    MemoryFileSystem files;
    AppSessionReader reader(files);
    files.write("/d/a/b/local_1.json", metadata("s", R"(,"title":"one")"), fileTime(1));
    files.write("/d/a/b/local_2.json", metadata("s", R"(,"title":"two")"), fileTime(1));
    reader.reload("/d");
    EXPECT_EQ(reader.sessions().at("s").title, "two");
    files.setTime("/d/a/b/local_1.json", fileTime(2));
    reader.reload("/d");
    EXPECT_EQ(reader.sessions().at("s").title, "one");
    files.remove("/d/a/b/local_1.json");
    reader.reload("/d");
    EXPECT_FALSE(reader.sessions().contains("s"));
    files.setTime("/d/a/b/local_2.json", fileTime(3));
    reader.reload("/d");
    EXPECT_EQ(reader.sessions().at("s").title, "two");
}

TEST(AppSessionReader, LooksTwoLevelsDownAndAtTheRightNames) {
    MemoryFileSystem files;
    AppSessionReader reader(files);
    files.write("/d/local_1.json", metadata("s"));
    files.write("/d/a/local_1.json", metadata("s"));
    files.write("/d/a/b/c/local_1.json", metadata("s"));
    files.write("/d/a/b/remote_1.json", metadata("s"));
    files.write("/d/a/b/local_1.txt", metadata("s"));
    reader.reload("/d");
    EXPECT_TRUE(reader.sessions().empty());
}

TEST(TranscriptLocation, PrefersTheRecordAndComposesOtherwise) {
    const Paths paths("/home/kim");
    StatusRecord hook;
    RegistryEntry entry;
    EXPECT_EQ(transcriptPath(paths, "s", nullptr, nullptr), std::nullopt);
    EXPECT_EQ(transcriptPath(paths, "s", &hook, &entry), std::nullopt);
    entry.cwd = "/home/kim/my app_v1.2";
    EXPECT_EQ(
        transcriptPath(paths, "s", &hook, &entry), "/home/kim/.claude/projects/-home-kim-my-app-v1-2/s.jsonl"
    );
    EXPECT_EQ(
        subagentsFolder(paths, "s", &hook, &entry),
        "/home/kim/.claude/projects/-home-kim-my-app-v1-2/s/subagents"
    );
    hook.transcript = "x/abc.jsonl";
    EXPECT_EQ(transcriptPath(paths, "s", &hook, &entry), "x/abc.jsonl");
    EXPECT_EQ(subagentsFolder(paths, "s", &hook, nullptr), "x/abc/subagents");
    hook.transcript = "x/abc.log";
    EXPECT_EQ(transcriptPath(paths, "s", &hook, &entry), "x/abc.log");
    EXPECT_EQ(
        subagentsFolder(paths, "s", &hook, &entry),
        "/home/kim/.claude/projects/-home-kim-my-app-v1-2/s/subagents"
    );
    EXPECT_EQ(subagentsFolder(paths, "s", &hook, nullptr), std::nullopt);
}
