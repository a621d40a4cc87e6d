#pragma once

#include "HookInstaller/Connection.h"
#include "SettingsView/SettingsContent.h"

#include <functional>
#include <string>

namespace mimkins {

/// What makes the block about the connection for a settings screen. The connection outlives the screen.
std::function<ConnectionPart(const CardLook&)>
connectionPartOf(Connection& connection, const std::string& home);

} // namespace mimkins
