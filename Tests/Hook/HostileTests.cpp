#include "Hook/HookRun.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <thread>

/// Surroundings and documents that mean harm: the script ends with 0, says nothing and leaves a whole record
/// or none.
namespace mimkins::test {
namespace {

using nlohmann::json;
namespace files = std::filesystem;

std::string stop(const std::string& id = "s1") {
    return json{{"session_id", id}, {"hook_event_name", "Stop"}, {"cwd", "/a/b"}}.dump();
}

ProgramResult runLine(const HookRun& hook, const std::string& line, const std::string& input) {
    ProgramCall call;
    call.words = {"/usr/bin/bash", "-c", line, "line", hook.script()};
    call.environment = {{"PATH", hook.path()}};
    call.input = input;
    return runProgram(call);
}

void expectQuiet(const ProgramResult& result) {
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
}

class HookHostile : public testing::TestWithParam<HookPair> {
protected:
    HookRun hook{GetParam()};
};

TEST_P(HookHostile, IdsNeverLeadOutOfTheFolder) {
    const std::vector<std::pair<std::string, std::string>> names{
        {"../../evil", "_2e._2f.._2fevil"},
        {".hidden", "_2ehidden"},
        {"a/b", "a_2fb"},
        {"a_b", "a_5fb"},
        {"..", "_2e."},
        {"-rf *", "-rf_20_2a"},
        {"é", "_c3_a9"},
        {"$(x)`y`", "_24_28x_29_60y_60"},
        {"a\"b", "a_5c_22b"},
        {"A.b-1", "A.b-1"}};
    for (const auto& [id, name] : names) {
        hook.removeRecords();
        hook.feed(stop(id));
        EXPECT_EQ(hook.files(), std::vector<std::string>{name + ".json"});
        ASSERT_TRUE(hook.record(name)) << id;
        EXPECT_EQ(hook.record(name)->at("id"), id);
    }
    hook.removeRecords();
    hook.feed(stop(""));
    hook.feed(stop(std::string(129, 'x')));
    hook.feed(stop(std::string(100, '/')));
    EXPECT_TRUE(hook.files().empty());
    hook.feed(stop(std::string(128, 'x')));
    EXPECT_EQ(hook.files().size(), 1U);
}

TEST_P(HookHostile, HalvesOfSurrogatePairsAreReplaced) {
    hook.feed(std::string_view(
        R"({"session_id":"s1","hook_event_name":"PreToolUse","tool_name":"x\ud83d","tool_input":)"
        R"({"command":"\ude00\ud83d\ude00\ud83d\ud83d\ude00\uD83Dz\\ud83d"}})"
    ));
    const auto record = hook.record("s1");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->at("tool"), "x\ufffd");
    EXPECT_EQ(record->at("detail"), "\ufffd😀\ufffd😀\ufffdz\\ud83d");
}

TEST_P(HookHostile, DetailIsNeverCutInsideACharacter) {
    for (const auto& [unit, whole] : std::vector<std::pair<std::string, std::string>>{
             {"é", "é"},
             {"日", "日"},
             {"😀", "😀"},
             {R"(\ud83d\ude00)", "😀"},
             {R"(\")", "\""},
             {R"(\\)", "\\"},
             {R"(\u00e9)", "é"},
             {R"(\t)", "\t"}}) {
        for (int lead = 0; lead < 3; ++lead) {
            std::string command(static_cast<std::size_t>(lead), 'x');
            auto expected = command;
            expected.insert(0, "y");
            for (int count = 0; count < 3000; ++count) {
                command += unit;
                expected += count < 119 - lead ? whole : "";
            }
            hook.feed(
                R"({"session_id":"s1","hook_event_name":"PreToolUse","tool_input":{"command":"y)" + command +
                R"("}})"
            );
            EXPECT_EQ(hook.record("s1").value().at("detail"), expected) << unit;
        }
    }
}

TEST_P(HookHostile, BadTextCountsAsAbsent) {
    for (const auto* bad :
         {"\xff", "\xc3", "\xed\xa0\x80", "\xf5\x80\x80\x80", "\xc0\xaf", "\x01", "\n", "\\x", "\\u12"}) {
        hook.removeRecords();
        const std::string text(bad);
        hook.feed(
            R"({"session_id":"s1","hook_event_name":"PreToolUse","tool_name":"a)" + text + R"(b","cwd":"/c"})"
        );
        ASSERT_TRUE(hook.record("s1")) << text;
        EXPECT_FALSE(hook.record("s1")->contains("tool")) << text;
        EXPECT_EQ(hook.record("s1")->at("cwd"), "/c");
        hook.removeRecords();
        hook.feed(R"({"session_id":"a)" + text + R"(b","hook_event_name":"Stop"})");
        EXPECT_TRUE(hook.files().empty()) << text;
    }
}

TEST_P(HookHostile, NamesAndPathsThatAreTooLongCountAsAbsent) {
    const auto record = [&](std::size_t name, std::size_t path) {
        hook.tell(
            {{"session_id", "s1"},
             {"hook_event_name", "PreToolUse"},
             {"tool_name", std::string(name, 't')},
             {"model", std::string(name, 'm')},
             {"effort", {{"level", std::string(name, 'e')}}},
             {"cwd", std::string(path, 'c')},
             {"transcript_path", std::string(path, 'p')},
             {"tool_input", {{"file_path", std::string(path, 'f')}}}}
        );
        auto written = hook.record("s1").value();
        hook.removeRecords();
        return written;
    };
    const auto longest = record(256, 8192);
    const auto tooLong = record(257, 8193);
    for (const auto* key : {"tool", "model", "effort", "cwd", "project", "transcript", "detail"}) {
        EXPECT_TRUE(longest.contains(key)) << key;
        EXPECT_FALSE(tooLong.contains(key)) << key;
    }
}

TEST_P(HookHostile, DocumentsThatAreNoneLeaveNothing) {
    for (const auto* text :
         {"", " ", "null", "[]", "{}", "\"", "{", "}", R"({"session_id":"s1")",
          R"(["session_id","s1","hook_event_name","Stop"])",
          R"([{"session_id":"s1","hook_event_name":"Stop"}])",
          R"({"session_id":"s1","hook_event_name":"Stop"]})",
          R"({"session_id":"s1","hook_event_name":"Stop"}})",
          R"({"session_id":"s1","hook_event_name":"Stop"}{})",
          R"({"session_id":"s1","hook_event_name":"Stop"},"x")",
          R"({"session_id":"s1" "hook_event_name":"Stop"})",
          R"({"session_id":"s1","hook_event_name":["Stop"]})",
          R"({"x":{"session_id":"s1"},"hook_event_name":"Stop"})",
          R"({"session_id":7,"hook_event_name":"Stop"})"}) {
        hook.feed(std::string_view(text));
        EXPECT_TRUE(hook.files().empty()) << text;
    }
}

TEST_P(HookHostile, StrangeThingsInTheRecordsPlace) {
    ASSERT_EQ(::mkfifo(hook.recordPath("s1").c_str(), 0600), 0);
    hook.feed(stop());
    EXPECT_EQ(hook.record("s1").value().at("state"), "done");
    hook.removeRecords();
    files::create_directories(hook.recordPath("s1"));
    hook.feed(stop());
    EXPECT_TRUE(files::is_empty(hook.recordPath("s1")));
    hook.removeRecords();
    files::create_symlink("/dev/zero", hook.recordPath("s1"));
    hook.feed(stop());
    EXPECT_TRUE(files::is_regular_file(files::symlink_status(hook.recordPath("s1"))));
}

TEST_P(HookHostile, AnyOfFourProgramsPutsTheRecordIntoItsPlace) {
    const std::string klibc = "/usr/lib/klibc/bin/mv";
    hook.callByName(klibc, "klibc-mv");
    hook.replaceProgram("klibc-mv", "echo called >>'" + hook.script() + ".calls'\nexec " + klibc + " \"$@\"");
    for (const auto* program : {"klibc-mv", "rename.ul", "busybox", "mv"}) {
        hook.feed(stop(program));
        EXPECT_TRUE(hook.record(program)) << program;
        if (GetParam().awk != "busybox" || program != std::string("busybox")) {
            hook.replaceProgram(program, "exit 127");
        }
    }
    EXPECT_EQ(readWhole(hook.script() + ".calls"), "called\n");
    if (GetParam().awk != "busybox") {
        hook.feed(stop("none"));
        EXPECT_FALSE(hook.record("none"));
    }
}

TEST_P(HookHostile, AMachineWithoutTheFirstOfThem) {
    hook.callByName("/usr/lib/klibc/bin/mv", "absent");
    hook.feed(stop());
    EXPECT_TRUE(hook.record("s1"));
}

TEST_P(HookHostile, RecordsOfOtherSessionsThatAreStrangeDontMatter) {
    ASSERT_EQ(::mkfifo(hook.recordPath("s2").c_str(), 0600), 0);
    hook.feed(stop());
    const auto since = hook.record("s1").value().at("since");
    hook.feed(stop());
    EXPECT_EQ(hook.record("s1").value().at("since"), since);
}

TEST_P(HookHostile, NoRoomLeavesTheFormerRecord) {
    hook.feed(stop());
    const auto text = readWhole(hook.recordPath("s1"));
    std::string shell;
    for (const auto& word : hook.shell()) {
        shell += word + " ";
    }
    expectQuiet(runLine(hook, "trap '' XFSZ; ulimit -f 0; exec " + shell + "\"$1\"", stop()));
    EXPECT_EQ(hook.files(), std::vector<std::string>{"s1.json"});
    EXPECT_EQ(readWhole(hook.recordPath("s1")), text);
}

TEST_P(HookHostile, BareSurroundings) {
    std::string shell;
    for (const auto& word : hook.shell()) {
        shell += word + " ";
    }
    expectQuiet(runLine(hook, "exec /usr/bin/env -i " + shell + "-u \"$1\"", stop("bare")));
    EXPECT_TRUE(hook.record("bare"));
    expectQuiet(runLine(hook, "cd \"${1%/*}\" && exec " + shell + "status.sh", stop("near")));
    EXPECT_TRUE(hook.record("near"));
    expectQuiet(runLine(
        hook,
        "exec env LC_ALL=C.utf8 POSIXLY_CORRECT=1 IFS=e ENV=/x EPOCHREALTIME=1700000000.123456 " + shell +
            "\"$1\"",
        stop("foreign")
    ));
    ASSERT_TRUE(hook.record("foreign"));
    EXPECT_GT(hook.record("foreign")->at("ts").get<double>(), nowInMilliseconds() - 60'000);
    // Without an input there is nothing to wait for, least of all the script's own pipe.
    expectQuiet(runLine(hook, "exec timeout 20 " + shell + "\"$1\" <&-", ""));
    EXPECT_EQ(hook.files().size(), 3U);
}

TEST_P(HookHostile, InputIsReadToItsEndWithoutAFolder) {
    std::string shell;
    for (const auto& word : hook.shell()) {
        shell += word + " ";
    }
    const auto line = "{ head -c 3000000 /dev/zero; echo $? >&2; } | " + shell + "\"$1\"";
    EXPECT_EQ(runLine(hook, line, "").errors, "0\n");
    files::remove_all(hook.sessions());
    EXPECT_EQ(runLine(hook, line, "").errors, "0\n");
    expectQuiet(hook.run(stop()));
    EXPECT_FALSE(files::exists(hook.sessions()));
}

TEST_P(HookHostile, SignalsEndItWithoutATrace) {
    const TemporaryFolder folder;
    const auto pid = folder / "pid";
    std::string shell;
    for (const auto& word : hook.shell()) {
        shell += word + " ";
    }
    for (const auto* signal : {"TERM", "HUP", "INT", "PIPE"}) {
        writeFile(pid, "");
        // The signal comes while awk waits for the rest of the document.
        const auto line = "{ printf '{\"session_id\":\"s1\"'; until id=$(cat " + pid +
                          ") && [ -n \"$id\" ] && [ -n \"$(cat /proc/$id/task/$id/children)\" ]; " +
                          "do sleep 0.01; done; kill -" + signal +
                          " $id; printf ',\"hook_event_name\":\"Stop\"}'; } | { echo $BASHPID >" + pid +
                          "; exec " + shell + "\"$1\"; }";
        expectQuiet(runLine(hook, line, ""));
        EXPECT_TRUE(hook.files().empty()) << signal;
    }
}

TEST_P(HookHostile, TwoAtOnceLeaveOneWholeRecord) {
    std::vector<std::thread> threads;
    for (int count = 0; count < 4; ++count) {
        threads.emplace_back([this] {
            for (int round = 0; round < 4; ++round) {
                expectQuiet(hook.run(stop()));
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(hook.files(), std::vector<std::string>{"s1.json"});
    EXPECT_EQ(hook.record("s1").value().at("state"), "done");
}

INSTANTIATE_TEST_SUITE_P(Pairs, HookHostile, testing::ValuesIn(allHookPairs()), pairNameOf);

} // namespace
} // namespace mimkins::test
