#include "Session/DeepLink.h"

#include "Base/Link.h"

#include <string_view>

namespace mimkins::deep_link {

namespace {

/// Escapes a query item's value. Of the marks that may stand in a query, "&", "=", "+", "#" and ";" are
/// escaped too, since they would end the value or be read as something else.
std::string escaped(std::string_view value) {
    return percentEncoded(value, "-._~:/?@!$'()*,");
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
