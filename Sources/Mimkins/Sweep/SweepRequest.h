#pragma once

#include "Base/Date.h"
#include "Session/Session.h"
#include "Session/Sources.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// A desktop session as old as this, in seconds since its last activity, has no part in a sweep.
inline constexpr double sweptSessionAge = 172'800;

/// A repository that a sweep looks at, under the name of the session that was last active in it.
struct SweptRepository {
    std::string root;
    std::string title;
    std::string localId;
    Date at;

    friend bool operator==(const SweptRepository&, const SweptRepository&) = default;
};

/// A transcript that a sweep looks at.
struct SweptTranscript {
    std::string sessionId;
    std::string title;
    std::optional<std::string> localId;
    std::string path;
    Date started;
    std::int32_t pid = 0;

    friend bool operator==(const SweptTranscript&, const SweptTranscript&) = default;
};

/// Everything that a sweep looks at, gathered on the main thread.
struct SweepRequest {
    Date now;
    std::vector<Session> waiting;
    std::vector<SweptRepository> repositories;
    std::vector<SweptTranscript> transcripts;
};

/// What the store knows when a sweep begins; the maps are keyed by session id.
struct SweepSources {
    const std::vector<Session>& sessions;
    const std::map<std::string, AppSessionInfo>& appInfo;
    const std::map<std::string, RegistryEntry>& registry;
    /// Gives the path of a session's transcript, if it has one.
    std::function<std::optional<std::string>(const std::string& sessionId)> transcriptPath;
};

SweepRequest gatherSweep(const SweepSources& sources, Date now);

} // namespace mimkins
