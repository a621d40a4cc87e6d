#include "Hook/RandomPayload.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>

namespace mimkins::test {

namespace {

const std::vector<std::string> keys{
    "session_id",
    "hook_event_name",
    "cwd",
    "transcript_path",
    "tool_name",
    "tool_input",
    "effort",
    "model",
    "agent_id",
    "message",
    "notification_type",
    "prompt",
    "source",
    "trigger",
    "tool_response",
    "other"};
const std::vector<std::string> inputKeys{"description", "file_path", "notebook_path", "url",   "pattern",
                                         "query",       "command",   "session_id",    "level", "tool_input"};
const std::vector<std::string> events{
    "SessionStart",      "UserPromptSubmit", "PreToolUse", "PostToolUse", "PostToolUseFailure",
    "PermissionRequest", "Notification",     "PreCompact", "Stop",        "SessionEnd"};

} // namespace

std::string RandomPayload::pick(const std::vector<std::string>& choices) {
    return choices.at(static_cast<std::size_t>(number(static_cast<int>(choices.size()))));
}

std::string RandomPayload::space() {
    return chance(80) ? "" : pick({" ", "\n", "\t", "\r\n", "    ", "\n  "});
}

std::string RandomPayload::character(char32_t scalar) {
    const auto unit = [](unsigned code) {
        std::array<char, 8> text{};
        std::snprintf(text.data(), text.size(), "\\u%04x", code);
        return std::string(text.data());
    };
    if (chance(10)) {
        if (scalar < 0x10000) {
            return unit(scalar);
        }
        return unit(0xd800U + ((scalar - 0x10000U) >> 10U)) + unit(0xdc00U + ((scalar - 0x10000U) & 0x3ffU));
    }
    if (scalar == U'/' && chance(20)) {
        return "\\/";
    }
    // The library writes the rest: a string of one character, without its quotes.
    std::string bytes;
    if (scalar < 0x80) {
        bytes = {static_cast<char>(scalar)};
    } else if (scalar < 0x800) {
        bytes = {static_cast<char>(0xc0U | scalar >> 6U), static_cast<char>(0x80U | (scalar & 0x3fU))};
    } else if (scalar < 0x10000) {
        bytes = {
            static_cast<char>(0xe0U | scalar >> 12U), static_cast<char>(0x80U | (scalar >> 6U & 0x3fU)),
            static_cast<char>(0x80U | (scalar & 0x3fU))};
    } else {
        bytes = {
            static_cast<char>(0xf0U | scalar >> 18U), static_cast<char>(0x80U | (scalar >> 12U & 0x3fU)),
            static_cast<char>(0x80U | (scalar >> 6U & 0x3fU)), static_cast<char>(0x80U | (scalar & 0x3fU))};
    }
    const auto written = nlohmann::json(bytes).dump();
    return written.substr(1, written.size() - 2);
}

std::string RandomPayload::quoted(const std::u32string& text) {
    std::string result = "\"";
    for (const auto scalar : text) {
        result += character(scalar);
    }
    return result + "\"";
}

std::u32string RandomPayload::text() {
    static const std::u32string alphabet =
        U"ab/ \"\\{}[]:,.-_'$`%&*\n\r\t\b\f\x01\x1f\x7fé§€日\u2028\ufffd😀\U0010fffd";
    std::u32string result;
    const int length = chance(10) ? number(400) : number(12);
    while (static_cast<int>(result.size()) < length) {
        result += alphabet.at(static_cast<std::size_t>(number(static_cast<int>(alphabet.size()))));
    }
    return result;
}

std::string RandomPayload::value(int depth) {
    switch (number(depth > 4 ? 4 : 6)) {
    case 0:
        return quoted(text());
    case 1:
        return pick({"0", "-1.5e3", "12345678901234567890", "1"});
    case 2:
        return pick({"true", "false", "null", "{}", "[]", "[[]]", "[{}]", "\"\""});
    case 3:
        return quoted(pick(keys));
    case 4:
        return object(depth + 1);
    default:
        return "[" + space() + value(depth + 1) + space() + "," + space() + value(depth + 1) + "]";
    }
}

std::string RandomPayload::object(int depth) {
    std::string result = "{" + space();
    const int count = number(5);
    for (int index = 0; index < count; ++index) {
        const auto key = pick(chance(50) ? inputKeys : keys);
        result += (index > 0 ? "," : "") + space() + quoted(key) + space() + ":";
        result += space() + valueOf(key, depth + 1) + space();
    }
    return result + "}";
}

/// Any value, but no text for a name that is longer than the script lets names be: the expectation sees
/// decoded text and can't know how long it was written.
std::string RandomPayload::valueOf(const std::string& key, int depth) {
    static const std::set<std::string> names{"session_id", "tool_name", "model", "level"};
    auto made = chance(50) ? quoted(text()) : value(depth);
    if (names.contains(key) && made.front() == '"') {
        made = quoted(text().substr(0, 10));
    }
    return made;
}

std::string RandomPayload::memberValue(const std::string& key) {
    if (chance(6)) {
        return valueOf(key, 1);
    }
    if (key == "hook_event_name") {
        return quoted(pick(events));
    }
    if (key == "session_id") {
        return quoted("s" + std::to_string(number(1000)));
    }
    if (key == "notification_type") {
        return quoted(pick({"permission_prompt", "elicitation_dialog", "idle_prompt"}));
    }
    if (key == "trigger" || key == "source") {
        return quoted(pick({"auto", "manual", "startup", "compact", "resume"}));
    }
    if (key == "agent_id") {
        return chance(90) ? pick({"\"\"", "null", "0"}) : quoted("a1");
    }
    if (key == "tool_name" || key == "model") {
        return quoted(text().substr(0, 20));
    }
    if (key == "effort") {
        return "{" + space() + quoted("level") + ":" + space() + quoted(text().substr(0, 9)) + "}";
    }
    return key == "tool_input" ? object(1) : value(1);
}

std::string RandomPayload::member(const std::string& key) {
    return quoted(key) + space() + ":" + space() + memberValue(key) + space();
}

std::string RandomPayload::next() {
    std::vector<std::string> names{"session_id", "hook_event_name"};
    for (int count = number(14); count > 0; --count) {
        names.push_back(pick(keys));
    }
    std::shuffle(names.begin(), names.end(), random_);
    std::string result = space() + "{";
    for (const auto& name : names) {
        result += (result.back() == '{' ? "" : ",") + space() + member(name);
    }
    return result + "}" + space();
}

} // namespace mimkins::test
