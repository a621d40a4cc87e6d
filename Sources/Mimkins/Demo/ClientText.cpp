#include "Demo/ClientText.h"

#include "Base/DateText.h"

#include <cmath>

namespace mimkins::demo {

namespace {

using Json = ClientText::Json;

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

/// Text as it stands between the quotes of JSON.
std::string escaped(const std::string& text) {
    const std::string quoted = Json(text).dump();
    return quoted.substr(1, quoted.size() - 2);
}

/// "2026-11-21T07:28:17.141Z".
std::string timestamp(Date date) {
    constexpr int thousand = 1000;
    const auto milliseconds = static_cast<long long>(std::floor(date.milliseconds()));
    const std::string fraction = std::to_string(thousand + milliseconds % thousand).substr(1);
    return replaced(text::iso8601(date), "Z", "." + fraction + "Z");
}

std::string cronResult(const Json& input, const std::string& id) {
    const bool recurring = input.value("recurring", false);
    return "Scheduled " + std::string(recurring ? "recurring job " : "one-shot task ") + id + " (" +
           input.value("cron", "") + "). Session-only (not written to disk, dies when Claude exits).";
}

} // namespace

std::string ClientText::madeUp(const std::string& key, std::size_t length, std::string_view alphabet) const {
    return madeUpId(scene_.role.id + " " + scene_.act.name + " " + key, length, alphabet);
}

std::string ClientText::callId() const {
    return "toolu_" + madeUp(opened().key, 12, lettersAndDigits);
}

std::string ClientText::taskId() const {
    return "b" + madeUp(opened().key + " task", 8, lettersAndDigits);
}

std::string ClientText::cronId(const std::string& key) const {
    return madeUp(key + " cron", 8, hexadecimal);
}

std::string ClientText::agentId(const std::string& key) const {
    return "a" + madeUp(key + " agent", 16, hexadecimal);
}

std::string ClientText::subagentFile(const std::string& key, std::string_view ending) const {
    return scene_.role.subagents + "/agent-" + agentId(key) + std::string(ending);
}

const Step& ClientText::opened() const {
    const Step* step = opening(scene_.act, scene_.step.key);
    return step != nullptr ? *step : scene_.step;
}

std::string ClientText::filled(std::string text) const {
    text = replaced(std::move(text), "$DIR", escaped(scene_.role.folder));
    for (const auto& step : scene_.act.steps) {
        if (step.name == "CronCreate") {
            text = replaced(std::move(text), "$" + step.key, cronId(step.key));
        }
    }
    return text;
}

std::string ClientText::toolName() const {
    return opened().deed == Deed::sendsSubagent ? "Agent" : opened().name;
}

Json ClientText::toolInput() const {
    const Step& call = opened();
    if (call.deed == Deed::sendsSubagent) {
        return {
            {"description", call.text},
            {"prompt", call.text},
            {"subagent_type", call.name},
            {"run_in_background", true}};
    }
    return Json::parse(filled(call.text));
}

bool ClientText::isInBackground() const {
    return toolInput().value("run_in_background", false);
}

Json ClientText::toolMembers() const {
    return {{"tool_name", toolName()}, {"tool_input", toolInput()}, {"tool_use_id", callId()}};
}

std::string ClientText::resultText() const {
    if (toolName() == "CronCreate") {
        return cronResult(toolInput(), cronId(opened().key));
    }
    if (toolName() == "Bash" && isInBackground()) {
        return "Command running in background with ID: " + taskId() +
               ". You will be notified when it completes.";
    }
    if (toolName() == "Agent") {
        return "Async agent launched successfully.\nagentId: " + agentId(opened().key);
    }
    return filled(scene_.step.text);
}

std::string ClientText::event(std::string_view name, const Json& members) const {
    Json json{{"session_id", scene_.role.id},
              {"transcript_path", scene_.role.transcript},
              {"cwd", scene_.role.folder},
              {"permission_mode", "default"},
              {"effort", {{"level", scene_.role.effort}}},
              {"hook_event_name", name}};
    json.update(members);
    return json.dump();
}

std::string
ClientText::subagentEvent(std::string_view name, const std::string& subagent, Json members) const {
    const Step* sent = opening(scene_.act, subagent);
    members["agent_id"] = agentId(subagent);
    members["agent_type"] = sent != nullptr ? sent->name : "general-purpose";
    return event(name, members);
}

Json ClientText::line(std::string_view type, Json message, const std::string& subagent) const {
    Json json{{"parentUuid", nullptr}, {"isSidechain", !subagent.empty()}};
    if (!subagent.empty()) {
        json["agentId"] = agentId(subagent);
    }
    json["type"] = type;
    json["message"] = std::move(message);
    json["uuid"] =
        madeUp(std::to_string(scene_.step.at) + scene_.step.key + std::string(type), 32, hexadecimal);
    json["timestamp"] = timestamp(scene_.now);
    json["cwd"] = scene_.role.folder;
    json["sessionId"] = scene_.role.id;
    return json;
}

Json ClientText::assistantMessage(Json content, std::string_view reason) const {
    return {
        {"type", "message"},
        {"role", "assistant"},
        {"model", scene_.role.model},
        {"content", Json::array({std::move(content)})},
        {"stop_reason", reason}};
}

std::string ClientText::promptLine(const std::string& text, const std::string& subagent) const {
    return line("user", {{"role", "user"}, {"content", text}}, subagent).dump();
}

std::string ClientText::callLine(const std::string& subagent) const {
    const Json call{{"type", "tool_use"}, {"id", callId()}, {"name", toolName()}, {"input", toolInput()}};
    return line("assistant", assistantMessage(call, "tool_use"), subagent).dump();
}

std::string ClientText::resultLine(Outcome outcome, const std::string& subagent) const {
    const Json result{
        {"tool_use_id", callId()},
        {"type", "tool_result"},
        {"content", resultText()},
        {"is_error", outcome == Outcome::failure}};
    return line("user", {{"role", "user"}, {"content", Json::array({result})}}, subagent).dump();
}

std::string ClientText::answerLine(const std::string& subagent) const {
    const Json text{{"type", "text"}, {"text", scene_.step.text}};
    return line("assistant", assistantMessage(text, "end_turn"), subagent).dump();
}

std::string ClientText::taskNotification() const {
    return "<task-notification>\n<task-id>" + taskId() + "</task-id>\n<tool-use-id>" + callId() +
           "</tool-use-id>\n<status>completed</status>\n<summary>Background command \"" +
           toolInput().value("description", "") +
           "\" completed (exit code 0)</summary>\n"
           "</task-notification>";
}

std::string ClientText::subagentMetadata() const {
    const Json json{
        {"agentType", scene_.step.name},
        {"description", scene_.step.text},
        {"toolUseId", callId()},
        {"spawnDepth", 1}};
    return json.dump();
}

std::string ClientText::desktopMetadata() const {
    const auto now = static_cast<long long>(scene_.now.milliseconds());
    const Json json{
        {"sessionId", scene_.role.desktopId},
        {"cliSessionId", scene_.role.id},
        {"title", scene_.role.title},
        {"isArchived", false},
        {"lastFocusedAt", now}};
    return json.dump();
}

} // namespace mimkins::demo
