#pragma once

#include <optional>
#include <string>

/// Links into the desktop client.
namespace mimkins::deep_link {

/// The link that continues a session, from the desktop client's own id. Nothing if the text is no valid link.
std::optional<std::string> continueSession(const std::string& localId);

/// The link that starts a session. An empty prompt counts as none; an empty folder is kept.
std::string newSession(const std::optional<std::string>& folder, const std::optional<std::string>& prompt);

} // namespace mimkins::deep_link
