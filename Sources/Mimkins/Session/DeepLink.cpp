#include "Session/DeepLink.h"

#include "Base/Link.h"

#include <string_view>

namespace mimkins::deep_link {

namespace {

/// Escapes a query item's value: everything but the characters that may stand in a query, and among those
/// "&", "=",
/// "+", "#" and ";" too, since they would end the value or be read as something else.
std::string escaped(std::string_view value) {
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~:/?@!$'()*,";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char character : value) {
        if (plain.find(character) != std::string_view::npos) {
            result += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        result += '%';
        result += digits[byte >> 4U];
        result += digits[byte & 0xFU];
    }
    return result;
}

} // namespace

std::optional<std::string> continueSession(const std::string& localId) {
    std::string link = "claude://code/continue?session=" + localId;
    return linkScheme(link) ? std::optional(std::move(link)) : std::nullopt;
}

std::string newSession(const std::optional<std::string>& folder, const std::optional<std::string>& prompt) {
    std::string link = "claude://code/new";
    char separator = '?';
    if (prompt && !prompt->empty()) {
        link += separator + std::string("q=") + escaped(*prompt);
        separator = '&';
    }
    if (folder) {
        link += separator + std::string("folder=") + escaped(*folder);
    }
    return link;
}

} // namespace mimkins::deep_link
