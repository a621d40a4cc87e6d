#include "Hook/HookRun.h"

#include <gtest/gtest.h>

#include <filesystem>

/// What each event makes of the former record, where the recorded run doesn't show it.
namespace mimkins::test {
namespace {

using nlohmann::json;

class HookRules : public testing::Test {
protected:
    json payload(const std::string& event, const json& more = json::object()) const {
        json value{
            {"session_id", "s1"},
            {"cwd", "/home/kim/shop"},
            {"transcript_path", "/t.jsonl"},
            {"hook_event_name", event}};
        value.update(more);
        return value;
    }

    json after(const std::string& event, const json& more = json::object()) const {
        hook.tell(payload(event, more));
        return now();
    }

    json now() const { return hook.record("s1").value_or(json::object()); }

    /// Makes the former record older, so that a state that begins anew can be told from one that stays.
    json age() const {
        auto record = now();
        record["since"] = record["since"].get<std::int64_t>() - 60'000;
        record["ts"] = record["ts"].get<std::int64_t>() - 50'000;
        writeFile(hook.recordPath("s1"), record.dump());
        return record;
    }

    static json bash(const std::string& command = "ls") {
        return {{"tool_name", "Bash"}, {"tool_input", {{"command", command}}}};
    }

    static json notification(const std::string& type) {
        return {{"notification_type", type}, {"message", "Look here"}};
    }

    HookRun hook;
};

TEST_F(HookRules, WorkStaysTheSameWork) {
    after("UserPromptSubmit", {{"prompt", "go"}});
    const auto since = age().at("since");
    EXPECT_EQ(after("PreToolUse", bash()).at("since"), since);
    EXPECT_EQ(after("PostToolUse", bash()).at("since"), since);
    EXPECT_EQ(after("PostToolUseFailure", bash()).at("since"), since);
    EXPECT_EQ(now().at("tool"), "Bash");
    EXPECT_EQ(after("UserPromptSubmit", {{"prompt", "<task-notification>x"}}).at("since"), since);
    const auto typed = after("UserPromptSubmit", {{"prompt", "more"}});
    EXPECT_EQ(typed.at("since"), typed.at("ts"));
}

TEST_F(HookRules, WaitForAnotherToolIsANewWait) {
    after("PermissionRequest", bash());
    const auto since = age().at("since");
    EXPECT_EQ(after("PermissionRequest", bash()).at("since"), since);
    EXPECT_EQ(after("Notification", notification("permission_prompt")).at("since"), since);
    EXPECT_EQ(now().at("tool"), "Bash");
    EXPECT_EQ(now().at("detail"), "ls");
    const auto other = after("PermissionRequest", {{"tool_name", "Edit"}});
    EXPECT_EQ(other.at("since"), other.at("ts"));
    EXPECT_FALSE(other.contains("detail"));
    EXPECT_FALSE(other.contains("message"));
}

TEST_F(HookRules, ElicitationIsAWaitOfItsOwn) {
    after("PreToolUse", {{"tool_name", "mcp__maps__find"}});
    age();
    const auto asked = after("Notification", notification("elicitation_dialog"));
    EXPECT_EQ(asked.at("state"), "waiting");
    EXPECT_EQ(asked.at("notification"), "elicitation_dialog");
    EXPECT_EQ(asked.at("tool"), "mcp__maps__find");
    EXPECT_EQ(asked.at("since"), asked.at("ts"));
    const auto since = age().at("since");
    EXPECT_EQ(after("Notification", notification("elicitation_dialog")).at("since"), since);
    const auto permission = after("Notification", notification("permission_prompt"));
    EXPECT_EQ(permission.at("since"), permission.at("ts"));
    EXPECT_FALSE(permission.contains("tool"));
}

TEST_F(HookRules, NotificationsThatDontBlockLeaveTheRecordAlone) {
    after("Stop");
    const auto text = readWhole(hook.recordPath("s1"));
    for (const auto* type : {"idle_prompt", "auth_success", "elicitation_complete", "", "permission"}) {
        hook.tell(payload("Notification", notification(type)));
        hook.tell(payload("Notification", {{"message", "Claude needs your permission"}}));
        EXPECT_EQ(readWhole(hook.recordPath("s1")), text) << type;
    }
    EXPECT_EQ(after("Notification", notification("permission_prompt")).at("state"), "waiting");
}

TEST_F(HookRules, SubagentsLeaveTheRecordAlone) {
    after("UserPromptSubmit", {{"prompt", "go"}});
    const auto text = readWhole(hook.recordPath("s1"));
    for (const auto* event : {"PreToolUse", "PermissionRequest", "Stop", "SessionEnd", "PreCompact"}) {
        hook.tell(payload(event, {{"agent_id", "a1"}, {"tool_name", "Bash"}}));
        EXPECT_EQ(readWhole(hook.recordPath("s1")), text) << event;
    }
    EXPECT_EQ(after("Stop", {{"agent_id", nullptr}}).at("state"), "done");
}

TEST_F(HookRules, StopTwiceIsOneEnd) {
    after("Stop");
    const auto since = age().at("since");
    EXPECT_EQ(after("Stop").at("since"), since);
}

TEST_F(HookRules, CompactionGoesBackToWhatWas) {
    after("Stop");
    const auto since = age().at("since");
    EXPECT_EQ(after("PreCompact", {{"trigger", "manual"}}).at("state"), "working");
    EXPECT_EQ(now().at("since"), now().at("ts"));
    after("PreCompact", {{"trigger", "manual"}});
    const auto done = after("SessionStart", {{"source", "compact"}});
    EXPECT_EQ(done.at("state"), "done");
    EXPECT_EQ(done.at("since"), since);
    EXPECT_FALSE(done.contains("before"));
}

TEST_F(HookRules, CompactionInATurnGoesOnWorking) {
    after("UserPromptSubmit", {{"prompt", "go"}});
    const auto since = age().at("since");
    after("PreCompact", {{"trigger", "auto"}});
    EXPECT_EQ(now().at("since"), since);
    EXPECT_EQ(now().at("event"), "PreCompact");
    const auto working = after("SessionStart", {{"source", "compact"}});
    EXPECT_EQ(working.at("state"), "working");
    EXPECT_EQ(working.at("since"), since);
}

TEST_F(HookRules, CompactionByHandEndsAnInterruptedTurn) {
    after("PermissionRequest", bash());
    age();
    const auto compacting = after("PreCompact", {{"trigger", "manual"}});
    const auto done = after("SessionStart", {{"source", "compact"}});
    EXPECT_EQ(done.at("state"), "done");
    EXPECT_EQ(done.at("since"), compacting.at("ts"));
}

TEST_F(HookRules, CompactWithoutItsBeginningChangesNothing) {
    after("PermissionRequest", bash());
    const auto since = age().at("since");
    const auto kept = after("SessionStart", {{"source", "compact"}});
    EXPECT_EQ(kept.at("state"), "waiting");
    EXPECT_EQ(kept.at("since"), since);
    EXPECT_EQ(kept.at("tool"), "Bash");
    EXPECT_EQ(kept.at("detail"), "ls");
    hook.removeRecords();
    EXPECT_EQ(after("SessionStart", {{"source", "compact"}}).at("state"), "idle");
}

TEST_F(HookRules, ResumeIsNoNewConversation) {
    after("SessionStart", {{"source", "startup"}, {"model", "m1"}});
    after("Stop", {{"effort", {{"level", "high"}}}});
    const auto since = age().at("since");
    const auto resumed = after("SessionStart", {{"source", "resume"}});
    EXPECT_EQ(resumed.at("state"), "done");
    EXPECT_EQ(resumed.at("since"), since);
    EXPECT_EQ(resumed.at("model"), "m1");
    EXPECT_EQ(resumed.at("effort"), "high");
    after("UserPromptSubmit", {{"prompt", "go"}});
    EXPECT_EQ(after("SessionStart", {{"source", "resume"}}).at("state"), "idle");
}

TEST_F(HookRules, NewConversationKeepsNothing) {
    for (const auto* source : {"startup", "clear"}) {
        after("SessionStart", {{"source", "startup"}, {"model", "m1"}});
        after("PreToolUse", {{"tool_name", "Bash"}, {"effort", {{"level", "high"}}}});
        age();
        const auto fresh = after("SessionStart", {{"source", source}});
        EXPECT_EQ(fresh.at("state"), "idle");
        EXPECT_EQ(fresh.at("since"), fresh.at("ts"));
        EXPECT_FALSE(fresh.contains("model"));
        EXPECT_FALSE(fresh.contains("effort"));
        EXPECT_FALSE(fresh.contains("tool"));
    }
}

TEST_F(HookRules, TitleOfTheFormerRecordStays) {
    auto record = after("Stop");
    record["title"] = "Fix \"it\", then\\ \"since\":5,";
    writeFile(hook.recordPath("s1"), record.dump());
    EXPECT_EQ(after("UserPromptSubmit", {{"prompt", "go"}}).at("title"), record.at("title"));
    EXPECT_EQ(after("PreToolUse", bash()).at("title"), record.at("title"));
}

TEST_F(HookRules, MembersInsideStringsDontCount) {
    after("PreToolUse", {{"tool_name", R"(x","since":1,"state":"done)"}});
    const auto since = age().at("since");
    const auto record = after("PreToolUse", bash());
    EXPECT_EQ(record.at("since"), since);
    EXPECT_EQ(record.at("state"), "working");
}

TEST_F(HookRules, RecordOfALaterEventStays) {
    auto record = after("Stop");
    record["ts"] = static_cast<std::int64_t>(nowInMilliseconds()) + 5'000;
    writeFile(hook.recordPath("s1"), record.dump());
    EXPECT_EQ(after("UserPromptSubmit", {{"prompt", "go"}}), record);
}

TEST_F(HookRules, RecordFromTheFarFutureCountsForNothing) {
    auto record = after("Stop");
    record["ts"] = static_cast<std::int64_t>(nowInMilliseconds()) + 3'600'000;
    writeFile(hook.recordPath("s1"), record.dump());
    const auto fresh = after("Stop");
    EXPECT_EQ(fresh.at("since"), fresh.at("ts"));
    EXPECT_LE(fresh.at("ts").get<double>(), nowInMilliseconds());
}

TEST_F(HookRules, BrokenFormerRecordCountsForNothing) {
    for (const auto* text :
         {"", "\n\n", "{", "[]", R"({"state":"done"})", R"({"state":"done","since":"x","ts":1})"}) {
        writeFile(hook.recordPath("s1"), text);
        const auto record = after("Stop");
        EXPECT_EQ(record.at("state"), "done") << text;
        EXPECT_EQ(record.at("since"), record.at("ts")) << text;
    }
}

TEST_F(HookRules, SessionEndRemovesTheRecord) {
    after("Stop");
    hook.tell(payload("SessionEnd", {{"reason", "other"}}));
    EXPECT_TRUE(hook.files().empty());
    hook.tell(payload("SessionEnd", {{"reason", "other"}}));
    EXPECT_TRUE(hook.files().empty());
}

} // namespace
} // namespace mimkins::test
