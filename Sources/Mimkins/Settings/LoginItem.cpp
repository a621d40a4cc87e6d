#include "Settings/LoginItem.h"

#include "Base/Log.h"

#include <exception>
#include <string>
#include <variant>

namespace mimkins {

namespace {

constexpr const char* category = "login";
constexpr const char* configuredKey = "loginItemConfigured";

bool isConfigured(const PreferencesStore& preferences) {
    const auto stored = preferences.value(configuredKey);
    const auto* configured = stored ? std::get_if<bool>(&*stored) : nullptr;
    return configured != nullptr && *configured;
}

} // namespace

void LoginItem::set(bool on) {
    try {
        on ? service_.registerItem() : service_.unregisterItem();
    } catch (const std::exception& error) {
        const std::string action = on ? "register" : "unregister";
        log::write(log::Level::error, category, "login item " + action + " failed: " + error.what());
    }
    const auto status = static_cast<int>(service_.status());
    log::write(log::Level::standard, category, "login item status: " + std::to_string(status));
}

void LoginItem::enableOnFirstRun(PreferencesStore& preferences) {
    if (isConfigured(preferences)) {
        return;
    }
    set(true);
    preferences.set(configuredKey, true);
}

} // namespace mimkins
