#include "Command.h"
#include "Preferences.h"
#include "SessionsJson.h"
#include "Terminal.h"
#include "WallClock.h"

#include "Base/Lookup.h"
#include "Platform/Linux/OneLoad.h"
#include "Presentation/WhyWords.h"

#include <cmath>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>

namespace mimkins {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* examples =
    R"(Tells what each source says about a session and how old that is, which source speaks, which rule settled
the state, and whether the session is listed. The beginning of an id is enough if no other one begins so.

Examples:
  mimkin why 3f2a
  mimkin why 3f2a --json | jq -r .absence
  mimkin sessions --json | jq -r '.sessions[].id'

Times in JSON are milliseconds since 1970, absent values are null.

Exit codes: 0 told, 1 no such session or several, 2 wrong words.)";

struct WhyOptions {
    std::string id;
    bool asJson = false;
    std::optional<double> at;
};

/// Every id that any source knows, listed or not.
std::set<std::string> knownIds(const SessionStore& store) {
    std::set<std::string> ids;
    const auto add = [&ids](const auto& map) {
        for (const auto& entry : map) {
            ids.insert(entry.first);
        }
    };
    add(store.records());
    add(store.registry());
    add(store.appInfo());
    return ids;
}

std::runtime_error
noSingleSession(const std::string& word, const std::set<std::string>& candidates, bool ambiguous) {
    std::string text = ambiguous ? "several sessions begin with \"" : "no session begins with \"";
    text += printable(word) + "\"";
    if (!candidates.empty()) {
        text += ambiguous ? ":" : "; there are:";
    }
    for (const auto& id : candidates) {
        text += "\n  " + printable(id);
    }
    return std::runtime_error(text);
}

/// The id itself, or the only one that begins so. Throws with the candidates otherwise.
std::string resolve(const std::string& word, const std::set<std::string>& ids) {
    if (ids.contains(word)) {
        return word;
    }
    std::set<std::string> matching;
    for (const auto& id : ids) {
        if (id.starts_with(word)) {
            matching.insert(id);
        }
    }
    if (matching.empty()) {
        throw noSingleSession(word, ids, false);
    }
    if (matching.size() > 1) {
        throw noSingleSession(word, matching, true);
    }
    return *matching.begin();
}

/// Asks in the order of the list's own making: whether the session can be alive, then what it derives to.
WhySubject subjectOf(const SessionStore& store, const std::string& id, Date at) {
    WhySubject subject;
    subject.id = id;
    subject.inputs = store.inputs(id, at);
    subject.liveness = store.liveness(id, at);
    if (isLive(subject.liveness)) {
        subject.derivation = deriveSession(subject.inputs);
    }
    if (const auto root = store.repoRoot(id)) {
        if (const auto* checked = lookup(store.repositories().repoCheckedAt, *root)) {
            subject.repositoryChecked = *checked;
        }
    }
    return subject;
}

Json nameOrNull(const std::optional<std::string_view>& name) {
    return name ? Json(std::string(*name)) : Json(nullptr);
}

/// Seconds, to the millisecond.
Json ageJson(const std::optional<Date>& time, Date at) {
    constexpr double thousand = 1000;
    return time ? Json(std::round((at - *time) * thousand) / thousand) : Json(nullptr);
}

Json sourceJson(const WhyWords::Source& source, Date at) {
    Json json;
    json["name"] = std::string(source.name);
    json["says"] = orNull(source.says);
    json["time"] = dateOrNull(source.time);
    json["ageSeconds"] = ageJson(source.time, at);
    json["speaks"] = source.speaks;
    return json;
}

Json whyJson(const WhySubject& subject, const WhyWords& words, Date at) {
    const auto& derivation = subject.derivation;
    const auto absence = absenceName(subject.liveness, derivation.absence);
    Json json;
    json["id"] = subject.id;
    json["listed"] = !absence;
    json["absence"] = nameOrNull(absence);
    json["mood"] = derivation.mood ? Json(std::string(caseName(*derivation.mood))) : Json(nullptr);
    json["speaker"] = nameOrNull(speakerName(derivation.speaker));
    json["speakerReason"] = nameOrNull(reasonName(derivation.speakerReason));
    json["rule"] = nameOrNull(ruleName(derivation.moodRule));
    json["sources"] = Json::array();
    for (const auto& source : words.sources) {
        json["sources"].push_back(sourceJson(source, at));
    }
    return json;
}

void explain(const WhyOptions& options, const Paths& paths) {
    const Date at = options.at ? Date::fromMilliseconds(*options.at) : wallClock();
    const auto preferences = readPreferences(paths);
    const OneLoad load(paths, preferences.rules, at);
    auto subject = subjectOf(load.store(), resolve(options.id, knownIds(load.store())), at);
    subject.shuffle = preferences.shuffle;
    const auto words = WhyWords::of(subject);
    if (options.asJson) {
        std::cout << jsonText(whyJson(subject, words, at), JsonLayout::pretty) << "\n";
    } else {
        std::cout << whyText(words, at, outputStyle());
    }
}

} // namespace

void addWhyCommand(CLI::App& program, CommandContext& context) {
    auto* command = program.add_subcommand("why", "Tell why a session shows as it does, or doesn't show");
    const auto options = std::make_shared<WhyOptions>();
    const auto notEmpty = [](const std::string& word) {
        return word.empty() ? std::string("must not be empty") : std::string();
    };
    command->add_option("id", options->id, "The session's id, or its beginning")
        ->required()
        ->check(CLI::Validator(notEmpty, "ID"));
    command->add_flag("--json", options->asJson, "Print JSON");
    command->add_option("--at", options->at, "As of this moment, milliseconds since 1970 (default: now)");
    command->footer(examples);
    command->callback([options, &context] { explain(*options, context.paths()); });
}

} // namespace mimkins
