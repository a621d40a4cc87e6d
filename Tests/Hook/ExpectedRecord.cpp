#include "Hook/RandomPayload.h"

#include <algorithm>
#include <set>

/// The rules of Documentation/hook-events.md once more, on decoded text, for a session without a former
/// record.
namespace mimkins::test {

namespace {

using nlohmann::json;

std::string stringAt(const json& object, const std::string& key) {
    if (!object.is_object() || !object.contains(key) || !object.at(key).is_string()) {
        return "";
    }
    return object.at(key).get<std::string>();
}

std::string firstCharacters(const std::string& text, std::size_t count) {
    std::size_t end = 0;
    for (std::size_t seen = 0; end < text.size(); ++end) {
        const bool begins = (static_cast<unsigned char>(text[end]) & 0xc0U) != 0x80U;
        if (begins && seen++ == count) {
            break;
        }
    }
    return text.substr(0, end);
}

std::string firstLine(const std::string& text) {
    const auto begin = std::min(text.find_first_not_of(" \n\r\t"), text.size());
    return text.substr(begin, text.find_first_of("\n\r", begin) - begin);
}

std::string lastComponent(std::string path) {
    if (path.empty()) {
        return path;
    }
    while (path.size() > 1 && path.back() == '/') {
        path.pop_back();
    }
    return path == "/" ? path : path.substr(path.rfind('/') + 1);
}

std::string detailOf(const json& payload) {
    const auto input = payload.value("tool_input", json());
    for (const auto* key :
         {"description", "file_path", "notebook_path", "url", "pattern", "query", "command"}) {
        auto text = stringAt(input, key);
        if (std::string(key).ends_with("_path")) {
            text = lastComponent(text);
        }
        text = firstLine(text);
        if (!text.empty()) {
            return firstCharacters(text, 120);
        }
    }
    return "";
}

std::string stateAfter(const std::string& event) {
    if (event == "SessionStart") {
        return "idle";
    }
    if (event == "PermissionRequest" || event == "Notification") {
        return "waiting";
    }
    return event == "Stop" ? "done" : "working";
}

} // namespace

std::optional<json> expectedRecord(const json& payload) {
    static const std::set<std::string> events{"SessionStart", "UserPromptSubmit",   "PreToolUse",
                                              "PostToolUse",  "PostToolUseFailure", "PermissionRequest",
                                              "Notification", "PreCompact",         "Stop"};
    const auto event = stringAt(payload, "hook_event_name");
    const auto type = stringAt(payload, "notification_type");
    const bool blocks = type == "permission_prompt" || type == "elicitation_dialog";
    if (!events.contains(event) || stringAt(payload, "session_id").empty() ||
        !stringAt(payload, "agent_id").empty() || (event == "Notification" && !blocks)) {
        return std::nullopt;
    }
    json record{{"state", stateAfter(event)}, {"id", payload.at("session_id")}, {"event", event}};
    const auto add = [&](const char* key, const std::string& text) {
        if (!text.empty()) {
            record[key] = text;
        }
    };
    if (event == "PreToolUse" || event == "PostToolUseFailure" || event == "PermissionRequest") {
        add("tool", stringAt(payload, "tool_name"));
        add("detail", detailOf(payload));
    }
    if (event == "Notification") {
        add("notification", type);
        add("message", firstCharacters(stringAt(payload, "message"), 400));
    }
    if (event == "PreCompact") {
        add("before", stringAt(payload, "trigger") == "auto" ? "working" : "idle");
    }
    add("cwd", stringAt(payload, "cwd"));
    add("project", lastComponent(stringAt(payload, "cwd")));
    add("transcript", stringAt(payload, "transcript_path"));
    add("model", stringAt(payload, "model"));
    add("effort", stringAt(payload.value("effort", json()), "level"));
    return record;
}

} // namespace mimkins::test
