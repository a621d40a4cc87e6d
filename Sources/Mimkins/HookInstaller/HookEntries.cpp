#include "HookInstaller/HookEntries.h"

#include "Base/Text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace mimkins {

namespace {

constexpr const char* hooksKey = "hooks";
constexpr const char* timeoutSeconds = "5";

/// The value under a key of an object, as an array or object; null if it is missing or of another type.
const SettingsArray* arrayUnder(const SettingsObject& object, std::string_view key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : found->second.array();
}

SettingsObject* objectUnder(SettingsObject& object, std::string_view key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : found->second.object();
}

/// The elements of an array all of which are objects; none for any other value.
std::vector<const SettingsObject*> objects(const SettingsArray* array) {
    std::vector<const SettingsObject*> result;
    if (array == nullptr) {
        return result;
    }
    for (const auto& element : *array) {
        if (element.object() == nullptr) {
            return {};
        }
        result.push_back(element.object());
    }
    return result;
}

/// The text under "command"; null if there is none.
const std::string* commandOf(const SettingsObject& entry) {
    const auto found = entry.find("command");
    return found == entry.end() ? nullptr : found->second.string();
}

bool isOurEntry(const SettingsValue& entry, const Paths& paths) {
    const auto* object = entry.object();
    const auto* command = object == nullptr ? nullptr : commandOf(*object);
    return command != nullptr && isOurs(*command, paths);
}

/// Takes our entries out of a group. False if the group held nothing else and so has to go.
bool stripGroup(SettingsValue& group, const Paths& paths) {
    auto* object = group.object();
    const auto found = object == nullptr ? SettingsObject::iterator() : object->find(hooksKey);
    auto* entries = object == nullptr || found == object->end() ? nullptr : found->second.array();
    if (entries == nullptr) {
        return true;
    }
    const auto removed =
        std::erase_if(*entries, [&](const SettingsValue& entry) { return isOurEntry(entry, paths); });
    return removed == 0 || !entries->empty();
}

/// Takes our entries out of an event's groups. False if no group is left and so the event has to go.
bool stripEvent(SettingsValue& event, const Paths& paths) {
    auto* groups = event.array();
    if (groups == nullptr) {
        return true;
    }
    SettingsArray kept;
    for (auto& group : *groups) {
        if (stripGroup(group, paths)) {
            kept.push_back(std::move(group));
        }
    }
    *groups = std::move(kept);
    return !groups->empty();
}

bool isArrayOfObjects(const SettingsValue& value) {
    const auto* array = value.array();
    return array != nullptr && std::all_of(array->begin(), array->end(), [](const SettingsValue& element) {
               return element.object() != nullptr;
           });
}

SettingsValue ourGroup(const Paths& paths) {
    SettingsObject entry;
    entry["type"].content = "command";
    entry["command"].content = currentHookCommand(paths);
    entry["timeout"].content = SettingsNumber{timeoutSeconds};
    SettingsObject group;
    group[hooksKey].content = SettingsArray{{std::move(entry)}};
    return {std::move(group)};
}

} // namespace

std::set<std::string> knownScripts(const Paths& paths) {
    return {paths.hookScript(), paths.formerHookScript(), paths.oldestHookScript()};
}

std::string currentHookCommand(const Paths& paths) {
    return "\"" + paths.hookScript() + "\"";
}

bool isOurs(std::string_view command, const Paths& paths) {
    std::string_view bare = text::trimmedBlanks(command);
    const bool quoted = bare.size() >= 2 && (bare.front() == '"' || bare.front() == '\'');
    if (quoted && bare.back() == bare.front()) {
        bare = bare.substr(1, bare.size() - 2);
    }
    std::string script(bare);
    for (const std::string_view prefix : {"~/", "$HOME/", "${HOME}/"}) {
        if (script.compare(0, prefix.size(), prefix) == 0) {
            script.replace(0, prefix.size(), paths.home() + "/");
        }
    }
    return knownScripts(paths).count(script) > 0;
}

FoundEntries findEntries(const SettingsObject& root, const Paths& paths) {
    FoundEntries result;
    const auto hooks = root.find(hooksKey);
    const auto* events = hooks == root.end() ? nullptr : hooks->second.object();
    if (events == nullptr) {
        return result;
    }
    for (const auto& [event, groups] : *events) {
        for (const auto* group : objects(groups.array())) {
            for (const auto* entry : objects(arrayUnder(*group, hooksKey))) {
                const auto* command = commandOf(*entry);
                if (command != nullptr && isOurs(*command, paths)) {
                    result.events.insert(event);
                    result.stale = result.stale || *command != currentHookCommand(paths);
                }
            }
        }
    }
    return result;
}

void strip(SettingsObject& root, const Paths& paths) {
    auto* hooks = objectUnder(root, hooksKey);
    if (hooks == nullptr) {
        return;
    }
    for (auto event = hooks->begin(); event != hooks->end();) {
        event = stripEvent(event->second, paths) ? std::next(event) : hooks->erase(event);
    }
    if (hooks->empty()) {
        root.erase(hooksKey);
    }
}

void addEntries(SettingsObject& root, const Paths& paths) {
    strip(root, paths);
    SettingsValue& hooks = root[hooksKey];
    if (hooks.object() == nullptr) {
        hooks.content = SettingsObject{};
    }
    for (const auto event : hookEvents) {
        SettingsValue& groups = (*hooks.object())[std::string(event)];
        if (!isArrayOfObjects(groups)) {
            groups.content = SettingsArray{};
        }
        groups.array()->push_back(ourGroup(paths));
    }
}

} // namespace mimkins
