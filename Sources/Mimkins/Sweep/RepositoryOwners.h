#pragma once

#include "Base/Date.h"
#include "Platform/RandomAccessFile.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace mimkins {

/// The transcripts of one session: its own, and those of its subagents.
struct SessionTranscripts {
    std::string sessionId;
    std::vector<std::string> paths;

    friend bool operator==(const SessionTranscripts&, const SessionTranscripts&) = default;
};

/// For each changed file the sessions that changed it; a file that no session is known to have changed is
/// missing.
using RepositoryOwners = std::map<std::string, std::set<std::string>>;

/// Which of the sessions changed which of the files at `since` or later, as their transcripts tell. Files are
/// known by their last path component alone. A transcript that can't be read tells nothing. Blocks.
RepositoryOwners owners(
    const std::vector<std::string>& files, const std::vector<SessionTranscripts>& sessions, Date since,
    const RandomAccessFiles& opener
);

} // namespace mimkins
