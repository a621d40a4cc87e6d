#pragma once

#include "Platform/GitRunner.h"
#include "Session/Facts.h"
#include "Sweep/SweepReport.h"
#include "Sweep/SweepRequest.h"

#include <cstdint>
#include <functional>

namespace mimkins {

/// What a sweep asks with, all on the queue that scans transcripts.
struct SweepTools {
    const GitRunner& git;
    /// The background work that a transcript tells of.
    std::function<BackgroundWork(const SweptTranscript& transcript, Date now)> scan;
    /// How many command shells a process has for children: no more commands than that can be running.
    std::function<std::int64_t(std::int32_t pid)> liveShells;
};

/// Looks at everything in the request and puts the report together. Blocks; made for any thread but the main
/// one. A repository whose git fails counts as clean, and a transcript that is missing has nothing to tell.
SweepReport runSweep(const SweepRequest& request, const SweepTools& tools);

} // namespace mimkins
