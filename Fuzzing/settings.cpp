#include "Base/Error.h"
#include "HookInstaller/HookEntries.h"
#include "HookInstaller/SettingsText.h"
#include "Support.h"
#include "Support/KnownLosses.h"

#include <nlohmann/json.hpp>

#include <algorithm>

// The client's settings, which belong to the user. Whatever can be read is written without a loss, connecting
// touches nothing of anyone else's, and disconnecting then gives back the document. Whatever can't be read is
// no JSON object indeed.

namespace {

using namespace mimkins;
using fuzz::require;

const Paths& paths() {
    static const Paths paths("/home/me");
    return paths;
}

std::optional<SettingsObject> read(std::string_view text) {
    try {
        return parseSettings(text);
    } catch (const Error&) {
        return std::nullopt;
    }
}

/// The text by another reader of JSON: nothing if that can't take it, or if it is out of our limits.
nlohmann::json elsewhere(std::string_view text) {
    const auto nesting =
        std::count_if(text.begin(), text.end(), [](char byte) { return byte == '[' || byte == '{'; });
    const bool isTooMuch =
        static_cast<std::size_t>(nesting) > deepestSettings || text.find('\0') != std::string_view::npos;
    auto result = isTooMuch ? nlohmann::json() : nlohmann::json::parse(text, nullptr, false);
    return result.is_object() ? result : nlohmann::json();
}

/// True if another reader finds the text to be no JSON; numbers beyond a machine's are JSON too.
bool isInvalidElsewhere(std::string_view text) {
    try {
        return nlohmann::json::parse(text).is_discarded();
    } catch (const nlohmann::json::parse_error&) {
        return true;
    } catch (const nlohmann::json::out_of_range&) {
        return false;
    }
}

/// Every entry of somebody else's: its event, then its text, in the order of the document.
std::vector<std::string> foreignEntries(const SettingsObject& root) {
    std::vector<std::string> result;
    const auto hooks = root.find("hooks");
    const auto* events = hooks == root.end() ? nullptr : hooks->second.object();
    for (const auto& [event, groups] : events == nullptr ? SettingsObject() : *events) {
        for (const auto& group : groups.array() == nullptr ? SettingsArray() : *groups.array()) {
            const auto* object = group.object();
            const auto entries = object == nullptr ? SettingsObject::const_iterator() : object->find("hooks");
            if (object == nullptr || entries == object->end() || entries->second.array() == nullptr) {
                continue;
            }
            for (const auto& entry : *entries->second.array()) {
                const auto* fields = entry.object();
                const auto command =
                    fields == nullptr ? SettingsObject::const_iterator() : fields->find("command");
                const auto* words =
                    fields == nullptr || command == fields->end() ? nullptr : command->second.string();
                if (words == nullptr || !isOurs(*words, paths())) {
                    result.push_back(event + serialiseSettings({{"entry", entry}}));
                }
            }
        }
    }
    return result;
}

SettingsObject withoutHooks(SettingsObject root) {
    root.erase("hooks");
    return root;
}

void requireSoundText(const SettingsObject& document, std::string_view text) {
    const std::string written = serialiseSettings(document);
    const auto again = read(written);
    require(again && *again == document, "what is written reads back the same");
    require(serialiseSettings(*again) == written, "written again, it is the same text");
    require(!isInvalidElsewhere(text), "only JSON is read");
    const auto other = elsewhere(text);
    require(other.is_null() || elsewhere(written) == other, "another reader finds the same values");
}

void requireSoundConnecting(const SettingsObject& document) {
    auto stripped = document;
    strip(stripped, paths());
    require(findEntries(stripped, paths()).events.empty(), "disconnecting leaves nothing of ours");
    require(
        foreignEntries(stripped) == foreignEntries(document), "disconnecting leaves everyone else's entries"
    );

    auto connected = document;
    addEntries(connected, paths());
    const auto found = findEntries(connected, paths());
    require(found.events.size() == hookEvents.size() && !found.stale, "connecting connects");
    require(withoutHooks(connected) == withoutHooks(document), "connecting leaves every other key");
    const auto kept = test::withoutKnownLosses(stripped);
    require(foreignEntries(connected) == foreignEntries(kept), "connecting leaves everyone else's entries");
    auto twice = connected;
    addEntries(twice, paths());
    require(twice == connected, "connecting twice is connecting once");

    strip(connected, paths());
    require(connected == kept, "disconnecting gives back the document");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asText(data, size);
    const auto document = read(text);
    if (!document) {
        require(elsewhere(text).is_null(), "a JSON object can be read");
        return 0;
    }
    requireSoundText(*document, text);
    requireSoundConnecting(*document);
    return 0;
}
