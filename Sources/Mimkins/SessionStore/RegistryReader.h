#pragma once

#include "Base/Date.h"
#include "Platform/FileSystem.h"
#include "Platform/KeptDocuments.h"
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

/// Reads the client's registry again and again. A file is read only when it has changed; whether its process
/// lives is asked each time.
class RegistryReader {
public:
    /// Both outlive the reader.
    RegistryReader(const FileSystem& files, const Processes& processes);

    /// The entries whose process lives, keyed by session id. Of two files with one id the later name stands.
    std::map<std::string, RegistryEntry> read(const std::string& folder, Date now);

private:
    KeptDocuments<RegistryEntry> documents_;
    const Processes* processes_;
};

} // namespace mimkins
