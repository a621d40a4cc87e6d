#pragma once

#include "Base/Date.h"
#include "Session/Sources.h"

#include <cstdint>
#include <functional>

namespace mimkins {

/// How long a status record without a running client counts, in seconds.
inline constexpr double graceWithoutClient = 10;

/// What tells that a session lives, or that it doesn't.
enum class Liveness {
    agentRuns,    ///< an agent that reports itself runs
    agentUnknown, ///< an agent reports itself and names no process
    agentEnded,   ///< the process of an agent that reports itself has ended
    clientRuns,   ///< the registry has the session's client
    noRegistry,   ///< the registry is empty, so that records stand without it
    justWritten,  ///< no client has it, but the record is fresh
    leftBehind,   ///< no client has it, and the record is old
};

/// What is asked of one session.
struct LivenessInputs {
    const StatusRecord* hook = nullptr;
    bool registered = false;    ///< the registry has the session
    bool anyRegistered = false; ///< the registry has any session
    Date now;
};

/// Judges one session; a process is asked after only for an agent that reports itself.
Liveness
livenessOf(const LivenessInputs& inputs, const std::function<bool(std::int32_t pid)>& processIsAlive);

/// False if the session has to leave the list.
constexpr bool isLive(Liveness liveness) {
    return liveness != Liveness::agentEnded && liveness != Liveness::leftBehind;
}

} // namespace mimkins
