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

/// Starts a session of the desktop client where this one works, with a prompt if one is given.
void newSession(const Session& session, const std::optional<std::string>& prompt, LinkOpener& opener);

/// Shows where the session works. Does nothing if that isn't known.
void showFolder(const Session& session, LinkOpener& opener);

} // namespace mimkins
