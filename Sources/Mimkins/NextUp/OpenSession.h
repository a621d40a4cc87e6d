#pragma once

#include "Platform/LinkOpener.h"
#include "Session/Session.h"

#include <optional>
#include <string>

namespace mimkins {

/// Hands a link to the desktop: a file is shown in its folder and not opened, any other link is opened. Does
/// nothing without a link.
void openLink(const std::optional<std::string>& link, LinkOpener& opener);

/// What a click on a session's card does. The user sees no failure: a session without a link is only logged.
void jump(const Session& session, LinkOpener& opener);

} // namespace mimkins
