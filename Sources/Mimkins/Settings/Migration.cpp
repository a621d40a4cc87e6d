#include "Settings/Migration.h"

#include <string>
#include <variant>

namespace mimkins::Migration {

namespace {

constexpr const char* doneKey = "migratedFromZorbly";

bool isDone(const PreferencesStore& own) {
    const auto stored = own.value(doneKey);
    const auto* done = stored ? std::get_if<bool>(&*stored) : nullptr;
    return done != nullptr && *done;
}

} // namespace

void fromZorbly(
    PreferencesStore& own, const std::function<std::unique_ptr<const PreferencesStore>()>& former
) {
    if (isDone(own)) {
        return;
    }
    // First of all, so that one that fails half-way isn't repeated.
    own.set(doneKey, true);
    const auto source = former();
    if (!source) {
        return;
    }
    for (const std::string_view name : keys) {
        const std::string key(name);
        if (own.value(key)) {
            continue;
        }
        if (const auto value = source->value(key)) {
            own.set(key, *value);
        }
    }
}

} // namespace mimkins::Migration
