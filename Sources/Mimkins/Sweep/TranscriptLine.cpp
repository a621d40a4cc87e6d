#include "Sweep/TranscriptLine.h"

#include "Base/DateText.h"
#include "Base/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace mimkins {

namespace {

constexpr std::array<std::string_view, 13> readingCommands{
    "git ", "cat ",  "grep ", "rg ",   "head ", "tail ", "wc ",
    "ls ",  "stat ", "diff ", "file ", "open ", "less ",
};

bool onlyReads(std::string_view command) {
    return std::any_of(readingCommands.begin(), readingCommands.end(), [&](std::string_view prefix) {
        return command.starts_with(prefix);
    });
}

/// Times of transcripts always have a fraction; one without it isn't taken for a time.
std::optional<Date> timeWithFraction(std::optional<std::string_view> text) {
    if (!text || text->find('.') == std::string_view::npos) {
        return std::nullopt;
    }
    return text::parseIso8601(*text);
}

bool leadsTo(std::string_view path, std::string_view name) {
    return path.ends_with(name) && (path.size() == name.size() || path[path.size() - name.size() - 1] == '/');
}

} // namespace

bool commandChanges(std::string_view commandLine, std::string_view name) {
    while (!commandLine.empty()) {
        const auto end = std::min(commandLine.find_first_of(";&|\n"), commandLine.size());
        const auto command = text::trimmedBlanks(commandLine.substr(0, end));
        commandLine.remove_prefix(std::min(end + 1, commandLine.size()));
        const bool named = command.find(name) != std::string_view::npos;
        if (named && (command.find('>') != std::string_view::npos || !onlyReads(command))) {
            return true;
        }
    }
    return false;
}

TranscriptLine::TranscriptLine(std::string_view text, json::Parser& parser) {
    const auto line = parser.parse(text);
    written_ = timeWithFraction(line["timestamp"].stringView());
    if (line["type"].stringView() != "assistant") {
        return;
    }
    for (const auto& part : line["message"]["content"].elements()) {
        if (part["type"].stringView() != "tool_use") {
            continue;
        }
        const auto input = part["input"];
        const auto path = input["file_path"].stringView();
        calls_.push_back(
            {part["name"].stringView(), path ? path : input["notebook_path"].stringView(),
             input["command"].stringView()}
        );
    }
}

LineVerdict TranscriptLine::verdict(std::string_view name, Date since) const {
    if (written_ && *written_ < since) {
        return LineVerdict::tooOld;
    }
    const bool any =
        std::any_of(calls_.begin(), calls_.end(), [&](const ToolCall& call) { return changes(call, name); });
    return any ? LineVerdict::changes : LineVerdict::silent;
}

bool TranscriptLine::changes(const ToolCall& call, std::string_view name) {
    if (call.path && leadsTo(*call.path, name)) {
        return call.tool != "Read";
    }
    return call.command && commandChanges(*call.command, name);
}

} // namespace mimkins
