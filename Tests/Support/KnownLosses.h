#pragma once

#include "HookInstaller/HookEntries.h"

#include <algorithm>

namespace mimkins::test {

/// What connecting and disconnecting lose on purpose of settings without entries of ours: a "hooks" that is
/// no object, values under the ten events that aren't arrays of objects, empty events, and a "hooks" that is
/// empty then. Everything else has to come back.
inline SettingsObject withoutKnownLosses(SettingsObject root) {
    const auto found = root.find("hooks");
    if (found == root.end()) {
        return root;
    }
    SettingsObject kept;
    if (const auto* events = found->second.object()) {
        for (const auto& [name, groups] : *events) {
            const auto* array = groups.array();
            const bool isEvent = std::find(hookEvents.begin(), hookEvents.end(), name) != hookEvents.end();
            const bool holdsOnlyObjects =
                array != nullptr &&
                std::all_of(array->begin(), array->end(), [](const SettingsValue& element) {
                    return element.object() != nullptr;
                });
            const bool emptied = array != nullptr && array->empty();
            if (!emptied && (!isEvent || holdsOnlyObjects)) {
                kept[name] = groups;
            }
        }
    }
    root.erase(found);
    if (!kept.empty()) {
        root["hooks"] = {kept};
    }
    return root;
}

} // namespace mimkins::test
