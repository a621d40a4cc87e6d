#include "Report.h"

#include "Base/Link.h"
#include "Base/StableSeed.h"
#include "Base/Text.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <utility>
#include <vector>

namespace mimkins {

namespace {

constexpr std::array<std::string_view, 4> states{"working", "waiting", "done", "idle"};

/// Texts that people read are short; a longer one is a mistake that would only slow every reader.
constexpr std::size_t longestText = 16'384;
constexpr std::size_t longestId = 200;

using NamedText = std::pair<std::string_view, const std::optional<std::string>*>;

std::vector<NamedText> optionalTexts(const Report& report) {
    return {
        {"--tool", &report.record.tool},
        {"--detail", &report.record.detail},
        {"--message", &report.record.message},
        {"--notification", &report.record.notification},
        {"--cwd", &report.record.cwd},
        {"--project", &report.record.project},
        {"--transcript", &report.record.transcript},
        {"--effort", &report.record.effort},
        {"--model", &report.record.model},
        {"--title", &report.record.title},
        {"--open", &report.record.open},
    };
}

bool isState(std::string_view word) {
    for (const auto state : states) {
        if (state == word) {
            return true;
        }
    }
    return false;
}

std::optional<std::string> problemOfId(std::string_view option, const std::string& value) {
    if (value.empty()) {
        return std::string(option) + " must not be empty";
    }
    if (value.size() > longestId) {
        return std::string(option) + " is longer than " + std::to_string(longestId) + " bytes";
    }
    if (!text::isValidUtf8(value)) {
        return std::string(option) + " isn't valid UTF-8";
    }
    for (const char character : value) {
        if (static_cast<unsigned char>(character) < 0x20U || character == 0x7f) {
            return std::string(option) + " holds a control character";
        }
    }
    return std::nullopt;
}

std::optional<std::string> problemOfText(std::string_view option, const std::string& value) {
    if (value.size() > longestText) {
        return std::string(option) + " is longer than " + std::to_string(longestText) + " bytes";
    }
    if (!text::isValidUtf8(value)) {
        return std::string(option) + " isn't valid UTF-8";
    }
    return std::nullopt;
}

std::optional<std::string> problemOfTexts(const Report& report) {
    if (auto problem = problemOfText("--event", report.record.event)) {
        return problem;
    }
    for (const auto& [option, value] : optionalTexts(report)) {
        if (*value) {
            if (auto problem = problemOfText(option, **value)) {
                return problem;
            }
        }
    }
    return std::nullopt;
}

std::optional<std::string> problemOfNumbers(const Report& report) {
    if (report.record.pid && *report.record.pid < 1) {
        return "--pid must be at least 1";
    }
    for (const auto& [option, value] : {std::pair("--since", report.since), std::pair("--ts", report.ts)}) {
        if (value && (!std::isfinite(*value) || *value < 0)) {
            return std::string(option) + " must be milliseconds since 1970";
        }
    }
    return std::nullopt;
}

} // namespace

std::string reportFileName(const std::string& id) {
    constexpr std::size_t longestReadablePart = 40;
    std::string name;
    for (const char character : id.substr(0, longestReadablePart)) {
        const bool plain = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
                           (character >= '0' && character <= '9') || character == '-' || character == '_';
        name += plain ? character : '_';
    }
    std::array<char, 24> seed{};
    std::snprintf(seed.data(), seed.size(), "%016llx", static_cast<unsigned long long>(stableSeed(id)));
    return name + "-" + seed.data() + ".json";
}

std::optional<std::string> problemOf(const Report& report) {
    if (auto problem = problemOfId("--agent", report.record.agent.value_or(""))) {
        return problem;
    }
    if (auto problem = problemOfId("--id", report.record.id)) {
        return problem;
    }
    if (!isState(report.record.state)) {
        return "--state must be one of working, waiting, done, idle";
    }
    if (auto problem = problemOfTexts(report)) {
        return problem;
    }
    if (auto problem = problemOfNumbers(report)) {
        return problem;
    }
    if (report.record.open) {
        const auto scheme = linkScheme(*report.record.open);
        if (scheme != "http" && scheme != "https" && scheme != "file") {
            return "--open must be a valid http, https or file link (blanks written as %20)";
        }
    }
    return std::nullopt;
}

StatusRecord recordOf(const Report& report, const std::optional<StatusRecord>& previous, Date now) {
    StatusRecord record = report.record;
    if (record.event.empty()) {
        record.event = "Report";
    }
    record.ts = report.ts.value_or(std::round(now.milliseconds()));
    const bool sameState = previous && previous->state == record.state && previous->since <= record.ts;
    record.since = report.since.value_or(sameState ? previous->since : record.ts);
    if (!record.project && record.cwd) {
        record.project = text::lastPathComponent(*record.cwd);
    }
    return record;
}

std::string statusFileText(const StatusRecord& record) {
    nlohmann::ordered_json json;
    const auto put = [&json](const char* key, const std::optional<std::string>& value) {
        if (value) {
            json[key] = *value;
        }
    };
    json["state"] = record.state;
    json["since"] = record.since;
    json["id"] = record.id;
    json["event"] = record.event;
    put("tool", record.tool);
    put("detail", record.detail);
    put("message", record.message);
    put("notification", record.notification);
    put("cwd", record.cwd);
    put("project", record.project);
    put("transcript", record.transcript);
    put("effort", record.effort);
    put("model", record.model);
    json["ts"] = record.ts;
    put("agent", record.agent);
    put("title", record.title);
    if (record.pid) {
        json["pid"] = *record.pid;
    }
    put("open", record.open);
    return json.dump() + "\n";
}

} // namespace mimkins
