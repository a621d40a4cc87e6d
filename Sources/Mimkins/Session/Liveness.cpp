#include "Session/Liveness.h"

namespace mimkins {

Liveness
livenessOf(const LivenessInputs& inputs, const std::function<bool(std::int32_t pid)>& processIsAlive) {
    const auto* hook = inputs.hook;
    if (hook != nullptr && hook->agent) {
        if (!hook->pid || *hook->pid < 1) {
            return Liveness::agentUnknown;
        }
        return processIsAlive(*hook->pid) ? Liveness::agentRuns : Liveness::agentEnded;
    }
    if (inputs.registered) {
        return Liveness::clientRuns;
    }
    if (hook == nullptr || !inputs.anyRegistered) {
        return Liveness::noRegistry;
    }
    const double age = inputs.now - Date::fromMilliseconds(hook->ts);
    return age > graceWithoutClient ? Liveness::leftBehind : Liveness::justWritten;
}

} // namespace mimkins
