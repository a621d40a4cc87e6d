#pragma once

#include "Platform/FileSystem.h"
#include "Subtask/TranscriptTail.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

/// Makes lines of transcripts as the client writes them.
namespace mimkins::test {

using Json = nlohmann::json;

inline Json toolUse(const std::string& id, const std::string& name, const Json& input = Json::object()) {
    return {{"type", "tool_use"}, {"id", id}, {"name", name}, {"input", input}};
}

inline Json toolResult(const std::string& id) {
    return {{"type", "tool_result"}, {"tool_use_id", id}, {"content", "done"}};
}

inline Json textBlock(const std::string& text) {
    return {{"type", "text"}, {"text", text}};
}

inline Json
assistantLine(const std::vector<Json>& content, const std::string& timestamp = "2026-11-21T07:30:18.500Z") {
    return {
        {"type", "assistant"},
        {"timestamp", timestamp},
        {"message", {{"role", "assistant"}, {"model", "claude-opus-4-8"}, {"content", content}}}};
}

/// The line with any content, also such as no client writes.
inline Json withContent(Json line, const Json& content) {
    line["message"]["content"] = content;
    return line;
}

/// An assistant line that ends the turn.
inline Json finalLine() {
    Json line = assistantLine({textBlock("all done")});
    line["message"]["stop_reason"] = "end_turn";
    return line;
}

inline Json userLine(const std::vector<Json>& content) {
    return {{"type", "user"}, {"message", {{"role", "user"}, {"content", content}}}};
}

/// The text of a transcript; each line ends in a line end.
inline std::string transcriptText(const std::vector<Json>& lines) {
    std::string text;
    for (const auto& line : lines) {
        text += line.dump() + "\n";
    }
    return text;
}

inline TranscriptTail tailOf(const std::vector<Json>& lines) {
    return TranscriptTail(FileSystem::Tail{transcriptText(lines), 0});
}

} // namespace mimkins::test
