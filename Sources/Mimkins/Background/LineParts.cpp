#include "Background/LineParts.h"

#include <algorithm>
#include <initializer_list>

namespace mimkins::parts {

namespace {

constexpr std::size_t nowhere = std::string_view::npos;

bool isLetterOrDigit(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

/// The bytes from `begin` up to the place `end`, which may be `nowhere`.
std::string_view between(std::string_view line, std::size_t begin, std::size_t end) {
    return line.substr(begin, end == nowhere ? nowhere : end - begin);
}

/// The place behind the first `last` at or after `from`, or `nowhere`.
std::size_t behind(std::string_view line, char last, std::size_t from) {
    const auto place = line.find(last, from);
    return place == nowhere ? nowhere : place + 1;
}

/// The last place of a text at or after `from`, where one stands unless that is `nowhere`.
std::size_t lastFrom(std::string_view line, std::string_view text, std::size_t from) {
    auto last = from;
    for (auto place = from; place != nowhere; place = line.find(text, place + 1)) {
        last = place;
    }
    return last;
}

/// A text to look for, in two pieces: the search goes by the second one, which begins with a rarer byte than
/// the quotation mark that the first one begins with.
struct Text {
    std::string_view prefix;
    std::string_view rest;

    /// The first place at or after `from`, or `nowhere`.
    std::size_t find(std::string_view line, std::size_t from) const {
        for (auto place = line.find(rest, from); place != nowhere; place = line.find(rest, place + 1)) {
            if (place >= from + prefix.size() && line.substr(0, place).ends_with(prefix)) {
                return place - prefix.size();
            }
        }
        return nowhere;
    }

    std::size_t size() const { return prefix.size() + rest.size(); }
};

/// The places of a text, asked for in ascending order, so that all questions together cost one pass.
struct Places {
    std::string_view line;
    Text text;
    std::size_t place = text.find(line, 0);

    /// The first place at or after `from`, or `nowhere`.
    std::size_t next(std::size_t from) {
        if (place < from) {
            place = text.find(line, from);
        }
        return place;
    }
};

/// The parts of a pattern whose matches begin with one of the texts, of which none holds a closing brace, and
/// reach no further than to the next closing brace.
Parts upToBrace(std::string_view line, std::initializer_list<Text> texts) {
    std::vector<Places> places;
    for (const auto& text : texts) {
        places.push_back({line, text});
    }
    Parts parts;
    for (std::size_t end = 0; end != nowhere;) {
        std::size_t begin = nowhere;
        for (auto& each : places) {
            begin = std::min(begin, each.next(end));
        }
        if (begin == nowhere) {
            break;
        }
        end = behind(line, '}', begin);
        parts.push_back(between(line, begin, end));
    }
    return parts;
}

/// One part from the first announcement, or the tool result before it, to the parenthesis that closes the
/// last one.
Parts announcements(std::string_view line, std::string_view oneShot, std::string_view recurring) {
    const auto firstOneShot = line.find(oneShot);
    const auto firstRecurring = line.find(recurring);
    const auto first = std::min(firstOneShot, firstRecurring);
    if (first == nowhere) {
        return {};
    }
    constexpr Text toolResult{R"(")", R"(tool_use_id":"toolu_)"};
    const auto begin = std::min(first, toolResult.find(line.substr(0, first), 0));
    const auto lastOneShot = lastFrom(line, oneShot, firstOneShot);
    const auto lastRecurring = lastFrom(line, recurring, firstRecurring);
    // One that is nowhere is not the last.
    const auto last = std::max(lastOneShot + 1, lastRecurring + 1) - 1;
    return {between(line, begin, behind(line, ')', last))};
}

/// Where the call begins whose id ends at `end`, or `nowhere`.
std::size_t callBegin(std::string_view line, std::size_t end) {
    constexpr std::string_view text = R"("id":"toolu_)";
    while (end > 0 && isLetterOrDigit(line[end - 1])) {
        --end;
    }
    return line.substr(0, end).ends_with(text) ? end - text.size() : nowhere;
}

/// Appends a part, or lengthens the last one if it reaches into this one.
void join(std::string_view line, std::string_view part, Parts& parts) {
    const auto begin = static_cast<std::size_t>(part.data() - line.data());
    if (!parts.empty() && parts.back().data() + parts.back().size() > part.data()) {
        const auto before = static_cast<std::size_t>(parts.back().data() - line.data());
        parts.back() = between(line, before, begin + part.size());
    } else {
        parts.push_back(part);
    }
}

} // namespace

Parts started(std::string_view line) {
    constexpr std::string_view text = "running in background with ID: ";
    Parts parts;
    for (auto begin = line.find(text); begin != nowhere; begin = line.find(text, begin)) {
        auto end = begin + text.size();
        while (end < line.size() && isLetterOrDigit(line[end])) {
            ++end;
        }
        parts.push_back(between(line, begin, end));
        begin = end;
    }
    return parts;
}

Parts finished(std::string_view line) {
    constexpr std::string_view status = "<status>";
    constexpr std::size_t longestStatus = std::string_view("completed").size();
    const auto begin = line.find("<task-id>");
    const auto first = begin == nowhere ? nowhere : line.find(status, begin);
    if (first == nowhere) {
        return {};
    }
    return {between(line, begin, lastFrom(line, status, first) + status.size() + longestStatus)};
}

Parts stopped(std::string_view line) {
    return upToBrace(
        line, {{R"("name":")", R"(TaskStop","input":{)"},
               {R"("name":")", R"(KillShell","input":{)"},
               {R"("name":")", R"(KillBash","input":{)"}}
    );
}

Parts cron(std::string_view line) {
    return announcements(line, "Scheduled one-shot task ", "Scheduled recurring task ");
}

Parts cronJob(std::string_view line) {
    return announcements(line, "Scheduled one-shot job ", "Scheduled recurring job ");
}

Parts cronCreate(std::string_view line) {
    constexpr Text text{R"(","name":")", R"(CronCreate","input":{"cron":")"};
    constexpr std::string_view prompt = R"(","prompt":")";
    // 160 units of at most two characters, none of which is longer than four bytes.
    constexpr std::size_t longestPrompt = std::size_t{160} * 2 * 4;
    Parts parts;
    for (auto middle = text.find(line, 0); middle != nowhere; middle = text.find(line, middle + 1)) {
        const auto begin = callBegin(line, middle);
        const auto end = line.find('"', middle + text.size());
        if (begin != nowhere && end != nowhere) {
            join(line, between(line, begin, end + prompt.size() + longestPrompt), parts);
        }
    }
    return parts;
}

Parts cronDelete(std::string_view line) {
    return upToBrace(line, {{R"("name":")", R"(CronDelete","input":{)"}});
}

std::optional<std::string_view> timestamp(std::string_view line) {
    constexpr Text text{R"(")", R"(timestamp":")"};
    for (auto begin = text.find(line, 0); begin != nowhere; begin = text.find(line, begin + text.size())) {
        const auto end = line.find('"', begin + text.size());
        if (end == nowhere) {
            break;
        }
        if (end > begin + text.size()) {
            return between(line, begin, end + 1);
        }
    }
    return std::nullopt;
}

} // namespace mimkins::parts
