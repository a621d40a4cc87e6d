#include "Demo/ScriptActs.h"

namespace mimkins::demo {

namespace {

constexpr double minute = 60;

constexpr const char* readSource = R"({"file_path":"$DIR/src/main.cpp"})";
constexpr const char* editSource =
    R"({"file_path":"$DIR/src/main.cpp","old_string":"line 4","new_string":"line four"})";
constexpr const char* editTests =
    R"({"file_path":"$DIR/tests/main.cpp","old_string":"line 9","new_string":"line nine"})";
constexpr const char* runTests = R"({"command":"ctest --output-on-failure","description":"Run the tests"})";
constexpr const char* commitAll =
    R"({"command":"git commit --all --message Repair","description":"Commit the repair"})";

} // namespace

Act arrivalAct() {
    return {"arrival", 3 * minute, {{0, Deed::arrives, "", "", "", ""}}};
}

Act departureAct() {
    return {"departure", 4 * minute, {{0, Deed::leaves, "", "", "", ""}}};
}

Act repairAct() {
    return {
        "repair",
        44 * minute,
        {
            {0, Deed::prompts, "", "", "The second reading is sometimes lost. Find out why.", ""},
            {40, Deed::calls, "look", "Grep", R"({"pattern":"reading\\(","path":"$DIR/src"})", ""},
            {47, Deed::returns, "look", "", "src/main.cpp:4", ""},
            {90, Deed::calls, "read", "Read", readSource, ""},
            {96, Deed::returns, "read", "", "1\tline 1", ""},
            {210, Deed::calls, "edit", "Edit", editSource, ""},
            {214, Deed::edits, "", "src/main.cpp", "", ""},
            {215, Deed::returns, "edit", "", "The file has been updated.", ""},
            {270, Deed::calls, "tests", "Bash", runTests, ""},
            {480, Deed::fails, "tests", "", "Exit code 8\n1 test failed out of 12", ""},
            {720, Deed::calls, "again", "Edit", editTests, ""},
            {724, Deed::edits, "", "tests/main.cpp", "", ""},
            {725, Deed::returns, "again", "", "The file has been updated.", ""},
            {760, Deed::calls, "pass", "Bash", runTests, ""},
            {960, Deed::returns, "pass", "", "100% tests passed", ""},
            {1'020, Deed::stops, "", "", "The buffer was read too early; repaired and tested.", ""},
            {1'740, Deed::prompts, "", "", "Good. Commit it.", ""},
            {1'780, Deed::calls, "commit", "Bash", commitAll, ""},
            {1'800, Deed::commits, "", "", "Read the buffer after it is full", ""},
            {1'804, Deed::returns, "commit", "", "2 files changed", ""},
            {1'840, Deed::stops, "", "", "Committed.", ""},
            {2'220, Deed::looks, "", "", "", ""},
        }};
}

Act backgroundAct() {
    return {
        "background",
        42 * minute,
        {
            {0, Deed::prompts, "", "", "Watch the build, and look at the nightly run tomorrow.", ""},
            {50, Deed::calls, "watch", "Bash",
             R"({"command":"make watch","description":"Watch the build","run_in_background":true})", ""},
            {53, Deed::returns, "watch", "", "", ""},
            {90, Deed::calls, "once", "CronCreate",
             R"({"cron":"30 14 2 12 *","prompt":"Check the nightly build","recurring":false})", ""},
            {92, Deed::returns, "once", "", "", ""},
            {120, Deed::calls, "weekly", "CronCreate",
             R"({"cron":"0 9 * * 1","prompt":"Write the weekly report","recurring":true})", ""},
            {122, Deed::returns, "weekly", "", "", ""},
            {150, Deed::stops, "", "", "The build is being watched.", ""},
            {1'500, Deed::backgroundEnds, "watch", "", "", ""},
            {1'560, Deed::calls, "forget", "CronDelete", R"({"id":"$once"})", ""},
            {1'562, Deed::returns, "forget", "", "Cancelled.", ""},
            {1'570, Deed::calls, "rest", "CronDelete", R"({"id":"$weekly"})", ""},
            {1'572, Deed::returns, "rest", "", "Cancelled.", ""},
            {1'680, Deed::stops, "", "", "The build is whole again.", ""},
            {2'100, Deed::looks, "", "", "", ""},
        }};
}

Act crewAct() {
    return {
        "crew",
        48 * minute,
        {
            {0, Deed::prompts, "", "", "Compare the three ways to store the letters.", ""},
            {30, Deed::sendsSubagent, "files", "Explore", "Measure plain files", ""},
            {36, Deed::sendsSubagent, "tables", "general-purpose", "Measure a table", ""},
            {42, Deed::sendsSubagent, "words", "general-purpose", "Read what others found", ""},
            {90, Deed::subagentCalls, "count", "Grep", R"({"pattern":"From:","path":"$DIR"})", "files"},
            {96, Deed::subagentReturns, "count", "", "40 files", "files"},
            {120, Deed::subagentCalls, "fetch", "WebFetch", R"({"url":"https://example.org/letters"})",
             "words"},
            {420, Deed::subagentCalls, "time", "Bash",
             R"({"command":"time ./measure --table","description":"Measure the table"})", "tables"},
            {430, Deed::subagentAsks, "time", "", "", "tables"},
            {960, Deed::grants, "time", "", "", ""},
            {1'080, Deed::subagentReturns, "time", "", "0.4 s", "tables"},
            {1'140, Deed::subagentReturns, "fetch", "", "A page about letters", "words"},
            {1'200, Deed::subagentEnds, "files", "", "Plain files take 2 s.", ""},
            {1'260, Deed::stops, "", "", "Two of them still measure; I'll sum up when they are done.", ""},
            {1'920, Deed::subagentEnds, "tables", "", "The table takes 0.4 s.", ""},
            {2'040, Deed::subagentEnds, "words", "", "Others say the same.", ""},
            {2'100, Deed::prompts, "", "", "And which one is it?", ""},
            {2'160, Deed::stops, "", "", "The table.", ""},
            {2'640, Deed::looks, "", "", "", ""},
        }};
}

Act compactionAct() {
    return {
        "compaction",
        40 * minute,
        {
            {0, Deed::prompts, "", "", "Go on with the index of names.", ""},
            {60, Deed::calls, "read", "Read", readSource, ""},
            {66, Deed::returns, "read", "", "1\tline 1", ""},
            {240, Deed::compacts, "", "", "", ""},
            {600, Deed::compacted, "", "", "", ""},
            {660, Deed::calls, "search", "WebSearch", R"({"query":"sorting names of several languages"})",
             ""},
            {840, Deed::returns, "search", "", "Seven results", ""},
            {960, Deed::stops, "", "", "The index is in order.", ""},
            {1'080, Deed::looks, "", "", "", ""},
            {1'200, Deed::waitsSince, "", "", "", "", 1'440 * minute},
        }};
}

Act stuckAct() {
    return {
        "stuck",
        40 * minute,
        {
            {0, Deed::prompts, "", "", "Measure the whole archive.", ""},
            {60, Deed::calls, "measure", "Bash",
             R"({"command":"./measure --all","description":"Measure the archive"})", ""},
            {300, Deed::silentSince, "", "", "", "", 15 * minute},
            {1'200, Deed::fails, "measure", "", "Exit code 137", ""},
            {1'560, Deed::calls, "less", "Bash",
             R"({"command":"./measure --half","description":"Measure half of it"})", ""},
            {1'740, Deed::returns, "less", "", "done", ""},
            {1'800, Deed::stops, "", "", "The whole is too large; half of it is measured.", ""},
        }};
}

} // namespace mimkins::demo
