#include "Subtask/TranscriptFacts.h"

#include "Base/BlankEscapes.h"
#include "Base/DateText.h"
#include "Base/Text.h"
#include "Subtask/LineGlance.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace mimkins {

namespace {

constexpr std::string_view handbackTool = "SubagentHandback";
constexpr std::size_t longestDetail = 120;
/// Lines that are longer than this hold long texts, mostly the results of calls.
constexpr std::size_t longLine = 1'024; // bytes

std::optional<std::string_view> nonEmpty(const json::Value& value) {
    const auto text = value.stringView();
    return text && !text->empty() ? text : std::nullopt;
}

std::string_view firstLine(std::string_view text) {
    std::string_view line = text.substr(0, text.find('\n'));
    if (line.size() < text.size() && !line.empty() && line.back() == '\r') {
        line.remove_suffix(1);
    }
    return line;
}

void noteModel(const json::Value& model, ModelTag& tag) {
    if (const auto word = nonEmpty(model); word && *word != "<synthetic>") {
        tag.model = *word;
    }
}

void noteEffort(const json::Value& effort, ModelTag& tag) {
    if (const auto word = nonEmpty(effort)) {
        tag.effort = *word;
    }
}

/// Gathers the facts from the last line to the first. Whatever comes last in the transcript holds, and
/// whether a call was answered is known when it is met: so only what stands in the end is ever copied.
class BackwardGatherer {
public:
    explicit BackwardGatherer(Date fallback) : fallback_(fallback) {}

    /// False for a line that can't add anything to what is known from those behind it. Most lines are such:
    /// words, notes of the client to itself, and calls that were answered. Not for the line that was written
    /// last, which always tells something.
    bool mayTell(std::string_view line) const {
        if (!facts_.model.model) {
            return true;
        }
        const Glance glance = glanceAt(line);
        if (!glance.call) {
            return glance.effort && !facts_.model.effort;
        }
        const auto isAnswered = [this](std::string_view id) { return wasAnswered(id); };
        return !sawCall_ || !holdsOnlyCalls(line, facts_.model.effort.has_value(), isAnswered);
    }

    /// Takes a long line of results, of whose texts only the calls' ids are read. False if the line may be
    /// anything else, or if its ids can't be told that way.
    bool takeLongResults(std::string_view line, json::Parser& parser) {
        constexpr std::array<std::string_view, 2> keys{"type", "message"};
        if (line.size() < longLine) {
            return false;
        }
        const auto [type, message] = parser.parseBlanked(line).members(keys);
        const std::size_t before = answered_.size();
        if (type.stringView() != "user" || !takeResults(message["content"])) {
            answered_.resize(before);
            return false;
        }
        return true;
    }

    void take(const json::Value& root, bool isLast) {
        constexpr std::array<std::string_view, 4> keys{"type", "message", "timestamp", "effort"};
        const auto [type, message, timestamp, effort] = root.members(keys);
        if (!message.isObject()) {
            return;
        }
        const auto kind = type.stringView();
        if (kind == "user") {
            takeResults(message["content"]);
        } else if (kind == "assistant") {
            if (!facts_.model.effort) {
                noteEffort(effort, facts_.model);
            }
            takeAssistant(message, timestamp, isLast);
        }
    }

    TranscriptFacts finish() && {
        std::reverse(facts_.pending.begin(), facts_.pending.end());
        return std::move(facts_);
    }

private:
    void takeAssistant(const json::Value& message, const json::Value& timestamp, bool isLast) {
        constexpr std::array<std::string_view, 3> keys{"content", "model", "stop_reason"};
        const auto [content, model, stopReason] = message.members(keys);
        if (!facts_.model.model) {
            noteModel(model, facts_.model);
        }
        if (isLast) {
            facts_.endedTurn = stopReason.stringView() == "end_turn";
        }
        findObjects(content);
        for (auto object = objects_.rbegin(); object != objects_.rend(); ++object) {
            takeCall(*object, timestamp);
        }
    }

    void takeCall(const json::Value& object, const json::Value& timestamp) {
        constexpr std::array<std::string_view, 4> keys{"type", "id", "name", "input"};
        const auto [type, idValue, nameValue, input] = object.members(keys);
        if (type.stringView() != "tool_use") {
            return;
        }
        const auto id = idValue.stringView();
        const auto name = nameValue.stringView();
        if (id && name && !wasAnswered(*id)) {
            const auto text = timestamp.stringView();
            const auto time = text ? text::parseIso8601(*text) : std::nullopt;
            facts_.pending.push_back(
                {std::string(*name), detail(input), input["command"].string(), time.value_or(fallback_)}
            );
        }
        if (name == handbackTool) {
            facts_.handedBack = true;
        } else if (!sawCall_) {
            sawCall_ = true;
            facts_.tool = name;
            facts_.detail = detail(input);
        }
    }

    /// False if an id may hold what was blanked.
    bool takeResults(const json::Value& content) {
        bool isCertain = true;
        constexpr std::array<std::string_view, 2> keys{"type", "tool_use_id"};
        findObjects(content);
        for (const auto& object : objects_) {
            const auto [type, id] = object.members(keys);
            if (type.stringView() == "tool_result" && id.stringView()) {
                const auto& word = answered_.emplace_back(*id.stringView());
                isCertain = isCertain && word.find(json::blank) == std::string::npos;
            }
        }
        return isCertain;
    }

    /// A result mostly follows its call at once, so the latest is looked at first.
    bool wasAnswered(std::string_view id) const {
        return std::find(answered_.rbegin(), answered_.rend(), id) != answered_.rend();
    }

    /// Puts the objects of a message's content into `objects_`; none if it is anything but an array of
    /// objects.
    void findObjects(const json::Value& content) {
        content.elements(objects_);
        const auto isObject = [](const json::Value& value) { return value.isObject(); };
        if (!std::all_of(objects_.begin(), objects_.end(), isObject)) {
            objects_.clear();
        }
    }

    Date fallback_;
    TranscriptFacts facts_;
    bool sawCall_ = false;
    std::vector<std::string> answered_;
    std::vector<json::Value> objects_;
};

} // namespace

std::optional<std::string> detail(const json::Value& input) {
    constexpr std::array<std::string_view, 7> keys{"description", "file_path", "notebook_path", "url",
                                                   "pattern",     "query",     "command"};
    const auto values = input.members(keys);
    for (std::size_t index = 0; index < keys.size(); ++index) {
        if (const auto value = nonEmpty(values.at(index))) {
            return keys.at(index).ends_with("path") ? std::string(text::lastPathComponent(*value))
                                                    : text::prefix(firstLine(*value), longestDetail);
        }
    }
    return std::nullopt;
}

void note(const json::Value& line, ModelTag& tag) {
    noteModel(line["message"]["model"], tag);
    noteEffort(line["effort"], tag);
}

TranscriptFacts
transcriptFacts(const TranscriptTail& tail, Date fallback, json::Parser& parser, LinesToParse lines) {
    BackwardGatherer gatherer(fallback);
    for (std::size_t index = tail.size(); index-- > 0;) {
        const bool isLast = index + 1 == tail.size();
        const auto line = tail.line(index);
        const bool isPassedOver = lines == LinesToParse::telling && !isLast &&
                                  (!gatherer.mayTell(line) || gatherer.takeLongResults(line, parser));
        if (!isPassedOver) {
            gatherer.take(tail.parse(index, parser), isLast);
        }
    }
    return std::move(gatherer).finish();
}

} // namespace mimkins
