#pragma once

#include <optional>
#include <string>

namespace mimkins {

/// The user's home folder as the password database has it, whatever the environment says. Nothing if the user
/// isn't listed there or the entry isn't an absolute path.
std::optional<std::string> homeFolder();

} // namespace mimkins
