#pragma once

#include "Base/Paths.h"
#include "Session/Sources.h"

#include <optional>
#include <string>

namespace mimkins {

/// The path of a session's transcript: what the status record says, else composed from the registry's working
/// directory. Either record may be a null pointer.
std::optional<std::string> transcriptPath(
    const Paths& paths, const std::string& id, const StatusRecord* record, const RegistryEntry* entry
);

/// The folder in which a session's subagents keep their transcripts. Either record may be a null pointer.
std::optional<std::string> subagentsFolder(
    const Paths& paths, const std::string& id, const StatusRecord* record, const RegistryEntry* entry
);

} // namespace mimkins
