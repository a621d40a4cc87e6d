#pragma once

#include "Platform/FileSystem.h"
#include "Platform/Processes.h"
#include "Session/Sources.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace mimkins {

/// Reads one registry document tolerantly: the session id, status and process id must be there, and every
/// other field of the wrong type counts as missing.
std::optional<RegistryEntry> parseRegistryEntry(std::string_view text);

/// The entries of the client's registry whose process lives, keyed by session id. Of two files with one id
/// the later name stands.
std::map<std::string, RegistryEntry>
readRegistry(const FileSystem& files, const Processes& processes, const std::string& folder);

} // namespace mimkins
